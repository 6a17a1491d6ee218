-- Ledger database, SQL Server form (SQL Server 2019 or later). Run once in the ledger database.
--
-- The program writes every text as a plain '...' literal, never N'...'. A plain literal is varchar in
-- the database's default collation, so Chinese text and characters outside the basic plane survive
-- only when that collation is UTF-8: create the database with it, for example
--   CREATE DATABASE ledgers COLLATE Latin1_General_100_CI_AS_SC_UTF8;
-- (or ALTER DATABASE ledgers COLLATE Latin1_General_100_CI_AS_SC_UTF8 while it has no tables).
-- The text columns are varchar with the same collation named explicitly: with a UTF-8 collation a
-- varchar value holds any Unicode text, so the literal and the column are of one type and one
-- collation and nothing is converted on the way in or in a comparison such as Item='...'. (nvarchar
-- would keep the text too, but only as long as the database's default stays UTF-8; a column that
-- names its collation keeps it when the table is copied into another database.)
-- CI (case-insensitive) gives the comparisons the program expects; SC keeps astral characters
-- whole. Lengths count bytes: a Chinese character takes three, an astral one four.
IF OBJECT_ID('ZbLst') IS NULL
CREATE TABLE ZbLst (
  ZBid     varchar(300)  COLLATE Latin1_General_100_CI_AS_SC_UTF8 NOT NULL PRIMARY KEY,
  ZbNm     varchar(600)  COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  Item     varchar(300)  COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  SL       varchar(300)  COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  Bz       varchar(600)  COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  BgDate   varchar(60)   COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  NdDate   varchar(60)   COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  MB       varchar(300)  COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  SalesMan varchar(300)  COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  Msg      varchar(3000) COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  Cmd      varchar(3000) COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  GongGao  varchar(max)  COLLATE Latin1_General_100_CI_AS_SC_UTF8
);

IF OBJECT_ID('UsrLst') IS NULL
CREATE TABLE UsrLst (
  ZBID varchar(300) COLLATE Latin1_General_100_CI_AS_SC_UTF8 NOT NULL,
  Usr  varchar(300) COLLATE Latin1_General_100_CI_AS_SC_UTF8 NOT NULL,
  PWD  varchar(300) COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  QX   varchar(300) COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  PRIMARY KEY (ZBID, Usr)
);

-- One row per journal entry. A deleted entry keeps its row under a tombstone ZBID
-- (operator # ledger # date time), hence the wider ZBID. The widths keep every index key
-- within SQL Server's 1,700 bytes.
IF OBJECT_ID('Zhang') IS NULL
CREATE TABLE Zhang (
  ZBID varchar(900)  COLLATE Latin1_General_100_CI_AS_SC_UTF8 NOT NULL,
  USR  varchar(300)  COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  TM   varchar(60)   COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  ID   varchar(120)  COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  ITEM varchar(600)  COLLATE Latin1_General_100_CI_AS_SC_UTF8,
  SL   decimal(38, 10),
  BZ   varchar(6000) COLLATE Latin1_General_100_CI_AS_SC_UTF8
);

IF NOT EXISTS (SELECT 1 FROM sys.indexes WHERE name = 'Zhang_Ledger_Item_Time')
CREATE INDEX Zhang_Ledger_Item_Time ON Zhang (ZBID, ITEM, TM) INCLUDE (SL);
IF NOT EXISTS (SELECT 1 FROM sys.indexes WHERE name = 'Zhang_Ledger_Time')
CREATE INDEX Zhang_Ledger_Time ON Zhang (ZBID, TM, ID);
IF NOT EXISTS (SELECT 1 FROM sys.indexes WHERE name = 'Zhang_Ledger_Id')
CREATE INDEX Zhang_Ledger_Id ON Zhang (ZBID, ID);
