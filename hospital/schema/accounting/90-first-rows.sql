insert into AccountMonth (Period) values ('2026-11')
GO
