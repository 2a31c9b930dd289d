-- The rows without which no window of the suite opens: options, users and their rights.

insert into Options(SCode, Payment, Kavesta, ERTEBAT) values
    ('0101', 'Month_Curent=7;Karane=0;Minute=دقيقه;TadilOrd=درآمد جاري;Tadil_Mal=0;TStart=0;OffType=روز;KarZero=0;DateShow=0;MonDays=30;Clock_Mon=220;Rial=0;ClockMMon=7.33;RozInit=30;HoliDay=0;',
     'TypeSarFaslCod=NUM;NAMTAFSILY2=مرکز هزينه;', ''),
    ('DBSNAME_M', '', '', ''),
    ('TBLNAME_M', '', '', ''),
    ('FLDNAME_M', '', '', '')
GO

-- User 3 has no row.
insert into UserSdc(UserId, KAVESTA) values
    (1, 'COPY=YES;PRINT=YES;REPORT=REPORT;'),
    (2, 'COPY=NO;PRINT=NO;')
GO

insert into UserSdcDetail(StrId, Parent, [1], [2], [3]) values
    ('J_B_ACT_AZAFEHKARI', 'J_B', 'Y', 'N', 'N'),
    ('J_B_ADAREINFO', 'J_B', 'Y', 'N', 'N'),
    ('J_B_BANK', 'J_B', 'Y', 'N', 'Y'),
    ('J_B_BIMEH', 'J_B', 'Y', 'N', 'N'),
    ('J_B_BIMEHOMR', 'J_B', 'Y', 'N', 'N'),
    ('J_B_BON', 'J_B', 'Y', 'N', 'N'),
    ('J_B_BUYKHEDMAT', 'J_B', 'Y', 'N', 'N'),
    ('J_B_BUYMORAKHASE', 'J_B', 'Y', 'N', 'N'),
    ('J_B_FIXPAY', 'J_B', 'Y', 'N', 'Y'),
    ('J_B_GEYBAT', 'J_B', 'Y', 'N', 'N'),
    ('J_B_KARANEH', 'J_B', 'Y', 'N', 'N'),
    ('J_B_MALEYAT', 'J_B', 'Y', 'N', 'N'),
    ('J_B_MAMOREYAT', 'J_B', 'Y', 'N', 'N'),
    ('J_B_NOBATKARI', 'J_B', 'Y', 'N', 'Y'),
    ('J_B_NOFIXPAY', 'J_B', 'Y', 'N', 'N'),
    ('J_B_PADASH', 'J_B', 'Y', 'N', 'N'),
    ('J_B_TT2_G', 'J_B', 'Y', 'N', 'N'),
    ('J_B_TT2_T', 'J_B', 'Y', 'N', 'N'),
    ('J_B_VAM', 'J_B', 'Y', 'N', 'N')
GO
