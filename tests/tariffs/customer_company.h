// A company whose customers can be quoted: the usual standard, a few priced zones, two customers, and the
// form opened and driven by keys.
#pragma once

#include "platform/dao/engine.h"
#include "schema/names.h"
#include "tests/support/program.h"

#include <QString>
#include <QStringList>

namespace tests {

inline QStringList CustomerMasters() {
    const QString zone =
        u"insert into M02 (F1,F2,F4,P101,P102,P201,P202,P301,P302,P303,P304,P305,P306,P307,P308,P309,P310,"_s +
        u"P311,P312,P313,P314,P315) VALUES ("_s;
    return {
        u"insert into MS1 (F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19) VALUES "_s +
            u"(0.5,0.5,0.5,0.5,21,46,71,101,201,301,401,501,601,701,801,901,1001,1101,1201)"_s,
        zone + u"'A01','东亚','East Asia',12.34,10,20,15.05,9,8,7,6,5,4,3,2,1.9,1.8,1.7,1.6,1.5,1.4,1.3)"_s,
        zone + u"'A02','南亚','South Asia',100,30,120,40,null,8,7,6,5,4,3,2,1,1,1,1,1,1,null)"_s,
        zone + u"'B01','北美','North America',200,50,220,60,90,80,70,60,50,40,30,20,10,10,10,10,10,10,10)"_s,
        u"insert into M030 (F1,F2) VALUES ('孙丽萍','')"_s,
        u"insert into M030 (F1,F2) VALUES ('陈刚','')"_s,
        u"insert into M03 (F1,F2,F301,F302,F401,F402,F5,F6,F7,F8,F9,P888,LJFK,LJQK,F91,F92,F93,F94) VALUES "_s +
            u"('C1','华兴','华兴公司','Huaxing','浦东','Pudong','021','022','a@b','孙丽萍','一',1,10,20,'二','三',"_s +
            u"'四','五')"_s,
        u"insert into M03 (F1,F2) VALUES ('C2','恒丰')"_s,
        u"insert into M031 (F0,F1,F2,F3,F4,F5,F6,F20) VALUES ('C1','B01',30,10,40,15.5,12,7.25)"_s,
        u"insert into M031 (F0,F1,F2) VALUES ('C1','Z9',1)"_s,  // its zone is gone
        u"insert into M031 (F0,F1,F2,F6) VALUES ('C2','A01',5,6)"_s,
    };
}

class CustomerForm : public Program {
  public:
    explicit CustomerForm(const QStringList& masters = CustomerMasters(),
                          const QString& operatorCode = u"001"_s)
        : Program(masters, operatorCode) {
        Open(u"A5"_s, u"A03"_s);
    }
    controls::FlexGrid& Quotes() { return At<controls::FlexGrid>(u"GdMx"_s); }
    /// A quote row's cells from one column to another, joined by "|"; rows count from 2.
    QString Quote(int row, int first = 0, int last = 7) {
        QStringList cells;
        for (int col = first; col <= last; ++col) cells += Quotes().TextMatrix(row, col);
        return cells.join(u'|');
    }
    /// The zones in the quote grid, joined by blanks.
    QString Zones() {
        QStringList zones;
        for (int row = 2; row < Quotes().Rows(); ++row) zones += Quotes().TextMatrix(row, 0);
        return zones.join(u' ');
    }
    QStringList Stored(const QString& customer, const QString& fields = u"F1,F2,F3,F4,F5,F6,F20"_s) {
        return Rows(u"select "_s + fields + u" from M031 where F0='"_s + customer + u"' order by F1"_s);
    }
    QString Line(const QString& name) { return At<controls::LineBox>(name).Text(); }
    QString ButtonCaption(const QString& button) { return At<controls::Button>(button).Caption(); }
    /// Types a code into the entry line and goes on to the coefficient.
    void EnterCode(const QString& code) {
        Enter(u"TxtHPBM"_s);
        TypeOver(code);
        Press(Qt::Key_Return);
    }
    /// The operator's keys: code, Enter, coefficient, Enter.
    void AddQuote(const QString& code, const QString& coefficient) {
        EnterCode(code);
        TypeOver(coefficient);
        Press(Qt::Key_Return);
    }
    /// Damages the file behind the program's back.
    static void LoseTable(const QByteArray& table) {
        dao::Run(dao::OpenEngine(DbFile, schema::kPassword).get(), "drop table " + table);
    }
};

}  // namespace tests
