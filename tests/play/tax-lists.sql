-- Lists as an older company has them: former editions, additions of its own, gaps.
insert into J_PayerPersonality(Code_Field, Desk) values (1, 'شخص حقيقي')
GO
insert into J_Estd(Code_Field, Desk) values (1, 'قديم'), (2, 'قديم تر')
GO
insert into J_Tahsil(Code_Field, Desk) values (1, 'زير ديپلم'), (2, 'ديپلم'), (3, 'فوق ديپلم'), (4, 'كارشناسي'), (5, 'كارشناسي ارشد'), (6, 'دكتري'), (7, 'فوق دكتري'), (8, 'حوزوي')
GO
insert into J_BimehType(Code_Field, Desk) values (1, 'الف'), (2, 'ب'), (3, 'پ'), (4, 'ت')
GO
insert into J_Bank(Code_Field, Desk) values (1, 'الف'), (2, 'ب'), (3, 'پ'), (4, 'ت'), (5, 'ث')
GO
insert into J_PaymentType(Code_Field, Desk) values (9, 'الف')
GO
