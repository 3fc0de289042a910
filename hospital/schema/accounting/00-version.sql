-- The version of this database's schema: one row a step that was applied, the highest is in force.
create table SchemaVersion (
    version int not null primary key,
    appliedOn datetime not null default getdate()
)
GO
insert into SchemaVersion (version) values (7)
GO
