-- From version 1 to 2: two indexes that no statement uses go, and two roles come. All else is new.

drop index IX_hPatients_CoyName on hPatients
GO
drop index IX_hNewBabies_consultID on hNewBabies
GO
insert into Roles (RoleID, LoginRole, MinVer)
select 104, 'RECORDS', 1 where not exists (select * from Roles where RoleID = 104 or LoginRole = 'RECORDS')
GO
insert into Roles (RoleID, LoginRole, MinVer)
select 105, 'TARIFF', 1 where not exists (select * from Roles where RoleID = 105 or LoginRole = 'TARIFF')
GO
-- "WHILE STILL IN SERVICE" has more than twenty characters.
alter table hPatients alter column fileduration varchar(50) null
GO
