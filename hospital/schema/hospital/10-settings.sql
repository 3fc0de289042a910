-- The hospital's settings, read once at each start by key.

create table AppDefaults (
    ID varchar(50) not null primary key,
    idval varchar(200) null
)
GO
create table appSettings (
    ID varchar(50) not null primary key,
    idval varchar(200) null,
    idval2 varchar(200) null,
    idval3 varchar(200) null,
    idval5 varchar(200) null
)
GO
-- The hospital itself: the name that messages and reports carry.
create table hHospital (
    HospitalNo varchar(3) not null primary key,
    hname varchar(100) not null,
    Address varchar(200) null,
    PhoneNo varchar(50) null
)
GO

-- The server's clock: exactly one row.
create view qrySysDateTime as
select getdate() as sysDT
GO
