-- From version 5 to 6: what a theatre nurse writes in sentences outgrew two hundred characters.

alter table hSurgery alter column consent varchar(max) null
GO
alter table hSurgery alter column relation varchar(max) null
GO
alter table hSurgery alter column urinalysis varchar(max) null
GO
alter table hSurgery alter column sediments varchar(max) null
GO
alter table hSurgery alter column occultBlood varchar(max) null
GO
alter table hSurgery alter column surgeon varchar(max) null
GO
alter table hSurgery alter column Assistant varchar(max) null
GO
alter table hSurgery alter column anaesthetist varchar(max) null
GO
