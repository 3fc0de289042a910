-- What the embedded engine has besides: an index for searches inside names and telephone numbers.

-- select top 20  * from vwhpatients where fullname like '%ADE%'  order by fullname
-- select  * from vwhpatients where PhoneNo like '%08031234567%' order by fullname
create fulltext index on vwhpatients (FullName, PhoneNo) key index pno
GO
