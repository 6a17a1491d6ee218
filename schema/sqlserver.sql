-- Ledger database, SQL Server form. The database's default (case-insensitive) collation
-- gives the text comparisons the program expects. Run once in the ledger database.
IF OBJECT_ID('ZbLst') IS NULL
CREATE TABLE ZbLst (
  ZBid     nvarchar(100) NOT NULL PRIMARY KEY,
  ZbNm     nvarchar(200),
  Item     nvarchar(100),
  SL       nvarchar(100),
  Bz       nvarchar(200),
  BgDate   nvarchar(20),
  NdDate   nvarchar(20),
  MB       nvarchar(100),
  SalesMan nvarchar(100),
  Msg      nvarchar(1000),
  Cmd      nvarchar(1000),
  GongGao  nvarchar(max)
);

IF OBJECT_ID('UsrLst') IS NULL
CREATE TABLE UsrLst (
  ZBID nvarchar(100) NOT NULL,
  Usr  nvarchar(100) NOT NULL,
  PWD  nvarchar(100),
  QX   nvarchar(100),
  PRIMARY KEY (ZBID, Usr)
);

-- One row per journal entry. A deleted entry keeps its row under a tombstone ZBID
-- (operator # ledger # date time), hence the wider ZBID.
IF OBJECT_ID('Zhang') IS NULL
CREATE TABLE Zhang (
  ZBID nvarchar(300) NOT NULL,
  USR  nvarchar(100),
  TM   nvarchar(20),
  ID   nvarchar(40),
  ITEM nvarchar(200),
  SL   decimal(38, 10),
  BZ   nvarchar(2000)
);

IF NOT EXISTS (SELECT 1 FROM sys.indexes WHERE name = 'Zhang_Ledger_Item_Time')
CREATE INDEX Zhang_Ledger_Item_Time ON Zhang (ZBID, ITEM, TM) INCLUDE (SL);
IF NOT EXISTS (SELECT 1 FROM sys.indexes WHERE name = 'Zhang_Ledger_Time')
CREATE INDEX Zhang_Ledger_Time ON Zhang (ZBID, TM, ID);
IF NOT EXISTS (SELECT 1 FROM sys.indexes WHERE name = 'Zhang_Ledger_Id')
CREATE INDEX Zhang_Ledger_Id ON Zhang (ZBID, ID);
