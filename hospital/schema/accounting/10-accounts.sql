-- The accounting period that postings go to: one row.
create table AccountMonth (
    Period varchar(20) not null primary key
)
GO
