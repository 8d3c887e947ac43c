// A company with what a waybill needs: a priced zone, two customers, couriers, origins, a channel. The tariff
// is the worked one: a document of 1.2 kg costs 50, a parcel of 3 kg 115, of 30 kg 360, of 50 kg 1525; the
// channel asks 39.00, 66.00, 270.00, 376.50.
#pragma once

#include <QString>
#include <QStringList>

namespace tests {

inline QStringList WaybillMasters() {
    using namespace Qt::StringLiterals;
    return {
        u"insert into MS1 (F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19) VALUES "_s +
            u"(0.5,0.5,0.5,0.5,21,46,1000,1000,1000,1000,1000,1000,1000,1000,1000,1000,1000,1000,1000)"_s,
        u"insert into M02 (F1,F2) VALUES ('Z1','北美')"_s,
        u"insert into M021 (F0,F1,F2) VALUES ('Z1','纽约','New York')"_s,
        u"insert into M021 (F0,F1,F2) VALUES ('Z1','多伦多','Toronto')"_s,
        u"insert into M03 (F1,F2,F301,F302,F401,F402) VALUES ('C1','华兴','华兴公司','Huaxing','浦东','Pudong')"_s,
        u"insert into M03 (F1,F2) VALUES ('C2','恒丰')"_s,
        u"insert into M031 (F0,F1,F2,F3,F4,F5,F6,F7) VALUES ('C1','Z1',30,10,40,15,12,0)"_s,
        u"insert into M04 (F1,F2) VALUES ('张三','张师傅')"_s,
        u"insert into M04 (F1,F2) VALUES ('李四','')"_s,
        u"insert into M05 (F1,F2) VALUES ('上海','021')"_s,
        u"insert into M05 (F1,F2) VALUES ('苏州','0512')"_s,
        u"insert into M06 (F1,F2) VALUES ('地址不详','')"_s,
        u"insert into M01 (F1,F2,D0,D1,S0,S1,JFD,J0,J1) VALUES ('H1','环洋',0.5,0.5,1,1,2,21,45)"_s,
        u"insert into M011 (F1,F2,F3,P101,P102,P201,P202,P300,P301,A30,A31) VALUES "_s +
            u"('H1-1','美东','H1',20,8,30,12,9,7,False,True)"_s,
        u"insert into M011 (F1,F2,F3) VALUES ('H1-2','美西','H1')"_s,
    };
}

}  // namespace tests
