create table digits (code int)
GO
insert into digits values (0), (1), (2), (3), (4), (5), (6), (7), (8), (9)
GO
insert into paymozd (code_field, codemah, desk, fieldlen, codetemp)
    select a.code*10+b.code, ' 7', 'قلم '+rtrim(a.code*10+b.code), 9, a.code*10+b.code from digits a, digits b
    where a.code*10+b.code between 1 and 22
GO
insert into person (code) values ('1')
insert into payroll (code_0, codemah, code_1) values ('1', ' 7', 7)
GO
