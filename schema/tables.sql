-- The tables of tessik.dat. A table is a plain rowid table with no key, no uniqueness and no not-null on any
-- column: duplicates and empty keys are stored where the forms let them through. The order of the columns
-- counts, since several readers take fields by their place. A new column goes to the end of its table, and a
-- step in upgrade.cpp adds it to the files that are already in use.
--
--   text     TEXT COLLATE NOCASE: texts compare case-blind
--   number   DOUBLE or INTEGER; text is refused by the check, as is a quoted number
--   boolean  BOOLEAN: a number, 0 is false; read as 0 or -1 by the declared type
--   date     DATE: null, yyyy-MM-dd or yyyy-MM-dd HH:mm:ss of a day that exists
--
-- Weights are in kilograms, money in yuan, rates are factors. Indexes serve what statements search and sort
-- by; (LB, SN) is the list of one kind of entry in journal order, (F3, SN) the chain of one counterparty,
-- (SN, F2, F1) all that the search for a late entry's place looks at.

-- -------------------- the company and its operators ---------------------------------------------------

-- The operating company, one row. Shown in the main caption and on reports.
create table CompanyInfo (
    F1 TEXT COLLATE NOCASE   -- name
);

-- Counters and settings, a row for each ID. Row 100 has to be there before the first ledger entry.
create table SysInfo (
    ID INTEGER check(typeof(ID) not in ('text', 'blob')),  -- 100 sequence counter, 9999 newest entry date
    Setval DOUBLE check(typeof(Setval) not in ('text', 'blob')),  -- of 100: highest SN given out
    setStr TEXT COLLATE NOCASE                                    -- of 9999: newest entry date seen
);

-- Operators. Code "001" is the administrator by its code alone.
create table TE1 (
    F1 TEXT COLLATE NOCASE,                                  -- account code
    F2 TEXT COLLATE NOCASE,                                  -- name, recorded on waybills and ledger entries
    F3 TEXT COLLATE NOCASE,                                  -- password, plain
    F60 BOOLEAN check(typeof(F60) not in ('text', 'blob')),  -- may use basic data
    F61 BOOLEAN check(typeof(F61) not in ('text', 'blob')),  -- may use waybills
    F62 BOOLEAN check(typeof(F62) not in ('text', 'blob')),  -- may use reports
    F63 BOOLEAN check(typeof(F63) not in ('text', 'blob')),  -- may use system administration
    F64 BOOLEAN check(typeof(F64) not in ('text', 'blob')),  -- may edit released waybills
    F65 BOOLEAN check(typeof(F65) not in ('text', 'blob')),  -- sees weights, cost and price on a waybill
    F66 BOOLEAN check(typeof(F66) not in ('text', 'blob')),  -- may edit and delete ledger entries
    F67 INTEGER check(typeof(F67) not in ('text', 'blob'))   -- not 0: accounts menu; last origin's list place
);
create index TE1_F1 on TE1 (F1);

-- -------------------- tariffs of our own: standard, zones, customers and their quotes -----------------

-- The pricing standard, one row. A price column has no weight of its own: its place finds its bracket here.
create table MS1 (
    F1 DOUBLE check(typeof(F1) not in ('text', 'blob')),      -- documents: first weight, kg
    F2 DOUBLE check(typeof(F2) not in ('text', 'blob')),      -- documents: continuation step, kg
    F3 DOUBLE check(typeof(F3) not in ('text', 'blob')),      -- small parcels: first weight, kg
    F4 DOUBLE check(typeof(F4) not in ('text', 'blob')),      -- small parcels: continuation step, kg
    F5 DOUBLE check(typeof(F5) not in ('text', 'blob')),      -- heavy segment 1: lower bound, kg
    F6 DOUBLE check(typeof(F6) not in ('text', 'blob')),      -- heavy segment 2: lower bound, kg
    F7 DOUBLE check(typeof(F7) not in ('text', 'blob')),      -- heavy segment 3: lower bound, kg
    F8 DOUBLE check(typeof(F8) not in ('text', 'blob')),      -- heavy segment 4: lower bound, kg
    F9 DOUBLE check(typeof(F9) not in ('text', 'blob')),      -- heavy segment 5: lower bound, kg
    F10 DOUBLE check(typeof(F10) not in ('text', 'blob')),    -- heavy segment 6: lower bound, kg
    F11 DOUBLE check(typeof(F11) not in ('text', 'blob')),    -- heavy segment 7: lower bound, kg
    F12 DOUBLE check(typeof(F12) not in ('text', 'blob')),    -- heavy segment 8: lower bound, kg
    F13 DOUBLE check(typeof(F13) not in ('text', 'blob')),    -- heavy segment 9: lower bound, kg
    F14 DOUBLE check(typeof(F14) not in ('text', 'blob')),    -- heavy segment 10: lower bound, kg
    F15 DOUBLE check(typeof(F15) not in ('text', 'blob')),    -- heavy segment 11: lower bound, kg
    F16 DOUBLE check(typeof(F16) not in ('text', 'blob')),    -- heavy segment 12: lower bound, kg
    F17 DOUBLE check(typeof(F17) not in ('text', 'blob')),    -- heavy segment 13: lower bound, kg
    F18 DOUBLE check(typeof(F18) not in ('text', 'blob')),    -- heavy segment 14: lower bound, kg
    F19 DOUBLE check(typeof(F19) not in ('text', 'blob')),    -- heavy segment 15: lower bound, kg
    P888 DOUBLE check(typeof(P888) not in ('text', 'blob'))   -- default markup coefficient, shown only
);

-- Service zones with their list prices.
create table M02 (
    F1 TEXT COLLATE NOCASE,                                   -- zone code, at most 8 characters, upper case
    F2 TEXT COLLATE NOCASE,                                   -- name, Chinese
    F3 TEXT COLLATE NOCASE,                                   -- 国内 or 国外
    F4 TEXT COLLATE NOCASE,                                   -- name, English
    F6 DOUBLE check(typeof(F6) not in ('text', 'blob')),      -- working days to delivery
    F8 TEXT COLLATE NOCASE,                                   -- remark
    P101 DOUBLE check(typeof(P101) not in ('text', 'blob')),  -- documents: first weight, yuan
    P102 DOUBLE check(typeof(P102) not in ('text', 'blob')),  -- documents: each continuation, yuan
    P201 DOUBLE check(typeof(P201) not in ('text', 'blob')),  -- small parcels: first weight, yuan
    P202 DOUBLE check(typeof(P202) not in ('text', 'blob')),  -- small parcels: each continuation, yuan
    P301 DOUBLE check(typeof(P301) not in ('text', 'blob')),  -- heavy segment 1, yuan per kg
    P302 DOUBLE check(typeof(P302) not in ('text', 'blob')),  -- heavy segment 2, yuan per kg
    P303 DOUBLE check(typeof(P303) not in ('text', 'blob')),  -- heavy segment 3, yuan per kg
    P304 DOUBLE check(typeof(P304) not in ('text', 'blob')),  -- heavy segment 4, yuan per kg
    P305 DOUBLE check(typeof(P305) not in ('text', 'blob')),  -- heavy segment 5, yuan per kg
    P306 DOUBLE check(typeof(P306) not in ('text', 'blob')),  -- heavy segment 6, yuan per kg
    P307 DOUBLE check(typeof(P307) not in ('text', 'blob')),  -- heavy segment 7, yuan per kg
    P308 DOUBLE check(typeof(P308) not in ('text', 'blob')),  -- heavy segment 8, yuan per kg
    P309 DOUBLE check(typeof(P309) not in ('text', 'blob')),  -- heavy segment 9, yuan per kg
    P310 DOUBLE check(typeof(P310) not in ('text', 'blob')),  -- heavy segment 10, yuan per kg
    P311 DOUBLE check(typeof(P311) not in ('text', 'blob')),  -- heavy segment 11, yuan per kg
    P312 DOUBLE check(typeof(P312) not in ('text', 'blob')),  -- heavy segment 12, yuan per kg
    P313 DOUBLE check(typeof(P313) not in ('text', 'blob')),  -- heavy segment 13, yuan per kg
    P314 DOUBLE check(typeof(P314) not in ('text', 'blob')),  -- heavy segment 14, yuan per kg
    P315 DOUBLE check(typeof(P315) not in ('text', 'blob')),  -- heavy segment 15, yuan per kg
    F71 TEXT COLLATE NOCASE                                   -- kept, unused
);
create index M02_F1 on M02 (F1);

-- Place names under a service zone.
create table M021 (
    F0 TEXT COLLATE NOCASE,  -- zone, M02.F1
    F1 TEXT COLLATE NOCASE,  -- place, Chinese
    F2 TEXT COLLATE NOCASE,  -- place, English
    F8 TEXT COLLATE NOCASE   -- remark
);
create index M021_F0 on M021 (F0);

-- Customers. Read by place: the first fourteen columns are in the order of the customer list.
create table M03 (
    F1 TEXT COLLATE NOCASE,                                   -- customer code, at most 12 characters
    F2 TEXT COLLATE NOCASE,                                   -- short name
    F301 TEXT COLLATE NOCASE,                                 -- full name, Chinese
    F302 TEXT COLLATE NOCASE,                                 -- full name, English
    F401 TEXT COLLATE NOCASE,                                 -- address, Chinese
    F402 TEXT COLLATE NOCASE,                                 -- address, English
    F5 TEXT COLLATE NOCASE,                                   -- telephone
    F6 TEXT COLLATE NOCASE,                                   -- fax
    F7 TEXT COLLATE NOCASE,                                   -- mail box
    F8 TEXT COLLATE NOCASE,                                   -- salesperson, as chosen
    F9 TEXT COLLATE NOCASE,                                   -- remark, first line
    P888 DOUBLE check(typeof(P888) not in ('text', 'blob')),  -- markup coefficient, stored as 1
    LJFK DOUBLE check(typeof(LJFK) not in ('text', 'blob')),  -- accumulated payments, yuan; only shown
    LJQK DOUBLE check(typeof(LJQK) not in ('text', 'blob')),  -- accumulated debt, yuan; only shown
    F91 TEXT COLLATE NOCASE,                                  -- remark, second line
    F92 TEXT COLLATE NOCASE,                                  -- remark, third line
    F93 TEXT COLLATE NOCASE,                                  -- remark, fourth line
    F94 TEXT COLLATE NOCASE                                   -- remark, fifth line
);
create index M03_F1 on M03 (F1);

-- Customer quotes: one customer's price row for one zone. Read by place: column p is Fp.
create table M031 (
    F0 TEXT COLLATE NOCASE,                                 -- customer, M03.F1
    F1 TEXT COLLATE NOCASE,                                 -- zone, M02.F1
    F2 DOUBLE check(typeof(F2) not in ('text', 'blob')),    -- documents: first weight, yuan
    F3 DOUBLE check(typeof(F3) not in ('text', 'blob')),    -- documents: each continuation, yuan
    F4 DOUBLE check(typeof(F4) not in ('text', 'blob')),    -- small parcels: first weight, yuan
    F5 DOUBLE check(typeof(F5) not in ('text', 'blob')),    -- small parcels: each continuation, yuan
    F6 DOUBLE check(typeof(F6) not in ('text', 'blob')),    -- heavy segment 1, yuan per kg
    F7 DOUBLE check(typeof(F7) not in ('text', 'blob')),    -- heavy segment 2, yuan per kg
    F8 DOUBLE check(typeof(F8) not in ('text', 'blob')),    -- heavy segment 3, yuan per kg
    F9 DOUBLE check(typeof(F9) not in ('text', 'blob')),    -- heavy segment 4, yuan per kg
    F10 DOUBLE check(typeof(F10) not in ('text', 'blob')),  -- heavy segment 5, yuan per kg
    F11 DOUBLE check(typeof(F11) not in ('text', 'blob')),  -- heavy segment 6, yuan per kg
    F12 DOUBLE check(typeof(F12) not in ('text', 'blob')),  -- heavy segment 7, yuan per kg
    F13 DOUBLE check(typeof(F13) not in ('text', 'blob')),  -- heavy segment 8, yuan per kg
    F14 DOUBLE check(typeof(F14) not in ('text', 'blob')),  -- heavy segment 9, yuan per kg
    F15 DOUBLE check(typeof(F15) not in ('text', 'blob')),  -- heavy segment 10, yuan per kg
    F16 DOUBLE check(typeof(F16) not in ('text', 'blob')),  -- heavy segment 11, yuan per kg
    F17 DOUBLE check(typeof(F17) not in ('text', 'blob')),  -- heavy segment 12, yuan per kg
    F18 DOUBLE check(typeof(F18) not in ('text', 'blob')),  -- heavy segment 13, yuan per kg
    F19 DOUBLE check(typeof(F19) not in ('text', 'blob')),  -- heavy segment 14, yuan per kg
    F20 DOUBLE check(typeof(F20) not in ('text', 'blob'))   -- heavy segment 15, yuan per kg
);
create index M031_F0_F1 on M031 (F0, F1);

-- -------------------- tariffs of the carriers: channels, their zones and costs ------------------------

-- Outbound carrier channels with their own weight standard. Read by place.
create table M01 (
    F1 TEXT COLLATE NOCASE,                                  -- channel code
    F2 TEXT COLLATE NOCASE,                                  -- name
    F3 TEXT COLLATE NOCASE,                                  -- remark
    D0 DOUBLE check(typeof(D0) not in ('text', 'blob')),     -- documents: first weight, kg
    D1 DOUBLE check(typeof(D1) not in ('text', 'blob')),     -- documents: continuation step, kg
    S0 DOUBLE check(typeof(S0) not in ('text', 'blob')),     -- small parcels: first weight, kg
    S1 DOUBLE check(typeof(S1) not in ('text', 'blob')),     -- small parcels: continuation step, kg
    JFD INTEGER check(typeof(JFD) not in ('text', 'blob')),  -- number of heavy segments, 0 to 10
    J0 DOUBLE check(typeof(J0) not in ('text', 'blob')),  -- heavy segment 1: lower bound, kg; 0 ends the list
    J1 DOUBLE check(typeof(J1) not in ('text', 'blob')),  -- heavy segment 2: lower bound, kg; 0 ends the list
    J2 DOUBLE check(typeof(J2) not in ('text', 'blob')),  -- heavy segment 3: lower bound, kg; 0 ends the list
    J3 DOUBLE check(typeof(J3) not in ('text', 'blob')),  -- heavy segment 4: lower bound, kg; 0 ends the list
    J4 DOUBLE check(typeof(J4) not in ('text', 'blob')),  -- heavy segment 5: lower bound, kg; 0 ends the list
    J5 DOUBLE check(typeof(J5) not in ('text', 'blob')),  -- heavy segment 6: lower bound, kg; 0 ends the list
    J6 DOUBLE check(typeof(J6) not in ('text', 'blob')),  -- heavy segment 7: lower bound, kg; 0 ends the list
    J7 DOUBLE check(typeof(J7) not in ('text', 'blob')),  -- heavy segment 8: lower bound, kg; 0 ends the list
    J8 DOUBLE check(typeof(J8) not in ('text', 'blob')),  -- heavy segment 9: lower bound, kg; 0 ends the list
    J9 DOUBLE check(typeof(J9) not in ('text', 'blob'))  -- heavy segment 10: lower bound, kg; 0 ends the list
);
create index M01_F1 on M01 (F1);

-- Cost zones of a channel.
create table M011 (
    F1 TEXT COLLATE NOCASE,                                   -- zone code, at most 8 characters, upper case
    F2 TEXT COLLATE NOCASE,                                   -- name, Chinese
    F3 TEXT COLLATE NOCASE,                                   -- channel, M01.F1
    F4 TEXT COLLATE NOCASE,                                   -- name, English
    F6 DOUBLE check(typeof(F6) not in ('text', 'blob')),      -- working days to delivery
    F8 TEXT COLLATE NOCASE,                                   -- remark
    P101 DOUBLE check(typeof(P101) not in ('text', 'blob')),  -- documents: first weight, yuan
    P102 DOUBLE check(typeof(P102) not in ('text', 'blob')),  -- documents: each continuation, yuan
    P201 DOUBLE check(typeof(P201) not in ('text', 'blob')),  -- small parcels: first weight, yuan
    P202 DOUBLE check(typeof(P202) not in ('text', 'blob')),  -- small parcels: each continuation, yuan
    P300 DOUBLE check(typeof(P300) not in ('text', 'blob')),  -- heavy segment 1, yuan per kg
    P301 DOUBLE check(typeof(P301) not in ('text', 'blob')),  -- heavy segment 2, yuan per kg
    P302 DOUBLE check(typeof(P302) not in ('text', 'blob')),  -- heavy segment 3, yuan per kg
    P303 DOUBLE check(typeof(P303) not in ('text', 'blob')),  -- heavy segment 4, yuan per kg
    P304 DOUBLE check(typeof(P304) not in ('text', 'blob')),  -- heavy segment 5, yuan per kg
    P305 DOUBLE check(typeof(P305) not in ('text', 'blob')),  -- heavy segment 6, yuan per kg
    P306 DOUBLE check(typeof(P306) not in ('text', 'blob')),  -- heavy segment 7, yuan per kg
    P307 DOUBLE check(typeof(P307) not in ('text', 'blob')),  -- heavy segment 8, yuan per kg
    P308 DOUBLE check(typeof(P308) not in ('text', 'blob')),  -- heavy segment 9, yuan per kg
    P309 DOUBLE check(typeof(P309) not in ('text', 'blob')),  -- heavy segment 10, yuan per kg
    P3 INTEGER check(typeof(P3) not in ('text', 'blob')),     -- number of heavy segments when saved
    A30 BOOLEAN check(typeof(A30) not in ('text', 'blob')),   -- segment 1: first weight plus continuation
    A31 BOOLEAN check(typeof(A31) not in ('text', 'blob')),   -- segment 2: first weight plus continuation
    A32 BOOLEAN check(typeof(A32) not in ('text', 'blob')),   -- segment 3: first weight plus continuation
    A33 BOOLEAN check(typeof(A33) not in ('text', 'blob')),   -- segment 4: first weight plus continuation
    A34 BOOLEAN check(typeof(A34) not in ('text', 'blob')),   -- segment 5: first weight plus continuation
    A35 BOOLEAN check(typeof(A35) not in ('text', 'blob')),   -- segment 6: first weight plus continuation
    A36 BOOLEAN check(typeof(A36) not in ('text', 'blob')),   -- segment 7: first weight plus continuation
    A37 BOOLEAN check(typeof(A37) not in ('text', 'blob')),   -- segment 8: first weight plus continuation
    A38 BOOLEAN check(typeof(A38) not in ('text', 'blob')),   -- segment 9: first weight plus continuation
    A39 BOOLEAN check(typeof(A39) not in ('text', 'blob'))    -- segment 10: first weight plus continuation
);
create index M011_F1 on M011 (F1);
create index M011_F3 on M011 (F3);

-- Place names under a cost zone.
create table M0111 (
    F0 TEXT COLLATE NOCASE,  -- zone, M011.F1
    F1 TEXT COLLATE NOCASE,  -- place, Chinese
    F2 TEXT COLLATE NOCASE,  -- place, English
    F8 TEXT COLLATE NOCASE   -- remark
);
create index M0111_F0 on M0111 (F0);

-- Which columns of a channel's bill are compared (reconcile/bill_columns.h), at most one row a channel.
create table M012 (
    F1 TEXT COLLATE NOCASE,                                -- channel, M01.F1
    F2 INTEGER check(typeof(F2) not in ('text', 'blob')),  -- 1: it names the forwarding number, B01.F102; 0: the waybill number
    F3 INTEGER check(typeof(F3) not in ('text', 'blob')),  -- column of the number; columns count from 0, -1 is none
    F4 INTEGER check(typeof(F4) not in ('text', 'blob')),  -- column of the weight
    F5 INTEGER check(typeof(F5) not in ('text', 'blob')),  -- column of the cost
    F6 INTEGER check(typeof(F6) not in ('text', 'blob')),  -- row of the first line, from 0
    F7 DOUBLE check(typeof(F7) not in ('text', 'blob')),   -- tolerance of the weight, kg
    F8 DOUBLE check(typeof(F8) not in ('text', 'blob')),   -- tolerance of the cost, yuan
    F9 TEXT COLLATE NOCASE,                                -- heading of the number's column
    F10 TEXT COLLATE NOCASE,                               -- heading of the weight's column
    F11 TEXT COLLATE NOCASE                                -- heading of the cost's column
);
create index M012_F1 on M012 (F1);

-- -------------------- people, places and reasons ------------------------------------------------------

-- Salespersons.
create table M030 (
    F1 TEXT COLLATE NOCASE,  -- name
    F2 TEXT COLLATE NOCASE   -- note
);
create index M030_F1 on M030 (F1);

-- Couriers who collect in the field.
create table M04 (
    F1 TEXT COLLATE NOCASE,  -- name
    F2 TEXT COLLATE NOCASE   -- note
);
create index M04_F1 on M04 (F1);

-- Origins.
create table M05 (
    F1 TEXT COLLATE NOCASE,  -- place
    F2 TEXT COLLATE NOCASE   -- telephone
);
create index M05_F1 on M05 (F1);

-- Reasons of incidents.
create table M06 (
    F1 TEXT COLLATE NOCASE,  -- reason
    F2 TEXT COLLATE NOCASE   -- note
);
create index M06_F1 on M06 (F1);

-- -------------------- waybills ------------------------------------------------------------------------

-- Waybills. Read by place: the first 43 columns are in the order of the card's boxes.
create table B01 (
    F1 TEXT COLLATE NOCASE,                                     -- waybill number
    F101 TEXT COLLATE NOCASE,                                   -- sending date, yyyy-MM-dd
    F102 TEXT COLLATE NOCASE,                                   -- forwarding number given by the channel
    F103 TEXT COLLATE NOCASE,                                   -- remark
    F201 TEXT COLLATE NOCASE,                                   -- origin, M05.F1
    F202 TEXT COLLATE NOCASE,                                   -- channel, M01.F1; may be empty
    F203 TEXT COLLATE NOCASE,                                   -- service zone, M02.F1
    F2031 TEXT COLLATE NOCASE,                                  -- destination place
    F2041 TEXT COLLATE NOCASE,                                  -- shipper company
    F2042 TEXT COLLATE NOCASE,                                  -- shipper company, English
    F2051 TEXT COLLATE NOCASE,                                  -- shipper address
    F2052 TEXT COLLATE NOCASE,                                  -- shipper address, English
    F2061 TEXT COLLATE NOCASE,                                  -- consignee company
    F2062 TEXT COLLATE NOCASE,                                  -- consignee company, English
    F2071 TEXT COLLATE NOCASE,                                  -- consignee address
    F2072 TEXT COLLATE NOCASE,                                  -- consignee address, English
    F208 TEXT COLLATE NOCASE,                                   -- contact telephone
    F301 TEXT COLLATE NOCASE,                                   -- service type: D document, S parcel
    F302 TEXT COLLATE NOCASE,                                   -- goods
    F303 TEXT COLLATE NOCASE,                                   -- declared customs value
    F401 DOUBLE check(typeof(F401) not in ('text', 'blob')),    -- pieces
    F402 DOUBLE check(typeof(F402) not in ('text', 'blob')),    -- weight received, kg; the charge rests on it
    F403 DOUBLE check(typeof(F403) not in ('text', 'blob')),    -- first weighing, kg
    F404 DOUBLE check(typeof(F404) not in ('text', 'blob')),    -- weight shipped, kg; the cost rests on it
    F405 TEXT COLLATE NOCASE,                                   -- volume, as typed
    F501 TEXT COLLATE NOCASE,                                   -- payment: 月结, 现金 or 到付
    F502 DOUBLE check(typeof(F502) not in ('text', 'blob')),    -- basic charge, yuan
    F503 DOUBLE check(typeof(F503) not in ('text', 'blob')),    -- additional charge, yuan
    F504 DOUBLE check(typeof(F504) not in ('text', 'blob')),    -- total charge, yuan
    F601 TEXT COLLATE NOCASE,                                   -- operator who last saved
    F602 TEXT COLLATE NOCASE,                                   -- courier, M04.F1
    F603 TEXT COLLATE NOCASE,                                   -- customer, M03.F1
    F604 TEXT COLLATE NOCASE,                                   -- 未审核 or 未出货, else the operator who released
    F505 DOUBLE check(typeof(F505) not in ('text', 'blob')),    -- customer fuel rate, a factor
    F507 DOUBLE check(typeof(F507) not in ('text', 'blob')),    -- shipping cost, yuan
    F506 DOUBLE check(typeof(F506) not in ('text', 'blob')),    -- channel fuel rate, a factor
    F701 TEXT COLLATE NOCASE,                                   -- incident: what happened
    F702 TEXT COLLATE NOCASE,                                   -- incident: reason, M06.F1
    F703 TEXT COLLATE NOCASE,                                   -- incident: outcome
    F704 TEXT COLLATE NOCASE,                                   -- incident: explanation
    F2021 TEXT COLLATE NOCASE,                                  -- cost zone, M011.F1
    F605 TEXT COLLATE NOCASE,                                   -- who signed on delivery
    F606 TEXT COLLATE NOCASE,                                   -- time of delivery, as typed
    DF DOUBLE check(typeof(DF) not in ('text', 'blob')),        -- to collect on delivery, yuan
    YJ DOUBLE check(typeof(YJ) not in ('text', 'blob')),        -- on monthly account, yuan
    XJ DOUBLE check(typeof(XJ) not in ('text', 'blob')),        -- paid in cash, yuan
    F508 DOUBLE check(typeof(F508) not in ('text', 'blob')),    -- other fees, customer side, yuan
    F509 DOUBLE check(typeof(F509) not in ('text', 'blob')),    -- other fees, channel side, yuan
    F510 DOUBLE check(typeof(F510) not in ('text', 'blob')),    -- additional fees, channel side, yuan
    F4051 DOUBLE check(typeof(F4051) not in ('text', 'blob')),  -- length, cm
    F4052 DOUBLE check(typeof(F4052) not in ('text', 'blob')),  -- width, cm
    F4053 DOUBLE check(typeof(F4053) not in ('text', 'blob'))   -- height, cm
);
create index B01_F1 on B01 (F1);
create index B01_F101 on B01 (F101);
create index B01_F201 on B01 (F201);
create index B01_F202 on B01 (F202);
create index B01_F203 on B01 (F203);
create index B01_F602 on B01 (F602);
create index B01_F603 on B01 (F603);

-- How the charge and the cost of a waybill were computed, at most one row for each: the steps as the
-- computations gave them (waybills/price_steps.h), so that later prices do not change the explanation.
create table B011 (
    F1 TEXT COLLATE NOCASE,  -- waybill number, B01.F1
    F2 TEXT COLLATE NOCASE,  -- charge: customer, M03.F1
    F3 TEXT COLLATE NOCASE,  -- charge: service zone, M02.F1
    F4 TEXT COLLATE NOCASE,  -- charge: day of the prices, yyyy-MM-dd
    F5 TEXT COLLATE NOCASE,  -- charge: steps; empty where it was not computed
    F6 TEXT COLLATE NOCASE,  -- cost: channel, M01.F1
    F7 TEXT COLLATE NOCASE,  -- cost: cost zone, M011.F1
    F8 TEXT COLLATE NOCASE,  -- cost: day of the prices, yyyy-MM-dd
    F9 TEXT COLLATE NOCASE   -- cost: steps; empty where it was not computed
);
create index B011_F1 on B011 (F1);

-- -------------------- the ledger ----------------------------------------------------------------------

-- Journal of receivables and payables. The sign of LB is the side. A post names only the amount that it
-- fills, so the other has to come as 0; K has no writer and has to be 0 for a row to be listed.
create table TB1 (
    S2 TEXT COLLATE NOCASE,                                         -- 增加应收, 增加应付, 付款 or 收款
    SN DOUBLE check(typeof(SN) not in ('text', 'blob')),            -- place in the journal; may be fractional
    LB INTEGER check(typeof(LB) not in ('text', 'blob')),  -- -9 receivable, 9 payable, 10 paid, -10 received
    F1 TEXT COLLATE NOCASE,                                         -- document key: two letters and a number
    F2 DATE  -- document date
        check(coalesce(F2 in (date(F2, '0 days'), datetime(F2, '0 days')), F2 is null)),
    F3 TEXT COLLATE NOCASE,                                         -- counterparty, by name
    YF DOUBLE default 0 check(typeof(YF) not in ('text', 'blob')),  -- amount that raises the balance, yuan
    FK DOUBLE default 0 check(typeof(FK) not in ('text', 'blob')),  -- amount that lowers it, yuan
    QC DOUBLE check(typeof(QC) not in ('text', 'blob')),            -- balance before this row, yuan
    QM DOUBLE check(typeof(QM) not in ('text', 'blob')),            -- balance after this row, yuan
    S1 TEXT COLLATE NOCASE,                                         -- handler
    F5 TEXT COLLATE NOCASE,                                         -- operator who made the row
    F6 TEXT COLLATE NOCASE,                                         -- second mark; empty counts as not posted
    F10 TEXT COLLATE NOCASE,                                        -- remark
    H8 DATE  -- moment of the last write
        check(coalesce(H8 in (date(H8, '0 days'), datetime(H8, '0 days')), H8 is null)),
    K INTEGER default 0 check(typeof(K) not in ('text', 'blob')),   -- exclusion mark
    F30 TEXT COLLATE NOCASE                                         -- voucher number, kept, unused
);
create index TB1_F1 on TB1 (F1);
create index TB1_F2 on TB1 (F2);
create index TB1_SN_F2_F1 on TB1 (SN, F2, F1);
create index TB1_LB_SN on TB1 (LB, SN);
create index TB1_F3_SN on TB1 (F3, SN);

-- -------------------- invoice accounts ----------------------------------------------------------------

-- Customers of the invoice accounts.
create table TA2 (
    F1 TEXT COLLATE NOCASE,  -- code
    F2 TEXT COLLATE NOCASE,  -- name
    F3 TEXT COLLATE NOCASE,  -- address
    F4 TEXT COLLATE NOCASE,  -- telephone
    F5 TEXT COLLATE NOCASE   -- fax
);
create index TA2_F1 on TA2 (F1);

-- Delivery notes. What is open is F9 - F91, so a new note starts with nothing paid.
create table TD1 (
    F1 TEXT COLLATE NOCASE,                                           -- note number
    F2 DATE  -- note date
        check(coalesce(F2 in (date(F2, '0 days'), datetime(F2, '0 days')), F2 is null)),
    F3 TEXT COLLATE NOCASE,                                           -- customer, TA2.F1
    F9 DOUBLE check(typeof(F9) not in ('text', 'blob')),              -- amount, yuan
    F91 DOUBLE default 0 check(typeof(F91) not in ('text', 'blob'))   -- total paid so far, yuan
);
create index TD1_F1 on TD1 (F1);
create index TD1_F3 on TD1 (F3);

-- Payments on delivery notes.
create table TD2 (
    F1 TEXT COLLATE NOCASE,                               -- customer, TA2.F1
    F2 TEXT COLLATE NOCASE,                               -- note number, TD1.F1
    F3 DATE  -- payment date
        check(coalesce(F3 in (date(F3, '0 days'), datetime(F3, '0 days')), F3 is null)),
    F4 DOUBLE check(typeof(F4) not in ('text', 'blob')),  -- amount paid, yuan
    F5 DOUBLE check(typeof(F5) not in ('text', 'blob'))   -- balance left, yuan
);
create index TD2_F2 on TD2 (F2);

-- -------------------- history -------------------------------------------------------------------------

-- The commit group that is open or was the last one, one row; operator and form are null in between. The triggers of the kept tables copy it beside
-- what they keep. The mirror tables H_... and the triggers follow from the tables above: schema/history.h.
create table HNow (
    N INTEGER check(typeof(N) not in ('text', 'blob')),           -- its number, ascending
    At TEXT COLLATE NOCASE,                                       -- when it began, yyyy-MM-dd HH:mm:ss
    Operator TEXT COLLATE NOCASE,                                 -- name of the operator
    Command TEXT COLLATE NOCASE,                                  -- form that gave the command, "B01"
    Failed INTEGER check(typeof(Failed) not in ('text', 'blob'))  -- last group that failed and lost a row
);

-- Where the clock made a step between two groups: schema/history.h.
create table HClock (
    N INTEGER check(typeof(N) not in ('text', 'blob')),         -- number of the first group behind it
    Ahead INTEGER check(typeof(Ahead) not in ('text', 'blob'))  -- days, of all steps so far
);

-- -------------------- work tables of the reports, emptied and refilled at each print ------------------

-- Quote sheets.
create table PRNTM03 (
    F1 TEXT COLLATE NOCASE,                                 -- zone code
    F2 TEXT COLLATE NOCASE,                                 -- zone name
    F31 DOUBLE check(typeof(F31) not in ('text', 'blob')),  -- documents: first weight, yuan
    F32 DOUBLE check(typeof(F32) not in ('text', 'blob')),  -- documents: each continuation, yuan
    F33 DOUBLE check(typeof(F33) not in ('text', 'blob')),  -- small parcels: first weight, yuan
    F34 DOUBLE check(typeof(F34) not in ('text', 'blob')),  -- small parcels: each continuation, yuan
    F35 DOUBLE check(typeof(F35) not in ('text', 'blob')),  -- heavy segment 1, yuan per kg
    F36 DOUBLE check(typeof(F36) not in ('text', 'blob')),  -- heavy segment 2, yuan per kg
    F37 DOUBLE check(typeof(F37) not in ('text', 'blob')),  -- heavy segment 3, yuan per kg
    F38 DOUBLE check(typeof(F38) not in ('text', 'blob')),  -- heavy segment 4, yuan per kg
    F39 DOUBLE check(typeof(F39) not in ('text', 'blob'))   -- heavy segment 5, yuan per kg
);

-- Channel manifest: the layout reads the rest from B01.
create table PRNTC01 (
    F1 TEXT COLLATE NOCASE   -- waybill number; empty for the row of sums
);

-- Statements of customers and channels.
create table PRNTC023 (
    F1 TEXT COLLATE NOCASE,  -- date
    F2 TEXT COLLATE NOCASE,  -- waybill number
    F3 TEXT COLLATE NOCASE,  -- D or S
    F4 TEXT COLLATE NOCASE,  -- destination
    F5 TEXT COLLATE NOCASE,  -- weight, kg
    F6 TEXT COLLATE NOCASE   -- money, yuan
);

-- Monthly table / margin table: two reports share it, each with its own columns. So do the three prints of
-- the ageing, whose columns accounts/ageing_print.cpp gives, and the list of what is not released, in its own
-- columns.
create table PRNTC04 (
    F1 TEXT COLLATE NOCASE,   -- day of the month / customer
    F2 TEXT COLLATE NOCASE,   -- customer / cash, yuan
    F3 TEXT COLLATE NOCASE,   -- waybill number / monthly account, yuan
    F4 TEXT COLLATE NOCASE,   -- D or S / on delivery, yuan
    F5 TEXT COLLATE NOCASE,   -- weight received, kg / total, yuan
    F6 TEXT COLLATE NOCASE,   -- destination / cost, yuan
    F7 TEXT COLLATE NOCASE,   -- cash, yuan / carriage
    F8 TEXT COLLATE NOCASE,   -- monthly account, yuan / blank
    F9 TEXT COLLATE NOCASE,   -- on delivery, yuan / blank
    F10 TEXT COLLATE NOCASE,  -- courier / blank
    F11 TEXT COLLATE NOCASE,  -- channel / margin, yuan
    F12 TEXT COLLATE NOCASE,  -- weight shipped, kg / salesperson
    F13 TEXT COLLATE NOCASE,  -- cost, yuan
    F14 TEXT COLLATE NOCASE,  -- carriage
    F15 TEXT COLLATE NOCASE   -- remark
);

-- Problem notice, one row; the list of scans (prntscan.rpt) uses it too.
create table PRNTC05 (
    F1 TEXT COLLATE NOCASE,  -- waybill number
    F2 TEXT COLLATE NOCASE,  -- facts of the waybill
    F3 TEXT COLLATE NOCASE,  -- reason, line 1
    F4 TEXT COLLATE NOCASE,  -- reason, line 2
    F5 TEXT COLLATE NOCASE,  -- reason, line 3
    F6 TEXT COLLATE NOCASE,  -- reason, line 4
    F7 TEXT COLLATE NOCASE   -- reason, line 5
);

-- Explained charge, a row for each step.
create table PRNTB01 (
    F1 TEXT COLLATE NOCASE,  -- caption
    F2 TEXT COLLATE NOCASE,  -- what was done, in words
    F3 TEXT COLLATE NOCASE,  -- figure
    F4 TEXT COLLATE NOCASE   -- 1 for a sum, else 0
);

-- Detail ledger.
create table Plist (
    F0 TEXT COLLATE NOCASE,                               -- row number, four digits
    F1 TEXT COLLATE NOCASE,                               -- counterparty
    F2 TEXT COLLATE NOCASE,                               -- blank
    F3 TEXT COLLATE NOCASE,                               -- document key
    F4 TEXT COLLATE NOCASE,                               -- business type
    F5 TEXT COLLATE NOCASE,                               -- blank
    F6 TEXT COLLATE NOCASE,                               -- blank
    F7 TEXT COLLATE NOCASE,                               -- opening balance, yuan
    F8 TEXT COLLATE NOCASE,                               -- raised, yuan
    F9 TEXT COLLATE NOCASE,                               -- lowered, yuan
    F10 TEXT COLLATE NOCASE,                              -- closing balance, yuan
    V1 DOUBLE check(typeof(V1) not in ('text', 'blob'))   -- row number
);

-- Summary ledger.
create table PrTA1 (
    F1 TEXT COLLATE NOCASE,  -- counterparty
    F2 TEXT COLLATE NOCASE,  -- blank
    F3 TEXT COLLATE NOCASE,  -- opening balance, yuan
    F4 TEXT COLLATE NOCASE,  -- raised, yuan
    F5 TEXT COLLATE NOCASE,  -- lowered, yuan
    F6 TEXT COLLATE NOCASE   -- closing balance, yuan
);

-- Invoice accounts.
create table PRTB2 (
    F0 TEXT COLLATE NOCASE,                               -- customer code
    F1 TEXT COLLATE NOCASE,                               -- customer name
    F2 TEXT COLLATE NOCASE,                               -- note date
    F3 TEXT COLLATE NOCASE,                               -- note number
    F6 DOUBLE check(typeof(F6) not in ('text', 'blob')),  -- amount, yuan
    F7 DOUBLE check(typeof(F7) not in ('text', 'blob')),  -- paid, yuan
    F8 DOUBLE check(typeof(F8) not in ('text', 'blob'))   -- open, yuan
);
