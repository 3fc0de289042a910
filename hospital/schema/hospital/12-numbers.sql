-- The identifiers of the suite: "PATIENT2" makes 000000123/001, "ConsultID2" makes 001000000123.

create table idgen (
    destNAme varchar(50) not null primary key,
    id int not null default 0,
    prefix varchar(10) not null default '',
    digits int not null default 9,
    suffix varchar(10) not null default ''
)
GO

-- One statement counts and reads, so no two callers ever get the same number.
create procedure getIDNo
    @DestName varchar(50)
as
begin
    update idgen set id = id + 1
    output inserted.prefix + right('000000000' + cast(inserted.id as varchar(9)), inserted.digits) + inserted.suffix
        as getIDNo
    where destNAme = @DestName
end
GO
