insert into paymozd (code_field, codemah, desk, fieldlen, codetemp) values
    (1, ' 7', 'حقوق پايه', 9, 1), (2, ' 7', 'حق مسكن', 9, 2), (3, ' 7', 'حق اولاد', 9, 3), (4, ' 7', 'فوق العاده شغل', 9, 4),
    (1, ' 6', 'ماه پيش', 9, 1)
GO
insert into person (code, isdelete) values ('1', ''), ('2', NULL), ('9', '1')
GO
insert into payroll (code_0, codemah, code_1, code_2, code_3, code_4) values
    ('1', ' 7', 100, 200, 300, 0), ('2', ' 7', 110, 220, 330, 0), ('9', ' 7', 1, 2, 3, 400), ('1', ' 6', 5, 6, 7, 8)
GO
