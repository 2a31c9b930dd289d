insert into Payvam (code_field, codemah, desk, fieldlen, per_g, per_k, codetemp) values
    (1, ' 7', 'وام مسكن', 9, 100, 0, 1), (2, ' 7', 'وام ضروري', 9, 60, 40, 2),
    (3, ' 7', 'وام خودرو', 9, 100, 0, 3), (4, ' 7', 'صندوق', 9, 100, 0, 4), (1, ' 6', 'ماه پيش', 9, 100, 0, 1)
GO
insert into Vam (code, codemah, code_vam, mablagh_g, mablagh_m1, mablagh_k) values
    ('1', ' 7', 1, 100, 0, 0), ('1', ' 7', 3, 300, 0, 0), ('2', ' 7', 3, 0, 310, 0), ('2', ' 7', 4, 0, 0, 400),
    ('3', ' 7', 2, 0, 0, 0), ('4', ' 7', 2, 0, 0, 0), ('3', ' 7', 9, 900, 0, 0),
    ('1', ' 6', 2, 20, 0, 0), ('1', ' 6', 3, 30, 0, 0)
GO
insert into paymozd (code_field, codemah, desk, fieldlen, codetemp) values
    (1, ' 7', 'حقوق پايه', 9, 1), (2, ' 7', 'حق مسكن', 9, 2), (1, ' 6', 'ماه پيش', 9, 1)
GO
