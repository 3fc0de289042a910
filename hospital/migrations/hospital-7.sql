-- From version 6 to 7: a client's template whose rows are gone can be built anew, so the register of templates has no key.

create table DrugNHISListEnteredKept (
    CoyID varchar(20) not null,
    Type varchar(20) not null,
    remarks varchar(50) null,
    useTariff varchar(20) null,
    Pcent float null
)
GO
insert into DrugNHISListEnteredKept (CoyID, Type, remarks, useTariff, Pcent)
select CoyID, Type, remarks, useTariff, Pcent from DrugNHISListEntered
GO
drop table DrugNHISListEntered
GO
create table DrugNHISListEntered (
    CoyID varchar(20) not null,
    Type varchar(20) not null,
    remarks varchar(50) null,
    useTariff varchar(20) null,
    Pcent float null
)
GO
insert into DrugNHISListEntered (CoyID, Type, remarks, useTariff, Pcent)
select CoyID, Type, remarks, useTariff, Pcent from DrugNHISListEnteredKept
GO
drop table DrugNHISListEnteredKept
GO
-- An item's rows are found in the order in which they were made.
drop index IX_drugs_drgName on drugs
GO
create index IX_drugs_drgName on drugs (drgName)
GO
