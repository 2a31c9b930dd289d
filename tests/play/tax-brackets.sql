-- Three brackets whose tax is cumulative.
insert into Tax(Code, Mablagh_1, Mablagh_2, Mab_tax, [Percent], Taxfile1, Percent_k) values
    (1, 1, 1000000, 100000, 10, 'WH.TXT', 0),
    (2, 1000001, 2000000, 300000, 20, 'WH.TXT', 12.5),
    (3, 2000001, 3000000, 600000, 30, NULL, NULL)
GO
