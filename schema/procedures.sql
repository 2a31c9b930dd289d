-- Procedures of a company on SQL Server; the embedded engine has them built in.

if exists(select name from sysobjects where name = 'sp_Is_Name_Repeated' and xtype = 'P')
    drop procedure sp_Is_Name_Repeated
GO

-- A row when the value stands in the column once blanks and kashida are taken out of both.
create procedure sp_Is_Name_Repeated @table nvarchar(128), @column nvarchar(128), @value varchar(8000)
as
begin
    set nocount on
    declare @statement nvarchar(2000)
    set @statement = N'select top 1 ' + quotename(@column) + N' from ' + quotename(@table)
        + N' where replace(replace(' + quotename(@column) + N', '' '', ''''), nchar(1600), '''')'
        + N' = replace(replace(@value, '' '', ''''), nchar(1600), '''')'
    exec sp_executesql @statement, N'@value varchar(8000)', @value
end
GO

if exists(select name from sysobjects where name = 'sp_M_Depended_GrohTafsily2' and xtype = 'P')
    drop procedure sp_M_Depended_GrohTafsily2
GO

-- How many cost centres carry the group in the front of their code.
create procedure sp_M_Depended_GrohTafsily2 @code varchar(50)
as
begin
    set nocount on
    select count(*) from Tafsily2 where substring(Tafsily2, 1, len(@code)) = @code
end
GO
