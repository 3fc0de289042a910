-- Who pays: companies, health-maintenance organisations, the schemes, and the private client.

create table hRetainership (
    retainID varchar(20) not null primary key,
    retainName varchar(100) not null,
    retainCode varchar(20) null,
    RetainDate date null,
    Contact varchar(100) null,
    Address varchar(200) null,
    PhoneNo varchar(50) null,
    Email varchar(100) null,
    ClientType varchar(50) null,
    clientcatID varchar(50) null,
    RegAmount money null,
    ConAmount money null,
    CardRenewAmount money null
)
GO
-- the client of a report panel: where retainCode='AXM'
create index IX_hRetainership_retainCode on hRetainership (retainCode)
GO
