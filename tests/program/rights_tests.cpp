// Each of the eight rights, through the real login and menus: what it opens, and that nothing else
// opens it.
#include "app/main_menu.h"
#include "tests/support/by_keys.h"
#include "tests/support/program.h"
#include "tests/waybills/waybill_company.h"
#include "waybills/waybill_fields.h"

#include <QApplication>
#include <QListView>

#include <algorithm>
#include <gtest/gtest.h>

namespace tests {
namespace {

const QStringList Fields = {u"F60"_s, u"F61"_s, u"F62"_s, u"F63"_s, u"F64"_s, u"F65"_s, u"F66"_s, u"F67"_s};

struct MenuRight {
    QString field, menu;
};
const MenuRight MenuRights[] = {{u"F60"_s, u"Menu_A"_s},
                                {u"F61"_s, u"Menu_b"_s},
                                {u"F62"_s, u"Menu_C"_s},
                                {u"F63"_s, u"Menu_S"_s},
                                {u"F67"_s, u"Menu_wanglai"_s}};

/// An operator with all rights, one with none, and others whose code is the field of the right that they
/// have.
QStringList Operators() {
    QStringList rows = WaybillMasters();
    const auto add = [&](const QString& code) {
        QString values;
        for (const QString& field : Fields)
            values += code == u"all" || code == field.mid(1) ? u",1"_s : u",0"_s;
        rows += u"insert into TE1 (F1,F2,F3,%1) VALUES ('%2','某%2','p%2'%3)"_s.arg(Fields.join(u','), code,
                                                                                    values);
    };
    for (const QString& field : Fields) add(field.mid(1));
    for (const auto& code : {u"all"_s, u"00"_s}) add(code);
    return rows;
}

class Rights : public Program {
  public:
    explicit Rights(const QStringList& rows = Operators()) : Program(rows) {}

    /// By the menu 更换登录用户, or where a child form is in front, past it.
    void LogIn(const QString& code, const QString& password) {
        ModalScript modals;
        modals.Next(u"Login"_s, [&](QWidget&) {
            for (int i = 0; i < 6 && FocusName() != u"cmbhu"; ++i) Press(Qt::Key_Tab);
            TypeOver(code);
            Press(Qt::Key_Return);
            TypeOver(password);
            Press(Qt::Key_Return);
            Press(Qt::Key_Return);
            Press(Qt::Key_Return);
        });
        if (Frame().Front()) return Frame().ShowModal(u"Login"_s);
        AltKey(u'h');
        AltKey(u'1');
    }
    void LogIn(const QString& code) {
        LogIn(code, u'p' + code);
        EXPECT_EQ(OperatorCode, code);
    }
    QMenuBar& Bar() { return *qobject_cast<QMenuBar*>(Frame().MenuItem(u"Menu_b"_s)->parent()); }

    /// Whether the key of a top menu opens it, or what it means; closes that again.
    bool OpensByKey(const QString& menu) {
        const QString text = Frame().MenuItem(menu)->text();
        AltKey(text.at(text.indexOf(u'&') + 1).toLower().unicode());
        const bool opened = QApplication::activePopupWidget() || Frame().Front();
        if (Frame().Front())
            AltKey(u'R');
        else
            for (int i = 0; i < 2; ++i) Press(Qt::Key_Escape);
        return opened;
    }
    /// The names of what the command palette offers.
    QStringList Listed() {
        Press(Qt::Key_K, Qt::ControlModifier);
        EXPECT_EQ(WithoutNameOrRole(Frame()), QStringList());
        const auto& list = Find<QListView>(Frame(), u"PaletteList"_s);
        QStringList names;
        for (int row = 0; row < list.model()->rowCount(); ++row)
            names += list.model()->index(row, 0).data(Qt::UserRole).toString();
        Press(Qt::Key_Escape);
        return names;
    }
};

QString TopOf(const MenuRow& item) {
    QString top;
    for (const MenuRow& row : MenuRows()) {
        if (row.top) top = row.name.toString();
        if (row.name == item.name) break;
    }
    return top;
}

TEST(MenuRights, OpenTheirMenuAndNothingElseDoes) {
    Rights program;
    for (const QString& code : {u"60"_s, u"61"_s, u"62"_s, u"63"_s, u"64"_s, u"67"_s, u"00"_s, u"all"_s}) {
        SCOPED_TRACE(code.toStdString());
        program.LogIn(code);
        const auto granted = [&](const QString& menu) {
            return std::ranges::any_of(MenuRights, [&](const MenuRight& right) {
                return right.menu == menu && (code == u"all" || right.field.mid(1) == code);
            });
        };
        for (const MenuRight& right : MenuRights)
            EXPECT_EQ(program.OpensByKey(right.menu), granted(right.menu)) << right.menu.toStdString();
        EXPECT_TRUE(program.OpensByKey(u"Menu_sl"_s));
        for (const MenuRow& row : MenuRows()) {
            if (row.opens == Opens::Nothing || TopOf(row) == u"Menu_sl" || granted(TopOf(row))) continue;
            EXPECT_FALSE(RunByKeys(program.Bar(), row.name.toString())) << row.name.toUtf8().constData();
            EXPECT_EQ(program.Frame().Front(), nullptr) << row.name.toUtf8().constData();
            Press(Qt::Key_Escape);
        }
        const QStringList listed = program.Listed();
        for (const MenuRow& row : MenuRows()) {
            if (row.opens == Opens::Nothing || !program.Frame().MenuItem(row.name.toString())->isEnabled())
                continue;
            const bool may = TopOf(row) == u"Menu_sl" || granted(TopOf(row));
            EXPECT_EQ(listed.contains(row.name.toString()), may) << row.name.toUtf8().constData();
        }
        for (const PaletteRow& own : PaletteRows()) {
            const QString name = own.row.name.toString();
            const bool may = program.Frame().MenuItem(name)->isEnabled() &&
                             std::ranges::any_of(own.rights.toString().split(u' '), granted);
            EXPECT_EQ(listed.contains(name), may) << name.toStdString();
        }
    }
    for (const QAction* action : program.Frame().findChildren<QAction*>())
        EXPECT_TRUE(action->shortcuts().isEmpty()) << action->objectName().toStdString();
}

TEST(LedgerRight, IsTheSessionsOnlyWithItsField) {
    Rights program;
    for (const QString& field : Fields) {
        program.LogIn(field.mid(1));
        EXPECT_EQ(CanEditLedger, field == u"F66") << field.toStdString();
        EXPECT_EQ(CanEditReleased, field == u"F64") << field.toStdString();
        EXPECT_EQ(CanSeeFigures, field == u"F65") << field.toStdString();
    }
}

TEST(TheAccountsRight, IsAlsoThePlaceOfTheLastOrigin) {
    Rights program;
    program.LogIn(u"all"_s);
    const auto save = [&](const QString& origin) {
        program.Open(u"B"_s, u"B01"_s);
        AltKey(u'A');
        program.SetCombo(waybills::OriginName, origin);
        for (const auto& [box, text] : {std::pair{waybills::CustomerCode, u"C1"_s},
                                        {waybills::Courier, u"张三"_s},
                                        {waybills::ServiceType, u"S"_s},
                                        {waybills::PaymentMode, u"月结"_s},
                                        {waybills::ServiceZoneCode, u"Z1"_s}})
            program.SetCombo(box, text);
        // Refused for want of a destination; the place is kept all the same.
        program.RefusesToSave(u"请输入"_s + program.Caption(waybills::Destination) + u"!"_s);
        AltKey(u'C');
        AltKey(u'R');
    };
    const struct {
        QString origin;
        QString stored;
        bool accounts;
    } rows[] = {{u"上海"_s, u"0"_s, false}, {u"苏州"_s, u"1"_s, true}, {u"南京"_s, u"-1"_s, true}};
    for (const auto& row : rows) {
        save(row.origin);
        EXPECT_EQ(program.Rows(u"select F67 from TE1 where F1='all'"_s), QStringList{row.stored});
        program.LogIn(u"all"_s);
        EXPECT_EQ(program.OpensByKey(u"Menu_wanglai"_s), row.accounts) << row.origin.toStdString();
    }
    // Ticked in the operators' form it is the second origin from then on.
    program.Open(u"S2"_s, u"S02"_s);
    for (int row = 1; program.Grid().TextMatrix(row, 0) != u"all"; ++row) program.GoToRow(row + 1);
    AltKey(u'E');
    EXPECT_EQ(program.At<controls::CheckBox>(u"Chk(7)"_s).Value(), 1);
    AltKey(u'S');
    AltKey(u'R');
    program.Open(u"B"_s, u"B01"_s);
    AltKey(u'A');
    EXPECT_EQ(program.Combo(waybills::OriginName), u"苏州"_s);
    AltKey(u'C');
    AltKey(u'R');
}

TEST(ARight, TakenAwayHoldsFromTheNextLoginAndAnOpenFormStaysUsable) {
    Rights program;
    program.LogIn(u"all"_s);
    program.Open(u"A6"_s, u"A04"_s);
    program.Execute(u"update TE1 set F60=0 where F1='all'"_s);
    program.LogIn(u"all"_s);
    AltKey(u'A');
    program.SetBox(0, u"王五"_s);
    AltKey(u'S');
    EXPECT_EQ(program.Rows(u"select F1 from M04 where F1='王五'"_s).size(), 1);
    AltKey(u'R');
    EXPECT_FALSE(program.OpensByKey(u"Menu_A"_s));
}

}  // namespace
}  // namespace tests
