// The search dialog, driven by keys from the forms that offer it: what it can search, what it hands back, and
// what the forms make of a statement that fails.
#include "platform/controls/list_box.h"
#include "records/record_form.h"
#include "tests/support/program.h"
#include "tests/waybills/waybill_company.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using tests::AltKey;
using tests::FocusName;
using tests::Press;
using tests::Type;

namespace {

const QString Hint = u"Enter->增加条件   Ctrl+Enter->开始查找   Esc->取消"_s;

/// The dialog as the operator uses it.
struct Dialog {
    QWidget& form;

    template <class T = controls::ComboBox>
    T& At(const QString& name) {
        return tests::Find<T>(form, name);
    }
    QStringList Texts(const QString& list) {
        auto& box = At<controls::ListBox>(list);
        QStringList texts;
        for (int i = 0; i < box.ListCount(); ++i) texts += box.List(i);
        return texts;
    }
    QStringList Items(const QString& combo) {
        QStringList items;
        for (int i = 0; i < At(combo).ListCount(); ++i) items += At(combo).List(i);
        return items;
    }
    void GoTo(const QString& control) {
        for (int i = 0; i < 12 && FocusName() != control; ++i) Press(Qt::Key_Tab);
        ASSERT_EQ(FocusName(), control);
    }
    void Choose(const QString& combo, const QString& item) {
        GoTo(combo);
        for (int i = 0; i < 14; ++i) Press(Qt::Key_Up);
        for (int i = 0; i < 14 && At(combo).Text() != item; ++i) Press(Qt::Key_Down);
        ASSERT_EQ(At(combo).Text(), item);
    }
    /// "" for the first connective, field or relation as they are.
    void Add(const QString& connective, const QString& field, const QString& relation, const QString& value) {
        if (!connective.isEmpty()) Choose(u"CmbLG"_s, connective);
        if (!field.isEmpty()) Choose(u"CmbF"_s, field);
        if (!relation.isEmpty()) Choose(u"CmbGX"_s, relation);
        if (auto& date = At<controls::DTPicker>(u"DTP"_s); date.isVisible()) {
            date.SetValue(QDate::fromString(value, Qt::ISODate));
            GoTo(u"DTP"_s);
            Press(Qt::Key_Return);
            EXPECT_EQ(FocusName(), u"CmdAdd"_s);
        } else {
            GoTo(u"Txt"_s);
            tests::TypeOver(value);
        }
        Press(Qt::Key_Return);
    }
    void Remove(int line) {
        GoTo(u"Lst"_s);
        for (int i = 0; i <= line; ++i) Press(Qt::Key_Down);
        GoTo(u"CmdRemove"_s);
        Press(Qt::Key_Return);
    }
    static void Find() { Press(Qt::Key_Return, Qt::ControlModifier); }
};

class Searching : public tests::Program {
  public:
    Searching(const QString& keys, const QString& form, const QStringList& more = {})
        : Program(tests::WaybillMasters() + more) {
        Open(keys, form);
    }
    void Search(const std::function<void(Dialog&)>& drive) {
        modals_.Next(u"Query"_s, [&](QWidget& form) {
            Dialog dialog{form};
            drive(dialog);
        });
        AltKey(u'Q');
    }
    int RecCount() { return dynamic_cast<RecordForm&>(*Frame().Front()).RecCount; }
    QString PubSql() { return dynamic_cast<QueryCaller&>(*Frame().Front()).PubSql; }
    /// One column of the list's lines.
    QStringList Column(int col) {
        QStringList cells;
        for (int row = 1; row < Grid().Rows(); ++row) cells += Grid().TextMatrix(row, col);
        return cells;
    }

  private:
    tests::ModalScript modals_;
};

TEST(Query, AsksInConditionsAndHandsTheStatementBack) {
    Searching form(u"A6"_s, u"A04"_s, {u"insert into M04 (F1,F2) VALUES ('王五','张师傅的弟弟')"_s});
    form.Search([&](Dialog& dialog) {
        EXPECT_EQ(dialog.form.windowTitle(), u"查找条件"_s);
        EXPECT_EQ(FocusName(), u"CmbF"_s);
        EXPECT_EQ(form.Status(), Hint);
        EXPECT_FALSE(dialog.At(u"CmbLG"_s).isEnabled());
        EXPECT_EQ(dialog.Items(u"CmbLG"_s), (QStringList{u"并且"_s, u"或者"_s, u"排除"_s}));
        EXPECT_EQ(dialog.At(u"CmbF"_s).Text(), u"备注"_s) << "the small forms begin with the note";
        for (const auto& next : {u"CmbGX"_s, u"Txt"_s}) {
            Press(Qt::Key_Return);
            EXPECT_EQ(FocusName(), next);
        }
        dialog.Add(u""_s, u""_s, u"包含(like)"_s, u"师傅"_s);
        EXPECT_EQ(FocusName(), u"Txt"_s) << "ready for the next value";
        dialog.Choose(u"CmbLG"_s, u"排除"_s);
        dialog.Add(u""_s, u"姓名"_s, u"等于(=)"_s, u"王五"_s);
        EXPECT_EQ(dialog.At(u"CmbLG"_s).Text(), u"并且"_s) << "back at its first item";
        EXPECT_EQ(dialog.Texts(u"Lst"_s),
                  (QStringList{u"        备注  包含     师傅"_s, u"排除    姓名  等于     王五"_s}));
        dialog.GoTo(u"Lst"_s);
        Press(Qt::Key_Return);
        EXPECT_EQ(FocusName(), u"CmbF"_s);
        dialog.GoTo(u"Txt"_s);
        Type(u"赵"_s);
        EXPECT_EQ(dialog.At<controls::LineBox>(u"Txt"_s).Text(), u"赵"_s) << "what was there was selected";
        dialog.Find();
    });
    EXPECT_EQ(form.PubSql(),
              u"Select M04.* from M04  Where M04.F2 like '*师傅*'   AND Not M04.F1 = '王五'  "_s);
    EXPECT_EQ(form.Lines(), QStringList{u"张三|张师傅"_s});
    EXPECT_EQ(form.Status(), u"共 1 条记录 当前为第 1 条"_s);
}

TEST(Query, EmptyFindsAllCancelLeavesAllAndNothingFoundShowsNothing) {
    Searching form(u"A6"_s, u"A04"_s);
    form.Search([](Dialog& dialog) {
        dialog.Add(u""_s, u""_s, u""_s, u"无此备注"_s);
        dialog.GoTo(u"CmdQuery"_s);
        Press(Qt::Key_Return);
    });
    EXPECT_EQ(form.Lines(), QStringList{u"|"_s});
    EXPECT_EQ(form.Status(), u""_s) << "the dialog emptied it, and no line wrote it again";
    form.Search([](Dialog& dialog) { dialog.Find(); });
    EXPECT_EQ(form.PubSql(), u"Select M04.* from M04 "_s);
    EXPECT_EQ(form.Lines().size(), 2);

    form.Execute(u"delete from M04"_s);
    for (int way = 0; way < 3; ++way) {
        form.Search([way](Dialog& dialog) {
            dialog.Add(u""_s, u""_s, u""_s, u"张师傅"_s);
            if (way == 0) return Press(Qt::Key_Escape);
            if (way == 1) return void(dialog.form.close());
            dialog.GoTo(u"CmdCancel"_s);
            Press(Qt::Key_Return);
        });
        EXPECT_EQ(form.PubSql(), u""_s);
        EXPECT_EQ(form.Lines().size(), 2) << "not loaded again";
        EXPECT_EQ(form.Status(), u""_s);
    }
}

TEST(Query, TakesConditionsAway) {
    Searching form(u"A6"_s, u"A04"_s);
    form.Search([](Dialog& dialog) {
        dialog.Add(u""_s, u"姓名"_s, u""_s, u"王五"_s);
        dialog.Add(u"排除"_s, u"姓名"_s, u""_s, u"张三"_s);
        dialog.Add(u"并且"_s, u"备注"_s, u""_s, u""_s);
        dialog.Remove(0);
        EXPECT_EQ(dialog.At<controls::ListBox>(u"Lst"_s).ListIndex(), 1) << "the last one is selected";
        EXPECT_EQ(dialog.Texts(u"LstSql"_s),
                  (QStringList{u" Where Not M04.F1 = '张三'  "_s, u" And M04.F2 = ''  "_s}));
        for (int line = 0; line < 2; ++line) Press(Qt::Key_Return);  // on the button, one after the other
        EXPECT_TRUE(dialog.Texts(u"LstSql"_s).isEmpty());
        EXPECT_FALSE(dialog.At(u"CmbLG"_s).isEnabled());
        dialog.Add(u""_s, u"姓名"_s, u""_s, u"李四"_s);
        dialog.Find();
    });
    EXPECT_EQ(form.PubSql(), u"Select M04.* from M04  Where M04.F1 = '李四'  "_s);
    EXPECT_EQ(form.Column(0), QStringList{u"李四"_s});
}

TEST(Query, ALineThatIsChosenStaysChosenWhileConditionsAreAdded) {
    Searching form(u"A6"_s, u"A04"_s);
    form.Search([](Dialog& dialog) {
        for (const auto& name : {u"王五"_s, u"赵六"_s, u"张三"_s}) dialog.Add(u""_s, u"姓名"_s, u""_s, name);
        dialog.GoTo(u"Lst"_s);
        for (int line = 0; line < 2; ++line) Press(Qt::Key_Down);
        EXPECT_EQ(dialog.At<controls::ListBox>(u"Lst"_s).ListIndex(), 1);
        dialog.Add(u""_s, u"备注"_s, u""_s, u"张师傅"_s);
        EXPECT_EQ(dialog.At<controls::ListBox>(u"Lst"_s).ListIndex(), 1);
        dialog.GoTo(u"CmdRemove"_s);
        Press(Qt::Key_Return);
        EXPECT_EQ(dialog.Texts(u"LstSql"_s),
                  (QStringList{u" Where M04.F1 = '王五'  "_s, u" And M04.F1 = '张三'  "_s,
                               u" And M04.F2 = '张师傅'  "_s}));
        Press(Qt::Key_Escape);
    });
}

TEST(Query, ZonesShowOneHitAndTheEnginesMessage) {
    Searching form(u"A3"_s, u"A02"_s,
                   {u"insert into M02 (F1,F2,F6,P305,P306) VALUES ('Z2','东亚',3,9.5,8)"_s,
                    u"insert into M02 (F1,F2,F6) VALUES ('Z3','西欧',4)"_s});
    form.script.Box(u"在此集合中找不到该项目"_s, u"提示"_s);
    form.Search([](Dialog& dialog) {
        EXPECT_EQ(dialog.Items(u"CmbF"_s), (QStringList{u"区域编号"_s, u"区域概称(中文)"_s,
                                                        u"区域概称(英文)"_s, u"送达时日"_s, u"备注"_s}));
        dialog.Add(u""_s, u"送达时日"_s, u"大于(>)"_s, u"两天"_s);
        dialog.Find();
    });
    EXPECT_TRUE(form.PubSql().endsWith(u"M02.P304,M02.P305 from M02  Where M02.F6 > 0"_s));
    EXPECT_EQ(form.Lines(), QStringList{u"Z2|东亚||3"_s + QString(10, u'|') + u"9.5"_s + QString(11, u'|')});
    form.Search([](Dialog& dialog) {
        dialog.Add(u""_s, u"送达时日"_s, u"小于(<)"_s, u"3"_s);
        dialog.Find();
    });
    EXPECT_EQ(form.Column(0), QStringList{u""_s}) << "without a hit there is no message";
}

TEST(Query, AChannelsZoneWithTwoPlacesIsOneHit) {
    Searching form(u"A2"_s, u"A011"_s,
                   {u"insert into M0111 (F0,F1,F2) VALUES ('H1-1','纽约','New York')"_s,
                    u"insert into M0111 (F0,F1,F2) VALUES ('H1-1','波士顿','Boston')"_s});
    form.script.Box(u"在此集合中找不到该项目"_s, u"提示"_s);
    form.Search([](Dialog& dialog) {
        // The headers go by place, whatever field is beside them.
        QStringList fields;
        auto& table = dialog.At<controls::FlexGrid>(u"GD"_s);
        for (int row = 0; row < table.Rows(); ++row)
            fields += table.TextMatrix(row, 0) + u'=' + table.TextMatrix(row, 1) + table.TextMatrix(row, 2);
        EXPECT_EQ(fields.join(u' '),
                  u"所属渠道=M01.F20 区域编号=M011.F10 区域概称(中文)=M011.F20 送达时日=M011.F40 "
                  u"备注=M011.F61 所属渠道编号=M011.F80 地区名称(中文)=M0111.F10 "
                  u"地区名称(英文)=M0111.F20"_s);
        dialog.Add(u""_s, u"地区名称(英文)"_s, u"包含(like)"_s, u"o"_s);
        dialog.Find();
    });
    EXPECT_TRUE(form.PubSql().endsWith(u"M0111.F0=M011.F1  Where M0111.F2 like '*o*'  "_s));
    EXPECT_EQ(form.RecCount(), 1);
    EXPECT_EQ(form.Lines(), QStringList{u"环洋|H1-1|美东|||H1|"_s + QString(15, u'|')});
}

TEST(Query, ABrokenStatementIsReportedAndChangesNothing) {
    const QString three[] = {u"张三"_s, u"李四"_s, u"it's"_s};
    const struct {
        QString keys, form, connective, said;
        bool ends;
    } rows[] = {
        {u"A6"_s, u"A04"_s, u""_s, u"Select M04.* from M04  Where M04.F1 = 'it's'  "_s, true},
        {u"A6"_s, u"A04"_s, u"或者"_s, u"Select M04.* from M04  Where 04.F1 = '李四'  "_s, true},
        {u"A5"_s, u"A03"_s, u""_s, u"语法错误"_s, false},
        {u"A3"_s, u"A02"_s, u"或者"_s, u"语法错误"_s, false},
        {u"B"_s, u"B01"_s, u""_s, u"on M01.F1=B01.F202  Where B01.F1 = 'it's'  "_s, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE((row.form + row.connective).toStdString());
        Searching form(row.keys, row.form, {u"insert into B01 (F1,F101) VALUES ('W1','2024-03-15')"_s});
        form.script.BoxContaining(row.said);
        if (row.ends) form.script.End(1);
        form.Search([&](Dialog& dialog) {
            dialog.Choose(u"CmbF"_s, dialog.Items(u"CmbF"_s).front());
            if (row.connective.isEmpty()) {
                dialog.Add(u""_s, u""_s, u""_s, three[2]);
            } else {
                dialog.Add(u""_s, u""_s, u""_s, three[0]);
                dialog.Add(row.connective, u""_s, u""_s, three[1]);
                dialog.Remove(0);
            }
            dialog.Find();
        });
        EXPECT_TRUE(form.script.Done());
        EXPECT_EQ(form.script.LastBox().icon, row.ends ? sys::BoxIcon::Critical : sys::BoxIcon::Information);
        for (const auto& table : {u"M04"_s, u"M03"_s})
            EXPECT_EQ(form.Rows(u"select count(*) from "_s + table), QStringList{u"2"_s});
        EXPECT_EQ(form.Rows(u"select F1,F101 from B01"_s), QStringList{u"W1|2024-03-15"_s});
        sys::ClearEnd();
    }
}

TEST(Query, WaybillsAreFoundByTheDayAndTheListComesToTheFront) {
    QStringList waybills;
    for (const auto& day :
         {u"2024-03-14"_s, u"2024-03-15"_s, u"2024-03-15 18:30:00"_s, u"2024-03-16"_s, u""_s})
        waybills += u"insert into B01 (F1,F101,F603,F203) VALUES ('W%1','%2','C%3','Z1')"_s.arg(
            QString::number(waybills.size() + 1), day, waybills.size() == 1 ? u"2"_s : u"1"_s);
    Searching form(u"B"_s, u"B01"_s, waybills);
    const struct {
        QString relation;
        QStringList found;
    } rows[] = {{u"等于(=)"_s, {u"W2"_s, u"W3"_s}}, {u"大于(>)"_s, {u"W4"_s}}, {u"小于(<)"_s, {u"W1"_s}}};
    auto& tabs = form.At<controls::TabStrip>(u"TabS"_s);
    for (const auto& row : rows) {
        tabs.SelectItem(2);
        form.Search([&](Dialog& dialog) {
            dialog.Choose(u"CmbF"_s, u"寄件日期"_s);
            EXPECT_EQ(dialog.Items(u"CmbGX"_s), (QStringList{u"大于(>)"_s, u"小于(<)"_s, u"等于(=)"_s}));
            EXPECT_FALSE(dialog.At<QWidget>(u"Txt"_s).isVisible());
            dialog.Add(u""_s, u""_s, row.relation, u"2024-03-15"_s);
            dialog.Find();
        });
        EXPECT_EQ(form.Column(0), row.found);
        EXPECT_EQ(tabs.SelectedItem(), 1);
    }
    form.Search([](Dialog& dialog) {
        dialog.Add(u""_s, u"发件客户"_s, u""_s, u"华兴"_s);
        dialog.Add(u"并且"_s, u"区域编码"_s, u""_s, u"z1"_s);
        EXPECT_EQ(dialog.Texts(u"Lst"_s).last(), u"并且    区域编码  等于     z1"_s);
        dialog.Add(u"排除"_s, u"寄件日期"_s, u"大于(>)"_s, u"2024-03-15"_s);
        dialog.Find();
    });
    EXPECT_EQ(form.Column(0), (QStringList{u"W1"_s, u"W3"_s, u"W5"_s}));
    EXPECT_EQ(form.Status(), u"速递单：共 3 条记录 当前为第 1 条"_s);
    tabs.SelectItem(2);
    form.Search([](Dialog&) { Press(Qt::Key_Escape); });
    EXPECT_EQ(tabs.SelectedItem(), 1) << "given up, too";
    EXPECT_EQ(form.Column(0).size(), 3);
}

}  // namespace
