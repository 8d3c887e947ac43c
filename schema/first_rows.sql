-- What a new company starts with. The company's name is filled in by make-data-files when it is given one.

insert into CompanyInfo (F1) values ('');

-- The journal counts on row 100, which no form ever inserts; any number above 0 will do to start from.
insert into SysInfo (ID, Setval) values (100, 100);
insert into SysInfo (ID, setStr) values (9999, '');

-- The administrator, with an empty password and every right. F67 is a number with two uses: the right to the accounts,
-- which the administrator has by the code, and the list position of the last origin: 0, the first one, to begin with.
insert into TE1 (F1, F2, F3, F60, F61, F62, F63, F64, F65, F66, F67)
values ('001', '管理员', '', 1, 1, 1, 1, 1, 1, 1, 0);
