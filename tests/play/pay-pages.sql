insert into paymozd (code_field, codemah, desk, fieldlen) values
    (1, ' 7', 'حقوق پايه', 9), (2, ' 7', 'حق مسكن', 9), (3, ' 7', 'حق اولاد', 9), (1, ' 6', 'ماه پيش', 9)
GO
insert into paykar (code_field, codemah, desk, fieldlen, kasry, [add]) values
    (1, ' 7', 'عيدي', 9, '', 'ض'), (2, ' 7', 'بدهي به شركت', 9, 'ض', ''), (3, ' 7', 'جريمه', 9, 'ض', NULL),
    (4, ' 7', 'پاداش توليد', 9, NULL, 'ض'), (1, ' 6', 'قسط ماه پيش', 9, 'ض', '')
GO
insert into ezafehkar (code_field, codemah, desk, zarib) values
    (1, ' 7', 'رديف يك', 1.4), (2, ' 7', 'رديف دو', 1.96), (3, ' 7', 'رديف سه', 2), (1, ' 6', 'ماه پيش', 1)
GO
insert into nobatkari (code_field, codemah, desk) values (1, ' 7', 'رديف يك')
insert into gheybat (code_field, codemah, desk, gbase) values (1, ' 7', 'رديف يك', 'روز'), (2, ' 7', 'رديف دو', 'ساعت')
insert into padash (code_field, codemah, desk, desbefor, bedbefor) values
    (1, ' 7', 'رديف يك', 'بدهي به شركت', 'code_2'), (2, ' 7', 'رديف دو', NULL, NULL)
insert into mamorit (code_field, codemah, desk) values (1, ' 7', 'رديف يك')
insert into payomr (code_field, codemah, desk) values (1, ' 7', 'رديف يك')
insert into paybon (code_field, codemah, desk, codetah) values
    (1, ' 7', 'رديف يك', 100), (2, ' 7', 'رديف دو', 200), (3, ' 7', 'رديف سه', 300), (1, ' 6', 'ماه پيش', 50)
insert into karaneh (code_field, codemah, desk) values (1, ' 7', 'رديف يك'), (1, ' 6', 'ماه پيش')
GO
insert into person (code, isdelete) values ('1', ''), ('2', NULL), ('9', '1')
GO
insert into paytraf (code_0, codemah, code_1, code_2, code_3, code_4) values
    ('1', ' 7', 10, 0, 30, 40), ('2', ' 7', 11, 0, 31, 41), ('9', ' 7', 12, 22, 32, 42), ('1', ' 6', 5, 6, 7, 8)
GO
