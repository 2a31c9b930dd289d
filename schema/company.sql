-- The tables of a company. The suite's own steps bring older tables up to date, so a new company
-- starts without the columns that those steps add.

-- The suite's settings, users and the objects that others own

create table Options(
    SCode varchar(50), Payment varchar(2000), Kavesta varchar(2000), ERTEBAT varchar(2000))

create table UserSdc(
    UserId int, KAVESTA varchar(2000))

create table UserSdcDetail(
    StrId varchar(50), Parent varchar(50), [1] varchar(50), [2] varchar(50), [3] varchar(50))

create table UserPrivilege(
    UserId varchar(10), TableName varchar(30), FieldCode varchar(20))

create table Grid_State(
    UserId int, sVisible varchar(1), sProg varchar(50), sItem varchar(50), sForm varchar(50),
    sPart varchar(50), sColName varchar(50), iLen int, iRaj int)

create table addres(
    namfield int, codetemp int)

create table Marakez(
    MarakezCode int, MarakezName varchar(50))

create table asnad(
    tafsily2 varchar(7))
GO

-- Employees and their amounts by month

create table person(
    code varchar(8), koll varchar(3), moein varchar(4), tafsily varchar(5), tafsily2 varchar(7),
    isdelete varchar(1), name varchar(20), family varchar(25), depart int, resht_t int,
    resht_a int, vahd int, resteh int, semat int, grade int, khdmat int, tahsil int,
    code_biemh int, code_bank int)

create table Payroll(
    code_0 varchar(8), codemah varchar(2), code_1 int not null default 0,
    code_2 int not null default 0, code_3 int not null default 0, code_4 int not null default 0,
    code_5 int not null default 0, code_6 int not null default 0, code_7 int not null default 0,
    code_8 int not null default 0, code_9 int not null default 0,
    code_10 int not null default 0, code_11 int not null default 0,
    code_12 int not null default 0, code_13 int not null default 0,
    code_14 int not null default 0, code_15 int not null default 0,
    code_16 int not null default 0, code_17 int not null default 0,
    code_18 int not null default 0, code_19 int not null default 0,
    code_20 int not null default 0)

create table Paytraf(
    code_0 varchar(8), codemah varchar(2), code_1 int not null default 0,
    code_2 int not null default 0, code_3 int not null default 0, code_4 int not null default 0,
    code_5 int not null default 0, code_6 int not null default 0, code_7 int not null default 0,
    code_8 int not null default 0, code_9 int not null default 0,
    code_10 int not null default 0, code_11 int not null default 0,
    code_12 int not null default 0, code_13 int not null default 0,
    code_14 int not null default 0, code_15 int not null default 0,
    code_16 int not null default 0, code_17 int not null default 0,
    code_18 int not null default 0, code_19 int not null default 0,
    code_20 int not null default 0, code_21 int not null default 0,
    code_22 int not null default 0, code_23 int not null default 0,
    code_24 int not null default 0, code_25 int not null default 0,
    code_26 int not null default 0, code_27 int not null default 0,
    code_28 int not null default 0, code_29 int not null default 0,
    code_30 int not null default 0)

create table Vam(
    code varchar(8), codemah varchar(2), Code_vam int, Mablagh_g float not null default 0,
    Mablagh_m1 float not null default 0, Mablagh_k float not null default 0)
GO

-- Pay items, loans and coefficients of each month

create table Paymozd(
    Code_field int, Codemah varchar(2), Desk varchar(20), Fieldlen float, Malyat varchar(1),
    Bimeh varchar(1), Mah varchar(1), No_mal varchar(1), Basemozd varchar(1),
    Mosaede varchar(1), Basefish varchar(1), Mozd varchar(1), Suboff varchar(1),
    Perc_mal varchar(200), Perc_mos varchar(200), Koll varchar(3), Moein varchar(4),
    Tafsily varchar(5), Tafsily2 varchar(5), Codetemp int)

create table paykar(
    Code_field int, Desk varchar(100), Fieldlen float, Malyat varchar(1), Bimeh varchar(1),
    Kasry varchar(1), [Add] varchar(1), Zero varchar(1), Article varchar(1), No_mal varchar(1),
    Hazineh varchar(1), codemah varchar(2), codetemp int, Perc_mal varchar(200))

create table Payvam(
    Code_field int, Codemah varchar(2), Desk varchar(20), Fieldlen float, Not_use varchar(1),
    Article varchar(1), Kasr varchar(1), negative varchar(1), per_g float, per_k float,
    Malyat varchar(1), Notax varchar(1), No_vam varchar(1), Withwork varchar(1),
    FileName varchar(50), Perc_vam varchar(200), Koll varchar(1), Moein varchar(1),
    Tafsily varchar(1), Tafsily2 varchar(1), Kollk varchar(1), Moeink varchar(1),
    Tafsilyk varchar(1), Tafsily2k varchar(1), Codetemp int, Hazineh varchar(1),
    DayWorked varchar(1))

create table ezafehkar(
    Code_field int, Desk varchar(100), Time_mah float, Zarib float, Per_time float,
    Malyat varchar(1), Bimeh varchar(1), [Percent] float, Tpercent float, Top_salary float,
    Zero varchar(1), No_mal varchar(1), Single varchar(1), Sabet float, MaxTime float,
    hazineh varchar(1), MabnaEazfeh varchar(1), codemah varchar(2), codetemp int,
    perc_mal varchar(200), codmoz_1 varchar(1), codmoz_2 varchar(1), codmoz_3 varchar(1),
    codmoz_4 varchar(1), codmoz_5 varchar(1), codmoz_6 varchar(1), codmoz_7 varchar(1),
    codmoz_8 varchar(1), codmoz_9 varchar(1), codmoz_10 varchar(1), codmoz_11 varchar(1),
    codmoz_12 varchar(1), codmoz_13 varchar(1), codmoz_14 varchar(1), codmoz_15 varchar(1),
    codmoz_16 varchar(1), codmoz_17 varchar(1), codmoz_18 varchar(1), codmoz_19 varchar(1),
    codmoz_20 varchar(1))

create table Nobatkari(
    Code_field int, Desk varchar(100), Time_mah float, Zarib float, Malyat varchar(1),
    Bimeh varchar(1), No_mal varchar(1), Zero varchar(1), Single varchar(1), Isconv varchar(1),
    hazineh varchar(1), MabnaEazfeh varchar(1), codemah varchar(2), codetemp int,
    codmoz_1 varchar(1), codmoz_2 varchar(1), codmoz_3 varchar(1), codmoz_4 varchar(1),
    codmoz_5 varchar(1), codmoz_6 varchar(1), codmoz_7 varchar(1), codmoz_8 varchar(1),
    codmoz_9 varchar(1), codmoz_10 varchar(1), codmoz_11 varchar(1), codmoz_12 varchar(1),
    codmoz_13 varchar(1), codmoz_14 varchar(1), codmoz_15 varchar(1), codmoz_16 varchar(1),
    codmoz_17 varchar(1), codmoz_18 varchar(1), codmoz_19 varchar(1), codmoz_20 varchar(1))

create table Gheybat(
    Code_field int, Desk varchar(100), Time_mah float, Zarib float, Per_friday float,
    Gbase varchar(50), Bimeh varchar(1), Malyat varchar(1), Zero varchar(1), Single varchar(1),
    Not_padash varchar(1), Sub_not_sa varchar(1), E_rial varchar(1), hazineh varchar(1),
    codemah varchar(2), codetemp int, codmoz_1 varchar(1), codmoz_2 varchar(1),
    codmoz_3 varchar(1), codmoz_4 varchar(1), codmoz_5 varchar(1), codmoz_6 varchar(1),
    codmoz_7 varchar(1), codmoz_8 varchar(1), codmoz_9 varchar(1), codmoz_10 varchar(1),
    codmoz_11 varchar(1), codmoz_12 varchar(1), codmoz_13 varchar(1), codmoz_14 varchar(1),
    codmoz_15 varchar(1), codmoz_16 varchar(1), codmoz_17 varchar(1), codmoz_18 varchar(1),
    codmoz_19 varchar(1), codmoz_20 varchar(1))

create table Padash(
    Code_field int, Desk varchar(100), [Percent] float, Malyat varchar(1), Bimeh varchar(1),
    [Max] float, Exempt float, Totalexp varchar(50), Mah float, Desbefor varchar(50),
    Zarib float, Fix float, Days float, [Year] float, Pernpay float, Fgoz varchar(1),
    Lastpay varchar(1), No_day float, Zero varchar(1), hazineh varchar(1), bedbefor varchar(10),
    codemah varchar(2), codetemp int, codmoz_1 varchar(1), codmoz_2 varchar(1),
    codmoz_3 varchar(1), codmoz_4 varchar(1), codmoz_5 varchar(1), codmoz_6 varchar(1),
    codmoz_7 varchar(1), codmoz_8 varchar(1), codmoz_9 varchar(1), codmoz_10 varchar(1),
    codmoz_11 varchar(1), codmoz_12 varchar(1), codmoz_13 varchar(1), codmoz_14 varchar(1),
    codmoz_15 varchar(1), codmoz_16 varchar(1), codmoz_17 varchar(1), codmoz_18 varchar(1),
    codmoz_19 varchar(1), codmoz_20 varchar(1))

create table Mamorit(
    Code_field int, Desk varchar(100), Malyat varchar(1), Bimeh varchar(1), [Percent] float,
    No_mal varchar(1), Sabet float, Roz float, Zarib float, MinMab float, Zero varchar(1),
    hazineh varchar(1), codemah varchar(2), codetemp int, codmoz_1 varchar(1),
    codmoz_2 varchar(1), codmoz_3 varchar(1), codmoz_4 varchar(1), codmoz_5 varchar(1),
    codmoz_6 varchar(1), codmoz_7 varchar(1), codmoz_8 varchar(1), codmoz_9 varchar(1),
    codmoz_10 varchar(1), codmoz_11 varchar(1), codmoz_12 varchar(1), codmoz_13 varchar(1),
    codmoz_14 varchar(1), codmoz_15 varchar(1), codmoz_16 varchar(1), codmoz_17 varchar(1),
    codmoz_18 varchar(1), codmoz_19 varchar(1), codmoz_20 varchar(1))

create table Payomr(
    Code_field int, Desk varchar(100), Major float, Employe float, Zero varchar(1),
    WithWork varchar(1), hazineh varchar(1), Moaf varchar(1), codemah varchar(2), codetemp int,
    codmoz_1 varchar(1), codmoz_2 varchar(1), codmoz_3 varchar(1), codmoz_4 varchar(1),
    codmoz_5 varchar(1), codmoz_6 varchar(1), codmoz_7 varchar(1), codmoz_8 varchar(1),
    codmoz_9 varchar(1), codmoz_10 varchar(1), codmoz_11 varchar(1), codmoz_12 varchar(1),
    codmoz_13 varchar(1), codmoz_14 varchar(1), codmoz_15 varchar(1), codmoz_16 varchar(1),
    codmoz_17 varchar(1), codmoz_18 varchar(1), codmoz_19 varchar(1), codmoz_20 varchar(1))

create table paysal(
    Code_field int, Desk varchar(100), Is_pay varchar(1), Malyat varchar(1), Bimeh varchar(1),
    [Year] float, Belong float, hazineh varchar(1), fgoz varchar(1), [Percent] float,
    codemah varchar(2))

create table holiday(
    Code_field int, Desk varchar(100), Is_pay varchar(1), Malyat varchar(1), Bimeh varchar(1),
    [Time] float, Send float, Fgoz varchar(1), hazineh varchar(1), [Percent] float,
    codemah varchar(2))

create table Paybon(
    Code_field int, Desk varchar(100), Codetah float, Codemoj float, Karkard varchar(1),
    Article varchar(1), hazineh varchar(1), codemah varchar(2))

create table Karaneh(
    Code_field int, Desk varchar(100), Malyat varchar(1), Bimeh varchar(1), Perkar float,
    Fixk float, Hazineh varchar(1), codemah varchar(2))
GO

-- Insurance and tax

create table paybimeh(
    Code_field int, Codemah varchar(2), desk varchar(20), Karfrma float, Kargar float,
    Bikary float, Sandkar float, Kol_biemh int, [Add] varchar(1), Royat varchar(1),
    Daycon varchar(1), NoTax varchar(1), Bimfile1 varchar(12), Bimfile2 varchar(12),
    Typerep1 varchar(20), Typerep2 varchar(20), Basesand varchar(20), Tedad1 int, Tedad2 int,
    HardWork float, NoTaxpercent float, Hazineh varchar(1))

create table Tax(
    Code int, Mablagh_1 float, Mablagh_2 float, Mab_tax float, [Percent] float,
    Taxfile1 varchar(12), Taxfile2 varchar(12), Taxfile3 varchar(12), Koll varchar(3),
    Moein varchar(4), Tafsily varchar(5), Tafsily2 varchar(2), Percent_k float)

create table J_PayerPersonality(
    Code_Field int, Desk varchar(100))

create table J_LegalPersonType(
    Code_Field int, Desk varchar(100))

create table J_MoafPerson(
    Code_Field int, Desk varchar(100))

create table J_MoafiyatSubject(
    Code_Field int, Desk varchar(100))

create table J_MoafiyatRest(
    Code_Field int, Desk varchar(100))

create table J_Nationality(
    Code_Field int, Desk varchar(100))

create table J_BimehType(
    Code_Field int, Desk varchar(100))

create table J_PaymentType(
    Code_Field int, Desk varchar(100))

create table J_Bank(
    Code_Field int, Desk varchar(100))

create table J_Estd(
    Code_Field int, Desk varchar(100))

create table J_Country(
    Code_Field int, Desk varchar(100))

create table J_OfficeStatus(
    Code_Field int, Desk varchar(100))

create table J_GarardadType(
    Code_Field int, Desk varchar(100))

create table J_PayType(
    Code_Field int, Desk varchar(100))

create table J_Maskan(
    Code_Field int, Desk varchar(100))

create table J_VasileNaghlie(
    Code_Field int, Desk varchar(100))

create table J_Arz(
    Code_Field int, Desk varchar(100))

create table J_tMadrak(
    Code_Field int, Desk varchar(100))

create table J_Tahsil(
    Code_Field int, Desk varchar(100))

create table Resteh(
    Code_Field int, Desk varchar(100))
GO

-- Cost centres, administrative lists and banks

create table GrohTafsily2(
    Tafsily2GrohCod varchar(2) constraint PK_GrohTafsily2 primary key,
    Tafsily2GrohNam varchar(50))

create table Tafsily2(
    Tafsily2 varchar(7) constraint PK_Tafsily2 primary key, NamHesab varchar(50),
    Station varchar(10), KarGah varchar(50), Karfarma varchar(50), Addres varchar(50),
    Buzy varchar(50), Shobeh varchar(50), Recogname varchar(10), IsActive varchar(10),
    IsPosHesab varchar(10))

create table depart(
    Code_field int, Desk varchar(100))

create table resht_t(
    Code_field int, Desk varchar(100))

create table resht_a(
    Code_field int, Desk varchar(100))

create table depart_1(
    Code_field int, Desk varchar(100))

create table semat(
    Code_field int, Desk varchar(100), JobCode varchar(10), IsHard varchar(1))

create table grohpaye(
    Code_field int, Desk varchar(100), code_1 float, code_2 float, code_3 float, code_4 float,
    code_5 float, code_6 float, code_7 float, code_8 float, code_9 float, code_10 float,
    code_11 float, code_12 float, code_13 float, code_14 float, code_15 float, code_16 float,
    code_17 float, code_18 float, code_19 float, code_20 float, code_21 float, code_22 float,
    code_23 float, code_24 float, code_25 float, code_26 float, code_27 float, code_28 float,
    code_29 float, code_30 float)

create table khedmat(
    Code_field int, Desk varchar(100))

create table Bank(
    Bankcode int, BankNam varchar(50), FileName varchar(50), BankHesab varchar(50),
    SumFile varchar(50), Noclf varchar(1), CodeBankLen int)
GO
