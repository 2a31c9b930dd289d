insert into Bank (bankcode, banknam, filename, bankhesab, sumfile, noclf, codebanklen) values
    (1, 'بانك ملي', 'MELLI.TXT', '100', 'MELLIS.TXT', 'ض', 13), (2, 'بانك ملت', 'MELLAT.TXT', '200', '', '', 10),
    (3, 'بانك سپه', '', '300', '', '', 13), (4, 'بانك رفاه', 'REFAH.TXT', '400', '', NULL, NULL)
GO
insert into person (code, family, code_bank) values
    ('1', 'احمدي', 1), ('2', 'اكبري', 3), ('3', 'رضايي', 4), ('4', 'كريمي', 3), ('5', 'نوري', NULL), ('6', 'يزدي', 0)
GO
