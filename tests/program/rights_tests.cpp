// Each of the eight rights, through the real login, menus and tool bar: what it opens, and that nothing else
// opens it.
#include "app/main_menu.h"
#include "tests/support/by_keys.h"
#include "tests/support/program.h"
#include "tests/waybills/waybill_company.h"
#include "waybills/waybill_fields.h"

#include <QApplication>
#include <QListView>
#include <QToolBar>

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

/// An operator with all rights, and others whose codes are the fields of the rights that they have (60,
/// 6065).
QStringList Operators() {
    QStringList rows = WaybillMasters();
    const auto add = [&](const QString& code) {
        QString values;
        for (const QString& field : Fields) {
            bool has = code == u"all";
            for (qsizetype i = 0; !has && i + 1 < code.size(); i += 2) has = code.mid(i, 2) == field.mid(1);
            values += has ? u",1"_s : u",0"_s;
        }
        rows += u"insert into TE1 (F1,F2,F3,%1) VALUES ('%2','某%2','p%2'%3)"_s.arg(Fields.join(u','), code,
                                                                                    values);
    };
    for (const QString& field : Fields) add(field.mid(1));
    for (const auto& code : {u"all"_s, u"00"_s, u"6164"_s, u"6165"_s}) add(code);
    return rows +
           QStringList{
               u"insert into B01 (F1,F101,F203,F2031,F201,F202,F301,F501,F504,F507,F602,F603,F604) "_s +
               u"VALUES ('W1','2024-03-16','Z1','纽约','上海','H1','S','月结',50,30,'张三','C1','管理员')"_s};
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
    /// Presses a button of the tool bar; whether it opened its form, which is closed again.
    bool OpensByTool(const ToolRow& row) {
        auto& tools = Find<QToolBar>(Frame(), u"TB"_s);
        auto& action = Find<QAction>(tools, row.key.toString());
        action.trigger();
        Settle();
        const bool opened = Frame().Front();
        if (opened) AltKey(u'R');
        return opened;
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
            const bool may = program.Frame().MenuItem(name)->isEnabled() && granted(own.right.toString());
            EXPECT_EQ(listed.contains(name), may) << name.toStdString();
        }
        for (const ToolRow& row : ToolRows()) {
            if (row.key == u"quit") continue;
            auto& action = Find<QAction>(program.Frame(), row.key.toString());
            if (!action.isEnabled()) continue;  // its form is not built yet
            const bool may = !row.right.isEmpty() && granted(row.right.toString());
            if (!may) program.script.Box(u"对不起,您没有此权限!"_s, QString());
            EXPECT_EQ(program.OpensByTool(row), may) << row.key.toUtf8().constData();
            EXPECT_TRUE(program.script.Done()) << row.key.toUtf8().constData();
        }
    }
    for (const QAction* action : program.Frame().findChildren<QAction*>())
        EXPECT_TRUE(action->shortcuts().isEmpty()) << action->objectName().toStdString();
}

TEST(WaybillRights, EditingWhatIsReleasedAndSeeingFigures) {
    Rights program;
    const struct {
        QString code;
        bool edits, sees;
    } rows[] = {
        {u"61"_s, false, false}, {u"6164"_s, true, false}, {u"6165"_s, false, true}, {u"all"_s, true, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.code.toStdString());
        program.LogIn(row.code);
        program.Open(u"B"_s, u"B01"_s);
        program.ShowCard();
        const auto& price = program.At<controls::LineBox>(u"Txt(%1)"_s.arg(int(waybills::BasicCharge)));
        EXPECT_EQ(price.echoMode() == QLineEdit::Normal, row.sees);
        if (!row.edits) program.script.Box(u"该速递单已经审核出货,您没有修改权限!"_s, Title);
        AltKey(u'E');
        EXPECT_EQ(EditInProgress, row.edits);
        if (EditInProgress) AltKey(u'C');
        AltKey(u'R');
    }
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
