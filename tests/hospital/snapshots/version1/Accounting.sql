PRAGMA foreign_keys=OFF;
BEGIN TRANSACTION;
CREATE TABLE IF NOT EXISTS "SchemaVersion" ("version" INT not null constraint "integer version" check ("version" is null or typeof("version") = 'integer') constraint "range version" check ("version" between -2147483648 and 2147483647), "appliedOn" DATETIME_TEXT collate VDATE not null default (getdate()) constraint "date appliedOn" check ("appliedOn" is null or tsql_isdate("appliedOn")), primary key ("version"));
INSERT INTO SchemaVersion VALUES(1,'2026-11-25 02:31:13');
CREATE TABLE IF NOT EXISTS "AccountMonth" ("Period" VARCHAR(20) collate VTEXT not null constraint "length Period" check (length("Period") <= 20), primary key ("Period"));
INSERT INTO AccountMonth VALUES('2026-11');
CREATE TRIGGER "SchemaVersion stored on insert" after insert on "SchemaVersion" when not tsql_isstored(new."appliedOn", 'm') begin update "SchemaVersion" set "appliedOn" = tsql_moment(new."appliedOn", 'm') where rowid = new.rowid; end;
CREATE TRIGGER "SchemaVersion stored on update" after update of "appliedOn" on "SchemaVersion" when not tsql_isstored(new."appliedOn", 'm') begin update "SchemaVersion" set "appliedOn" = tsql_moment(new."appliedOn", 'm') where rowid = new.rowid; end;
COMMIT;
