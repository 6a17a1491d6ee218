-- Ledger database, PostgreSQL form. citext makes =, like and group by ignore letter case,
-- as on SQL Server's default collation. Run once in the ledger database by its owner.
CREATE EXTENSION IF NOT EXISTS citext;

CREATE TABLE IF NOT EXISTS ZbLst (
  ZBid     citext NOT NULL PRIMARY KEY,
  ZbNm     citext,
  Item     citext,
  SL       citext,
  Bz       citext,
  BgDate   citext,
  NdDate   citext,
  MB       citext,
  SalesMan citext,
  Msg      citext,
  Cmd      citext,
  GongGao  citext
);

CREATE TABLE IF NOT EXISTS UsrLst (
  ZBID citext NOT NULL,
  Usr  citext NOT NULL,
  PWD  citext,
  QX   citext,
  PRIMARY KEY (ZBID, Usr)
);

-- One row per journal entry. A deleted entry keeps its row under a tombstone ZBID.
CREATE TABLE IF NOT EXISTS Zhang (
  ZBID citext NOT NULL,
  USR  citext,
  TM   citext,
  ID   citext,
  ITEM citext,
  SL   numeric,
  BZ   citext
);
-- Covering: an item's balance before a time is read from the index alone.
CREATE INDEX IF NOT EXISTS Zhang_Ledger_Item_Time_Sl ON Zhang (ZBID, ITEM, TM, SL);
DROP INDEX IF EXISTS Zhang_Ledger_Item_Time;
CREATE INDEX IF NOT EXISTS Zhang_Ledger_Time ON Zhang (ZBID, TM, ID);
CREATE INDEX IF NOT EXISTS Zhang_Ledger_Id ON Zhang (ZBID, ID);
