-- The pharmacy's retail store, as far as the wards see it.

-- One row an item; itemID is its name.
create table stockItemsRetail (
    itemID varchar(200) not null primary key,
    UnitsInStock int null
)
GO
-- One row an issue from the store; UnitsInStock is what was left after it.
create table stockIssueRetail (
    SNo int identity(1,1) not null primary key,
    dtDate date null,
    itemID varchar(200) null,
    Qty int null,
    UnitsInStock int null,
    PNo varchar(20) null,
    consultID varchar(20) null
)
GO
