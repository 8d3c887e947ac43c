// The pricing standard's dialog, driven by keys from its menu.
#include "platform/controls/modal_form.h"
#include "platform/dao/engine.h"
#include "schema/names.h"
#include "tests/support/program.h"
#include "tests/waybills/waybill_company.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString Question = u"警告！计价标准不宜经常改变！真的继续吗？"_s;
const QString NotPositive = u"所有数值都不能小于或等于0！"_s;
const QStringList Defaults =
    QStringList{u"0.5"_s, u"0.5"_s, u"0.5"_s, u"0.5"_s, u"21"_s, u"46"_s, u"71"_s, u"101"_s} +
    QStringList(11, u"201"_s) + QStringList{u"1.5"_s};
const QString FreshRow = u"0.5|0.5|0.5|0.5|21|46|71|101|"_s + u"201|"_s.repeated(11) + u"1.5"_s;

class Standard : public Program {
  public:
    explicit Standard(const QStringList& masters = {}, const QString& operatorCode = u"001"_s)
        : Program(masters, operatorCode) {}

    /// Opens the dialog from its menu, does this in it and leaves by CmdCancel.
    void Visit(const std::function<void()>& drive) {
        modals.Next(u"S01"_s, [this, drive](QWidget& form) {
            dialog = &form;
            drive();
            if (!sys::HasEnded()) Push(u"CmdCancel"_s);
        });
        AltKey(u'S');
        AltKey(u'1');
    }
    controls::LineBox& LineAt(int box) { return Find<controls::LineBox>(*dialog, u"Txt(%1)"_s.arg(box)); }
    QString Text(int box) { return LineAt(box).Text(); }
    QStringList Texts() {
        QStringList texts;
        for (int i = 0; i < 20; ++i) texts += Text(i);
        return texts;
    }
    QString Label(int label) { return Find<QLabel>(*dialog, u"Lab(%1)"_s.arg(label)).text(); }
    /// What is behind the heavy boxes.
    QStringList Tops() {
        QStringList tops;
        for (int label = 7; label <= 21; ++label) tops += Label(label);
        return tops;
    }
    void Enter(int box, const QString& text) {
        LineAt(box).SetFocus();
        Settle();
        TypeOver(text);
    }
    void Push(const QString& button) {
        Find<controls::Button>(*dialog, button).SetFocus();
        Settle();
        Press(Qt::Key_Return);
    }
    QStringList Row() { return Rows(u"select * from MS1"_s); }

    ModalScript modals;
    QWidget* dialog = nullptr;
};

TEST(S01, ShowsDefaultsUntilTheRowIsSaved) {
    Standard form;
    form.Visit([&] {
        EXPECT_EQ(form.Texts(), Defaults);
        EXPECT_EQ(form.Tops(), (QStringList{u"Kg-45Kg"_s, u"Kg-70Kg"_s, u"Kg-100Kg"_s, u"Kg-200Kg"_s} +
                                QStringList(11, u"Kg以上"_s)));
    });
    EXPECT_TRUE(form.Row().isEmpty()) << "leaving stores nothing";
    form.Visit([&] {
        form.script.Question(Question, u"提示"_s, true);
        form.script.Box(u"保存成功！"_s, u"提示"_s);
        form.Push(u"CmdOK"_s);
        EXPECT_EQ(form.Text(19), u"1.5") << "the dialog stays open";
    });
    EXPECT_EQ(form.Row(), QStringList{FreshRow});
    form.Visit([&] {
        EXPECT_EQ(form.Texts(), (QStringList{u"0.5"_s, u"0.5"_s, u"0.5"_s, u"0.5"_s, u"21.0"_s, u"46.0"_s,
                                             u"71.0"_s, u"101.0"_s} +
                                 QStringList(11, u"201.0"_s) + QStringList{u"1.5"_s}));
        EXPECT_EQ(form.Tops(), (QStringList{u"Kg-45Kg"_s, u"Kg-70Kg"_s, u"Kg-100Kg"_s} +
                                QStringList(11, u"Kg-200Kg"_s) + QStringList{u"Kg以上"_s}));
    });
}

TEST(S01, PutsABoundRightWithoutAWord) {
    Standard form;
    const struct {
        int box;
        QString left, typed;
        const char* after;
        const char* top;
        const char* why;
    } rows[] = {
        {5, u"21"_s, u"22"_s, "22", "Kg-21Kg", "above its left neighbour"},
        {5, u"21"_s, u"21"_s, "46", "Kg-45Kg", "equal counts as out of order"},
        {5, u"21"_s, u"20.5"_s, "46", "Kg-45Kg", "below"},
        {5, u"21.5"_s, u""_s, "46.5", "Kg-45.5Kg", "an empty box is 0"},
        {5, u"-1"_s, u""_s, "", "Kg--1Kg", "which is enough above a negative neighbour"},
        {5, u"21"_s, u"30kg"_s, "30kg", "Kg-29Kg", "the leading number counts, the text stays"},
        {18, u"600"_s, u"7"_s, "625", "Kg-624Kg", "the last one"},
    };
    form.Visit([&] {
        for (const auto& row : rows) {
            // The neighbour is set without being left: it would be looked at itself.
            form.LineAt(row.box - 1).SetText(row.left);
            form.Enter(row.box, row.typed);
            Press(Qt::Key_Tab);
            EXPECT_EQ(form.Text(row.box).toStdString(), row.after) << row.why;
            EXPECT_EQ(form.Label(row.box + 2).toStdString(), row.top) << row.why;
        }
        // The first bound has no such check, and what is right of a text box that is left stays.
        form.Enter(4, u"900"_s);
        Press(Qt::Key_Tab);
        EXPECT_EQ(form.Text(4), u"900");
        EXPECT_EQ(form.Text(5), u"30kg");
    });
}

TEST(S01, RefusesInOrder) {
    Standard ordinary({u"insert into TE1 (F1,F2,F64) VALUES ('002','小王',1)"_s}, u"002"_s);
    ordinary.Frame().SetMenuVisible(u"Menu_S"_s, true);
    ordinary.Visit([&] {
        ordinary.Enter(0, u"0"_s);
        ordinary.script.Box(u"只有系统管理员才能修改此项设置，请用“001”帐号登录！"_s, u"提示"_s);
        ordinary.Push(u"CmdOK"_s);
        EXPECT_EQ(ordinary.Text(0), u"0") << "refused before anything is looked at";
    });
    EXPECT_TRUE(ordinary.Row().isEmpty());
}

TEST(S01, ChecksTheFirstNineBoxesAndNoOther) {
    Standard form({u"insert into MS1 VALUES ("_s + QString(FreshRow).replace(u'|', u',') + u')'});
    const QStringList before = form.Row();
    form.Visit([&] {
        form.Enter(0, u"1.50kg"_s);
        form.script.Question(Question, u"提示"_s, false);
        form.Push(u"CmdOK"_s);
        EXPECT_EQ(form.Text(0), u"1.50kg") << "No ends the save before anything is changed";
        form.Enter(2, u"x"_s);
        form.script.Question(Question, u"提示"_s, true);
        form.script.Box(NotPositive, u" 提示"_s);
        form.Push(u"CmdOK"_s);
        EXPECT_EQ(form.Texts().mid(0, 5).join(u' '), u"1.5 0.5 0 0.5 21.0")
            << "the boxes already passed are made plain numbers";
        form.Enter(2, u"0.5"_s);
        form.LineAt(8).SetText(u"-201"_s);
        form.script.Question(Question, u"提示"_s, true);
        form.script.Box(NotPositive, u" 提示"_s);
        form.Push(u"CmdOK"_s);
        EXPECT_EQ(form.Row(), before);
    });
    // From the tenth on anything that the engine takes goes in as it is.
    form.Visit([&] {
        for (const auto& [box, typed] : {std::pair{9, u"0"_s}, {18, u"-7.50"_s}, {19, u"1+0.25"_s}})
            form.LineAt(box).SetText(typed);
        form.script.Question(Question, u"提示"_s, true);
        form.script.Box(u"保存成功！"_s, u"提示"_s);
        form.Push(u"CmdOK"_s);
    });
    EXPECT_EQ(form.Rows(u"select F1,F9,F10,F11,F19,P888 from MS1"_s),
              QStringList{u"0.5|201|0|201|-7.5|1.25"_s});
}

TEST(S01, AFailingInsertLeavesNoStandardAndANumberTooLargeFails) {
    for (const auto& [typed, report] : {std::pair{u"1e999"_s, u"溢出"_s},
                                        {u"-1e999"_s, u"溢出"_s},
                                        {u"9e307*10*10"_s, u"溢出"_s},
                                        {u""_s, u"1000.0,)"_s}}) {
        Standard form(WaybillMasters());
        EXPECT_EQ(form.Row().size(), 1);
        form.Visit([&] {
            form.Enter(19, typed);
            form.script.Question(Question, u"提示"_s, true);
            form.EndsWith(report);
            form.Push(u"CmdOK"_s);
        });
        EXPECT_TRUE(form.script.Done()) << typed.toStdString();
        EXPECT_TRUE(form.Row().isEmpty()) << typed.toStdString();
    }
}

TEST(S01, OpensOnAValueThatIsNoNumber) {
    // As a file may hold it from elsewhere: infinity.
    Standard form(WaybillMasters());
    dao::Run(dao::OpenEngine(DbFile, schema::kPassword).get(), "update MS1 set F5=-9e999,F6=null,P888=9e999");
    form.Visit([&] {
        EXPECT_EQ(form.Text(4), u"21.0");
        EXPECT_EQ(form.Text(5), u"46.0") << "nor is a null";
        EXPECT_EQ(form.Text(19), u"1.5");
        form.script.Question(Question, u"提示"_s, true);
        form.script.Box(u"保存成功！"_s, u"提示"_s);
        form.Push(u"CmdOK"_s);
    });
    EXPECT_EQ(form.Rows(u"select F5,P888 from MS1"_s), QStringList{u"21|1.5"_s});
}

}  // namespace
}  // namespace tests
