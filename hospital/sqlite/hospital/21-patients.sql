-- What the embedded engine has besides: an index for searches inside names.

-- select top 20  * from vwhpatients where fullname like '%ADE%'  order by fullname
create fulltext index on vwhpatients (FullName) key index pno
GO
