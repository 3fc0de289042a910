-- From version 2 to 3: "AB-POSITIVE" has more than ten characters. The search inside names gets its index besides.

alter table hPatients alter column bloodGroup varchar(20) null
GO
alter table hpatientsArchive alter column bloodGroup varchar(20) null
GO
