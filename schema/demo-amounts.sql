-- Twelve months of amounts for every row of Demo_Employee; remainders spread them without chance.

insert into Payroll(code_0, codemah, code_1, code_2, code_3, code_4, code_5, code_6, code_7, code_8,
    code_9, code_10, code_11, code_12, code_13, code_14, code_15, code_16, code_17, code_18, code_19,
    code_20, code_21, code_22, code_23, code_24, code_25)
select E.code, M.codemah, E.wage, 9000000, E.children * 10390968, 22000000, E.years * 2820000,
    E.grade * 1500000, E.grade * 1200000, E.grade / 9 * 12000000,
    E.n % 7 / 6 * 8000000, E.n % 11 / 10 * 5500000, E.grade / 6 * 7000000, E.grade / 11 * 25000000,
    E.n % 4 / 3 * 2400000, 6500000 + E.n % 5 * 300000, 11000000, M.n % 6 / 5 * 18000000,
    E.grade / 7 * 1500000, E.children * 1800000, E.married * 5000000, (E.n + M.n) % 9 / 8 * 9500000,
    E.n % 3 * 2100000, E.n % 6 * 900000, 4000000, E.wage / 100 * 3, E.years / 10 * 3300000
from Demo_Month M, Demo_Employee E
GO

insert into Paytraf(code_0, codemah, code_1, code_2, code_3, code_4, code_5, code_6, code_7, code_8,
    code_9, code_10, code_11, code_12)
select E.code, M.codemah, M.n / 12 * E.wage * 2, (E.n + M.n) % 4 * 3500000,
    (E.n + M.n) % 6 / 5 * 12000000, E.grade / 10 * 8000000, (E.n + M.n) % 13 / 12 * 15000000,
    (E.n * 5 + M.n) % 97 / 96 * 50000000, (E.n * 3 + M.n) % 17 / 16 * 20000000,
    (E.n + M.n * 2) % 19 / 18 * 10000000, (E.n * 7 + M.n) % 41 / 40 * 1500000,
    E.n % 5 / 4 * 6000000, 1000000, 1400000 + E.children * 1400000
from Demo_Month M, Demo_Employee E
GO

-- Two employees in three repay a loan, some of them a second one of another kind; the employer shares
-- what kinds 2 and 5 cost.
insert into Vam(code, codemah, Code_vam, Mablagh_g, Mablagh_m1, Mablagh_k)
select E.code, M.codemah, 1 + E.n / 3 % 6, 5000000 + E.n % 10 * 500000,
    (12 - M.n) * (5000000 + E.n % 10 * 500000), E.n / 3 % 3 % 2 * 2000000
from Demo_Month M, Demo_Employee E where E.n % 3 <> 0

insert into Vam(code, codemah, Code_vam, Mablagh_g, Mablagh_m1, Mablagh_k)
select E.code, M.codemah, 1 + (E.n / 3 + 3) % 6, 3000000, (12 - M.n) * 3000000, 0
from Demo_Month M, Demo_Employee E where E.n % 5 = 0
GO
