-- Ledger database, embedded SQLite form. Text compares without regard to case (NOCASE),
-- as on SQL Server's default collation.
CREATE TABLE IF NOT EXISTS ZbLst (
  ZBid     TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
  ZbNm     TEXT COLLATE NOCASE,
  Item     TEXT COLLATE NOCASE,
  SL       TEXT COLLATE NOCASE,
  Bz       TEXT COLLATE NOCASE,
  BgDate   TEXT COLLATE NOCASE,
  NdDate   TEXT COLLATE NOCASE,
  MB       TEXT COLLATE NOCASE,
  SalesMan TEXT COLLATE NOCASE,
  Msg      TEXT COLLATE NOCASE,
  Cmd      TEXT COLLATE NOCASE,
  GongGao  TEXT COLLATE NOCASE
);

CREATE TABLE IF NOT EXISTS UsrLst (
  ZBID TEXT COLLATE NOCASE NOT NULL,
  Usr  TEXT COLLATE NOCASE NOT NULL,
  PWD  TEXT COLLATE NOCASE,
  QX   TEXT COLLATE NOCASE,
  PRIMARY KEY (ZBID, Usr)
);

-- One row per journal entry. A deleted entry keeps its row under a tombstone ZBID.
CREATE TABLE IF NOT EXISTS Zhang (
  ZBID TEXT COLLATE NOCASE NOT NULL,
  USR  TEXT COLLATE NOCASE,
  TM   TEXT COLLATE NOCASE,
  ID   TEXT COLLATE NOCASE,
  ITEM TEXT COLLATE NOCASE,
  SL   REAL,
  BZ   TEXT COLLATE NOCASE
);
-- Covering: an item's balance before a time is read from the index alone.
CREATE INDEX IF NOT EXISTS Zhang_Ledger_Item_Time_Sl ON Zhang (ZBID, ITEM, TM, SL);
DROP INDEX IF EXISTS Zhang_Ledger_Item_Time;
CREATE INDEX IF NOT EXISTS Zhang_Ledger_Time ON Zhang (ZBID, TM, ID);
CREATE INDEX IF NOT EXISTS Zhang_Ledger_Id ON Zhang (ZBID, ID);
