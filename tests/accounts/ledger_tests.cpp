// The ledgers of both sides, and the refresh of the balances that they show.
#include "accounts/ledger_form.h"
#include "tests/support/program.h"

#include <QBrush>
#include <QRadioButton>

#include <gtest/gtest.h>

namespace tests {
namespace {

/// Two customers, two channels; 华兴 is the name of a customer and of a channel. What must not be shown has
/// an amount of its own.
QStringList Masters() {
    QStringList rows = {
        u"insert into M03 (F1,F2) VALUES ('C1','华兴')"_s,
        u"insert into M03 (F1,F2) VALUES ('C2','恒丰')"_s,
        u"insert into M01 (F1,F2) VALUES ('H1','环洋')"_s,
        u"insert into M01 (F1,F2) VALUES ('H2','华兴')"_s,
        u"insert into TE1 (F1,F2,F66,F67) VALUES ('002','周婷',1,1)"_s,
    };
    const auto entry = [&](const QString& values) {
        rows += u"insert into TB1 (SN,LB,S2,F1,F2,F3,YF,FK,QC,QM,F6,K) values ("_s + values + u')';
    };
    entry(u"10,-9,'增加应收','YS0','2024-02-28','华兴',40,0,0,40,'甲',0"_s);
    entry(u"15,9,'增加应付','YF0','2024-02-28','华兴',5,0,0,5,'甲',0"_s);
    entry(u"20,-9,'增加应收','YS1','2024-02-29 23:30:00','华兴',100.005,0,40,140.005,'甲',0"_s);
    entry(u"30,-10,'收款','SK1','2024-03-02','华兴',0,30,140.005,110.005,'甲',0"_s);
    entry(u"31,-10,null,'SK2','2024-03-02','恒丰',0,7.5,null,null,'甲',0"_s);
    entry(u"32,-9,'增加应收','YS2','2024-03-15 23:30:00','恒丰',0.004,0,-7.5,-7.496,'甲',0"_s);
    entry(u"33,-9,'增加应收','YS3','2024-03-16','恒丰',111,0,0,0,'甲',0"_s);
    entry(u"34,-9,'增加应收','YS4','2024-03-10','恒丰',222,0,0,0,'',0"_s);
    entry(u"35,-9,'增加应收','YS5','2024-03-10','恒丰',333,0,0,0,'甲',1"_s);
    entry(u"36,9,'增加应付','YF1','2024-03-10','环洋',60,0,0,60,'甲',0"_s);
    return rows;
}

/// How often a widget was shown.
class Shows : public QObject {
  public:
    explicit Shows(QWidget& widget) { widget.installEventFilter(this); }
    int Count() const { return count_; }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Show) ++count_;
        return false;
    }

  private:
    int count_ = 0;
};

class Ledger : public testing::Test {
  protected:
    QStringList Shown() {
        QStringList lines;
        auto& grid = desk.Grid();
        for (int row = 1; row < grid.Rows(); ++row) {
            QStringList cells;
            for (const int col : {0, 2, 3, 6, 7, 8, 9})
                if (grid.GridColWidth(col) > 0) cells += grid.TextMatrix(row, col);
            lines += cells.join(u'|');
        }
        return lines;
    }

    QString Headers() {
        QStringList texts;
        for (int col = 0; col < desk.Grid().Cols(); ++col)
            if (desk.Grid().GridColWidth(col) > 0) texts += desk.Grid().TextMatrix(0, col);
        return texts.join(u' ');
    }

    void Generate(const QString& unit) {
        desk.Enter(u"Cmb"_s);
        TypeOver(unit);
        desk.Push(u"Cmd"_s);
    }

    Program desk{Masters()};
};

TEST_F(Ledger, TheDetailShowsThePeriodLineByLine) {
    desk.Open(u"D8"_s, u"KuanMx"_s);
    EXPECT_EQ(desk.Frame().Front()->windowTitle(), u"应收帐款明细"_s);
    EXPECT_EQ(desk.Grid().accessibleName(), u"应收帐款明细"_s);
    EXPECT_EQ(Headers(), u"关系单位 单据号 业务类型 期初应收 本期增加应收 本期已收 期末应收"_s);
    // From the last day of the month before, whatever time of day; today is the 15th.
    EXPECT_EQ(Shown(), (QStringList{
                           u"华兴|YS1|增加应收|40.00|100.01||140.01"_s,
                           u"华兴|SK1|收款|||30.00|110.01"_s,
                           u"华兴|| 合  计 |40.00|100.01|30.00|110.01"_s,
                           u"恒丰|SK2||0.00||7.50|0.00"_s,
                           u"恒丰|YS2|增加应收||||-7.50"_s,
                           u"恒丰|| 合  计 |0.00|0.00|7.50|-7.50"_s,
                       }));
    EXPECT_EQ(desk.Status(), u"进出流水帐：共 5 条记录 当前为第 1 条"_s);
    const auto back = [&](int row, int col) {
        const QModelIndex cell = desk.Grid().model()->index(row - 1, col);
        return cell.data(Qt::BackgroundRole).value<QBrush>().color().name();
    };
    for (const int row : {3, 6})
        EXPECT_EQ((QStringList{back(row, 0), back(row, 2), back(row, 9), back(row - 1, 9)}),
                  (QStringList{u"#000000"_s, u"#c0ffff"_s, u"#c0ffff"_s, u"#000000"_s}));
    // The last line cannot be the current one, after a click either.
    ClickAt(*desk.Grid().viewport(), desk.Grid().CellRect(6, 0).center());
    EXPECT_EQ(desk.Grid().Row(), 1);
    Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(desk.Grid().Row(), 6);
    EXPECT_EQ(desk.Status(), u"进出流水帐：共 5 条记录 当前为第 5 条"_s);
}

TEST_F(Ledger, AFilterHasWildcardsAndOnlyTheDetailCutsIt) {
    desk.Execute(u"update TB1 set F3='华兴.南' where F1='SK1'"_s);
    desk.Open(u"D8"_s, u"KuanMx"_s);
    desk.Grid().SetRow(3);
    const QString status = desk.Status();
    const Shows panel(desk.At<QWidget>(u"cancelfrm"_s));
    Generate(u".丰"_s);
    EXPECT_EQ(Shown(), QStringList{u"||||||"_s}) << "a point in front cuts nothing";
    EXPECT_EQ(desk.Status(), status) << "nothing was built";
    EXPECT_EQ(panel.Count(), 1);
    EXPECT_FALSE(desk.Shown(u"cancelfrm"_s));
    Generate(u"华兴.南"_s);
    EXPECT_EQ(Shown(), (QStringList{u"华兴|YS1|增加应收|40.00|100.01||140.01"_s,
                                    u"华兴|| 合  计 |40.00|100.01|0.00|140.01"_s}));
    Generate(u"*兴*"_s);
    EXPECT_EQ(Shown().size(), 4);
    Generate(u"所有的"_s);
    EXPECT_EQ(Shown().size(), 7);
    AltKey(u'R');
    desk.Open(u"D7"_s, u"KuanHz"_s);
    Generate(u"华兴.南"_s);
    EXPECT_EQ(Shown().front(), u"华兴.南|140.01|0.00|30.00|110.01"_s);
}

TEST_F(Ledger, OneCounterpartyIsShownByItsNameAndNotByWildcards) {
    const QString name = u"3#仓[南]"_s;
    desk.Execute(u"update TB1 set F3='"_s + name + u"' where F1='SK1'"_s);
    desk.Execute(u"update TB1 set F3='33仓南' where F1='YS2'"_s);
    desk.Execute(u"update TB1 set F3='33仓[南]' where F1='SK2'"_s);
    auto& form = dynamic_cast<LedgerForm&>(desk.Open(u"D8"_s, u"KuanMx"_s));
    form.ShowUnit(name, QDate(2024, 3, 1), QDate(2024, 3, 31));
    EXPECT_EQ(Shown().value(0), name + u"|SK1|收款|140.01||30.00|110.01"_s);
    EXPECT_EQ(Shown().size(), 2);
    EXPECT_EQ(desk.At<controls::ComboBox>(u"Cmb"_s).Text(), name);
}

TEST_F(Ledger, TheSummaryAddsOverAllCounterparties) {
    desk.Open(u"D7"_s, u"KuanHz"_s);
    EXPECT_EQ(desk.Frame().Front()->windowTitle(), u"应收帐款总帐"_s);
    EXPECT_EQ(Headers(), u"关系单位 期初应收 增加应收 本期已收 期末应收"_s);
    EXPECT_EQ(Shown(), (QStringList{u"华兴|40.00|100.01|30.00|110.01"_s, u"恒丰|0.00|0.00|7.50|-7.50"_s,
                                    u"|40.00|100.01|37.50|102.51"_s}));
    EXPECT_EQ(desk.Status(), u"进出流水帐：共 2 条记录 当前为第 1 条"_s);
    desk.Frame().MenuItem(u"Menu_yfz"_s)->trigger();
    EXPECT_EQ(Headers(), u"关系单位 期初应付 增加应付 本期已付 期末应付"_s);
    EXPECT_EQ(Shown(), (QStringList{u"环洋|0.00|60.00|0.00|60.00"_s, u"|0.00|60.00|0.00|60.00"_s}));
}

TEST_F(Ledger, EntriesOfTheMenuMoveMarksAndBuildAnew) {
    desk.Open(u"D6"_s, u"KuanMx"_s);
    auto& bar = *desk.Frame().Front()->MenuBar();
    const QStringList before = Shown();
    EXPECT_EQ(before.size(), 2);
    desk.Execute(
        u"insert into TB1 (SN,LB,F1,F2,F3,YF,QC,QM,F6) values "
        u"(37,9,'YF2','2024-03-11','环洋',5,60,65,'甲')"_s);
    Find<QAction>(bar, u"Menu_S(3)"_s).trigger();
    Find<QAction>(bar, u"Menu_S(0)"_s).trigger();
    Find<QAction>(bar, u"Menu_Price(1)"_s).trigger();
    EXPECT_EQ(Shown().size(), 3);
    QStringList marked;
    for (const auto* action : bar.findChildren<QAction*>())
        if (action->isChecked()) marked += action->objectName();
    EXPECT_EQ(marked, (QStringList{u"Menu_S(0)"_s, u"Menu_Price(1)"_s}));
}

TEST_F(Ledger, OnlyTheAdministratorRefreshes) {
    OperatorCode = u"002"_s;
    desk.Open(u"D8"_s, u"KuanMx"_s);
    EXPECT_FALSE(desk.Enabled(u"Menu_Weihu"_s));
}

TEST_F(Ledger, TheRefreshRebuildsOneChainOrAllOfTheSide) {
    desk.Open(u"D8"_s, u"KuanMx"_s);
    QStringList captions;  // with "-" while the form takes no keys
    const auto maintain = [&](const std::function<void(QWidget&)>& drive) {
        ModalScript modals;
        modals.Next(u"ReKuanFrm"_s, [&](QWidget& form) {
            EXPECT_EQ(form.windowTitle(), u"刷新明细帐"_s);
            captions.clear();
            QObject::connect(&form, &QWidget::windowTitleChanged, &form, [&](const QString& caption) {
                captions += caption + (form.isEnabled() ? u""_s : u" -"_s);
            });
            drive(form);
            EXPECT_EQ(form.windowTitle(), u"刷新明细帐"_s);
            EXPECT_TRUE(form.isEnabled());
            Click(Find<controls::Button>(form, u"Command2"_s));
        });
        AltKey(u'S');
        Press(Qt::Key_Return);
        EXPECT_EQ(FocusName(), u"GD"_s) << "the bar gives the focus back";
    };
    const auto balances = [&](const QString& unit) {
        return desk.Rows(u"select QC,QM from TB1 where F3='"_s + unit + u"' order by SN"_s);
    };
    desk.Execute(u"update TB1 set QC=9,QM=9"_s);
    maintain([&](QWidget& form) {
        auto& unit = Find<controls::ComboBox>(form, u"Cmb"_s);
        EXPECT_EQ(unit.ListCount(), 2) << "without the item for all of them";
        auto& start = Find<controls::Button>(form, u"Command1"_s);
        desk.script.Box(u"请输入或选择要刷新的单位！"_s, {});
        Click(start);
        unit.SetText(u"环洋"_s);
        desk.script.Box(u"没有［环洋］这个单位！"_s, {});
        Click(start);
        unit.SetText(u" 恒丰"_s);
        desk.script.Box(u"刷新完成！"_s, {});
        Click(start);
    });
    EXPECT_EQ(captions, (QStringList{u"正在刷新 恒丰 -"_s, u"刷新完成！ -"_s, u"刷新明细帐"_s}));
    EXPECT_EQ(balances(u"华兴"_s), QStringList(4, u"9|9"_s));
    EXPECT_EQ(balances(u"恒丰"_s), (QStringList{u"0|-7.5"_s, u"-7.5|-7.496"_s, u"-7.496|103.504"_s,
                                                u"103.504|325.504"_s, u"325.504|658.504"_s}))
        << "rows that the ledger leaves out are in the chain";
    maintain([&](QWidget& form) {
        Press(Qt::Key_Tab, Qt::ShiftModifier);
        Press(Qt::Key_Up);
        EXPECT_TRUE(Find<QRadioButton>(form, u"Opt(0)"_s).isChecked());
        desk.script.Box(u"刷新完成！"_s, {});
        Click(Find<controls::Button>(form, u"Command1"_s));
    });
    EXPECT_EQ(captions,
              (QStringList{u"正在刷新 华兴 -"_s, u"正在刷新 恒丰 -"_s, u"刷新完成！ -"_s, u"刷新明细帐"_s}));
    EXPECT_EQ(balances(u"华兴"_s),
              (QStringList{u"0|40"_s, u"40|45"_s, u"45|145.005"_s, u"145.005|115.005"_s}))
        << "the channel's row too, by its name";
    EXPECT_EQ(balances(u"环洋"_s), QStringList{u"9|9"_s}) << "no name of this side";
}

}  // namespace
}  // namespace tests
