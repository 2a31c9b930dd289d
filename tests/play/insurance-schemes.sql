-- Three insurance schemes of month 7 and one of month 6, with the employees who hold them: an
-- employee's code_biemh is the code of the scheme less one.
insert into paybimeh(Code_field, Codemah, desk, Karfrma, Kargar, Bikary, Sandkar, Kol_biemh, [Add], Royat, Daycon, NoTax, Bimfile1, Bimfile2, Typerep1, Typerep2, Basesand, Tedad1, Tedad2, HardWork, NoTaxpercent, Hazineh) values
    (1, ' 7', 'تامين اجتماعي', 20.25, 7, 3, 0.5, 727410000, 'ض', '', '', 'ض', 'DSKKAR00.DBF', 'DSKWOR00.DBF', 'كليه كاركنان', 'داراي شماره بيمه', 'مشمول بيمه', 5, 5, 0, 100, 'ض'),
    (2, ' 7', 'خدمات درماني', 20, 7, 3, 0, 727410000, '', '', 'ض', '', 'A.DBF', 'B.DBF', 'بدون شماره بيمه', 'چيز ديگر', 'حقوق ناخالص', 0, 0, 4, 100, ''),
    (3, ' 7', 'مشاغل سخت', 23, 7, 3, 0, NULL, '', '', '', '', NULL, NULL, 'كليه كاركنان', 'كليه كاركنان', NULL, NULL, NULL, NULL, NULL, ''),
    (1, ' 6', 'ماه پيش', 20, 7, 3, 0, 0, '', '', '', '', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, '')
GO
insert into person(code, name, family, isdelete, code_biemh) values
    ('1', 'الف', 'الف', '', 0),
    ('2', 'ب', 'ب', '', 2),
    ('3', 'پ', 'پ', '', 2),
    ('4', 'ت', 'ت', 'x', 2),
    ('5', 'ث', 'ث', '', NULL),
    ('6', 'ج', 'ج', '', 7)
GO
