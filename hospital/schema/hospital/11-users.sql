-- Staff, accounts, roles, and the trail of who used the module.

-- deptID is "MED" or "MEDICAL" for doctors, "NUR" or "NURSING" for nurses.
create table employees (
    empID varchar(20) not null primary key,
    lastname varchar(50) null,
    firstname varchar(50) null,
    deptID varchar(20) null
)
GO
create table Roles (
    RoleID int not null primary key,
    LoginRole varchar(50) not null,
    MinVer int null
)
GO
-- select MinVer from Roles where LoginRole='NURSING'
create index IX_Roles_LoginRole on Roles (LoginRole)
GO
-- Password is the encoded password; it is the only one once SaltedPass is null.
create table Users (
    Username varchar(50) not null primary key,
    Password varchar(100) null,
    SaltedPass varchar(200) null,
    EmpID varchar(20) null,
    Fullname varchar(100) null,
    Branchcode varchar(20) null
)
GO
-- The account of a user: whether it may sign in. Without a row here it may.
create table ApplicationUsers (
    Username varchar(50) not null primary key,
    Password varchar(100) null,
    AccountStatus varchar(20) not null default 'Enabled'
)
GO
create table UserRoles (
    Username varchar(50) not null,
    RoleID int not null,
    primary key (Username, RoleID)
)
GO
-- select * from UserRoles where RoleID=101; select username from vwusers where loginrole='MANAGEMENT'
create index IX_UserRoles_RoleID on UserRoles (RoleID)
GO
create table UserActivities (
    SNO int identity(1,1) not null primary key,
    username varchar(50) null,
    LoginDate date null,
    LoginTime time(0) null,
    islogout bit not null default 0,
    AppVersion int null,
    LogoutDate date null,
    LogoutTime time(0) null,
    AutoLogoff bit not null default 0,
    Remarks varchar(100) null
)
GO
-- Written by position: the first four columns are the user name, the outcome, the date and the time as texts.
create table LoginTrail (
    userName varchar(50) null,
    outcome varchar(50) null,
    loginDate varchar(10) null,
    loginTime varchar(8) null,
    SNO int identity(1,1) not null primary key
)
GO
-- The last save of each page's session, written in the save's own transaction: a page that lost its host asks here
-- whether what it sent was stored. SessionID is a random name, Request counts the page's requests from 1.
create table PageSaves (
    SessionID varchar(64) not null primary key,
    userName varchar(50) not null,
    Request int not null,
    Screen varchar(50) not null,
    SavedAt datetime not null default getdate()
)
GO
-- Delete from PageSaves where SavedAt<'24-Oct-2026'
create index IX_PageSaves_SavedAt on PageSaves (SavedAt)
GO
create table hAuditTrail (
    SNO int identity(1,1) not null primary key,
    userName varchar(50) null,
    userAction varchar(1000) null,
    ActionDate date null,
    ActionTime time(0) null,
    TranCode varchar(50) null,
    Remarks varchar(1000) null,
    Src varchar(100) null
)
GO
-- what happened to one record: where TranCode='0010000001'
create index IX_hAuditTrail_TranCode on hAuditTrail (TranCode)
GO

-- One row a user and role.
create view vwUsers as
select u.EmpID, u.Fullname, u.Username as username, r.LoginRole as loginrole,
    (select max(h.hname) from hHospital h) as hname,
    u.Branchcode, u.Password, isnull(a.AccountStatus, 'Enabled') as AccountStatus
from Users u
inner join UserRoles ur on ur.Username = u.Username
inner join Roles r on r.RoleID = ur.RoleID
left join ApplicationUsers a on a.Username = u.Username
GO

-- One row a doctor's user account, whatever its status.
create view vwUsersDoctor as
select EmpID as empID, Fullname as fullname, username, loginrole as loginRole, AccountStatus as accountStatus
from vwUsers
where loginrole = 'CONSULTING'
GO

-- One row a member of staff.
create view qryemployees as
select e.empID, e.lastname, e.firstname, e.lastname + ' ' + e.firstname as fullname, e.deptID
from employees e
GO

create procedure SpAudiTrail
    @userName varchar(50),
    @userAction varchar(1000),
    @ActionDate datetime,
    @ActionTime datetime,
    @TranCode varchar(50),
    @Remarks varchar(1000),
    @Src varchar(100)
as
begin
    insert into hAuditTrail (userName, userAction, ActionDate, ActionTime, TranCode, Remarks, Src)
    values (@userName, @userAction, @ActionDate, @ActionTime, @TranCode, @Remarks, @Src)
end
GO
