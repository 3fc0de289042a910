-- Outgoing text messages, which a gateway picks up, and the texts that they are made of.

create table MessageOut (
    SNo int identity(1,1) not null primary key,
    [Date] date null,
    Message varchar(max) null,
    Phone varchar(50) null,
    isSent bit not null default 0,
    SNoCat int null,
    sendDate date null,
    sendTime varchar(20) null,
    Remarks varchar(200) null,
    Remarks2 varchar(200) null,
    Catname varchar(50) null,
    fullName varchar(100) null,
    Code varchar(50) null
)
GO
-- what the gateway sends next: where isSent=0 and sendDate<=...
create index IX_MessageOut_isSent on MessageOut (isSent, sendDate)
GO
-- One row a kind of message; Category is "APPT" or "ATTEND".
create table SmsCategories (
    SNoCat int identity(1,1) not null primary key,
    Category varchar(50) not null,
    Details varchar(500) null,
    Details2 varchar(500) null,
    Remarks varchar(200) null
)
GO
-- Whom messages go to. Fullname2 is who is addressed for a patient that cannot read them, empty for others.
create table SmsPatients (
    pno varchar(20) not null primary key,
    Fullname varchar(100) not null,
    Fullname2 varchar(100) null,
    PhoneNo varchar(50) null
)
GO
-- The words that a clinic is called by in a message.
create table SmsClinics (
    ClinicName varchar(100) not null primary key,
    Designation varchar(100) null
)
GO

-- One row a patient and kind of appointment message.
create view vwFullnamePatAppt as
select t.SNoCat, 'Dear ' + p.Fullname as Fullname, p.Fullname2, t.Details, t.Details2, t.Remarks, p.PhoneNo, p.pno,
    t.Category
from SmsPatients p
inner join SmsCategories t on t.Category = 'APPT'
GO

-- One row a patient and kind of attendance message.
create view vwFullnamePatAttend as
select t.SNoCat, 'Dear ' + p.Fullname as Fullname, p.Fullname2, t.Details, t.Details2, t.Remarks, p.PhoneNo, p.pno,
    t.Category
from SmsPatients p
inner join SmsCategories t on t.Category = 'ATTEND'
GO

-- One row a clinic.
create view vwClinicTypesForSMS as
select ClinicName, Designation from SmsClinics
GO
