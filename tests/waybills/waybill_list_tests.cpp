// The waybills' list and its commands: releasing, deleting, the calculator, and who may do what.
#include "tests/support/files.h"
#include "tests/support/program.h"
#include "tests/waybills/waybill_company.h"
#include "waybills/waybill_fields.h"

#include <gtest/gtest.h>

using namespace waybills;

namespace tests {
namespace {

const QString NoWaybill = u"速递单：无单据信息"_s;

/// A waybill of customer C1 through channel H1, priced and costed, with its rows in the journal.
QStringList Waybill(const QString& number, const QString& day, const QString& mark) {
    const auto row = [&](const QString& side, const QString& party, int sn) {
        return u"insert into TB1 (SN,LB,F1,F2,F3,YF,QC,QM,F6) values ("_s + QString::number(sn) + u",-9,'"_s +
               side + number + u"','"_s + day + u"','"_s + party + u"',10,0,10,'管理员')"_s;
    };
    return {u"insert into B01 (F1,F101,F203,F2031,F201,F202,F301,F501,F504,F507,F602,F603,F604) VALUES ('"_s +
                number + u"','"_s + day + u"','Z1','纽约','上海','H1','S','月结',50,30,'张三','C1','"_s +
                mark + u"')"_s,
            row(u"YS"_s, u"华兴"_s, 131), row(u"YF"_s, u"环洋"_s, 132)};
}

class WaybillList : public Program {
  public:
    explicit WaybillList(const QStringList& rows, const QString& operatorCode = u"001"_s)
        : Program(WaybillMasters() + rows, operatorCode) {
        Open(u"B"_s, u"B01"_s);
    }
    /// The numbers in the list.
    QString Numbers() {
        QStringList numbers;
        for (const QString& line : Lines()) numbers += line.section(u'|', 0, 0);
        return numbers.join(u' ');
    }
    QString Marks() { return Rows(u"select F604 from B01 order by F1"_s).join(u' '); }
    QString JournalKeys() { return Rows(u"select F1 from TB1 order by F1"_s).join(u' '); }
    void AskedToDelete(const QString& number, bool yes) {
        script.Question(u"数据删除后将不可恢复！\r真的要删除单号为:"_s + number + u"的单据吗？"_s, u"警告"_s,
                        yes);
    }
    void Reload() {
        AltKey(u'R');
        Open(u"B"_s, u"B01"_s);
    }
};

const QStringList ThreeWaybills = Waybill(u"W1"_s, u"2024-03-01"_s, u"未审核"_s) +
                                  Waybill(u"W2"_s, u"2024-03-02"_s, u"未出货"_s) +
                                  Waybill(u"W3"_s, u"2024-03-03"_s, u"未审核"_s);

TEST(Release, TakesTheWaybillOffTheListUntilTheNextLoad) {
    WaybillList form(ThreeWaybills);
    form.Grid().SetRow(2);
    AltKey(u'C');
    EXPECT_EQ(form.Numbers(), u"W1 W3"_s);
    EXPECT_EQ(form.Status(), u"速递单：共 2 条记录 当前为第 2 条"_s)
        << "the line that came up is the current one";
    EXPECT_EQ(form.Marks(), u"未审核 管理员 未审核"_s);
    AltKey(u'C');
    EXPECT_EQ(form.Numbers(), u"W1"_s);
    AltKey(u'C');
    EXPECT_EQ(form.Numbers(), u""_s);
    EXPECT_EQ(form.Status(), NoWaybill);
    EXPECT_EQ(form.JournalKeys(), u"YFW1 YFW2 YFW3 YSW1 YSW2 YSW3"_s) << "releasing posts nothing";
    form.script.Box(u"该单已经出货!不能再次进行出货操作"_s, Title);
    AltKey(u'C');  // on the blank line
    form.Reload();
    EXPECT_EQ(form.Lines().value(1).section(u'|', 9, 9), u"管理员"_s);
    form.Execute(u"update B01 set F604='小王' where F1='W1'"_s);
    form.script.Box(u"该单已经出货!不能再次进行出货操作"_s, Title);
    AltKey(u'C');
    EXPECT_EQ(form.Marks(), u"小王 管理员 管理员"_s) << "the first name stays";
}

TEST(Release, OnTheCardShowsTheWaybillBefore) {
    for (const auto& [row, shown] : {std::pair(2, u"W1"_s), std::pair(1, u"W2"_s)}) {
        WaybillList form(ThreeWaybills);
        form.Grid().SetRow(row);
        form.Tabs().SelectItem(2);
        AltKey(u'C');
        EXPECT_EQ(form.Box(Number), shown);
    }
}

TEST(Delete, TakesTheWaybillAndItsTwoRowsAndRollsNoChain) {
    WaybillList form(ThreeWaybills);
    form.AskedToDelete(u"W1"_s, false);
    AltKey(u'D');
    EXPECT_EQ(form.Numbers(), u"W1 W2 W3"_s);
    form.AskedToDelete(u"W1"_s, true);
    AltKey(u'D');
    EXPECT_EQ(form.Numbers(), u"W2 W3"_s);
    EXPECT_EQ(form.JournalKeys(), u"YFW2 YFW3 YSW2 YSW3"_s);
    EXPECT_EQ(form.Rows(u"select sum(QM) from TB1"_s), QStringList{u"40"_s});
    // After a release the list is shorter than its count; the last line can be deleted all the same.
    AltKey(u'C');
    form.Tabs().SelectItem(2);
    form.AskedToDelete(u"W3"_s, true);
    AltKey(u'D');
    EXPECT_EQ(form.Tabs().SelectedItem(), 1);
    EXPECT_EQ(form.Numbers(), u""_s);
    EXPECT_EQ(form.Status(), NoWaybill);
    AltKey(u'D');  // nothing is left to ask about
    EXPECT_EQ(form.Marks(), u"管理员"_s);
}

TEST(Rights, DecideOnAWaybillsFiguresEditAndDelete) {
    struct Row {
        QString code;
        int mayEditReleased, seesFigures;
        bool readsCost, edits, deletes;
    };
    const Row rows[] = {{u"001"_s, 0, 0, true, true, true},
                        {u"002"_s, 0, 0, false, false, false},
                        {u"002"_s, 1, 1, false, true, false},
                        {u"002"_s, 0, 1, false, false, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.code.toStdString() + (row.mayEditReleased ? " edits" : "") +
                     (row.seesFigures ? " sees" : ""));
        const QString rights = u" F61=1,F64=%1,F65=%2 where F1='%3'"_s.arg(row.mayEditReleased)
                                   .arg(row.seesFigures)
                                   .arg(row.code);
        WaybillList form(
            Waybill(u"W1"_s, u"2024-03-01"_s, u"小王"_s) + Waybill(u"W2"_s, u"2024-03-02"_s, u"未审核"_s) +
                QStringList{u"insert into TE1 (F1,F2) VALUES ('002','小王')"_s, u"update TE1 set"_s + rights},
            row.code);
        const auto* cost = static_cast<QLineEdit*>(form.TextBoxAt(ShippingCost).Widget());
        EXPECT_EQ(cost->echoMode() == QLineEdit::Normal, row.readsCost);
        if (!row.edits) form.script.Box(u"该速递单已经审核出货,您没有修改权限!"_s, Title);
        AltKey(u'E');
        EXPECT_EQ(EditInProgress, row.edits);
        if (row.edits) AltKey(u'C');
        if (row.deletes)
            form.AskedToDelete(u"W1"_s, true);
        else
            form.script.Box(u"该速递单已经审核出货,非系统管理员,无权删除!"_s, Title);
        AltKey(u'D');
        EXPECT_EQ(form.Numbers(), row.deletes ? u"W2"_s : u"W1 W2"_s);
        form.Tabs().SelectItem(1);
        form.Grid().SetRow(form.Grid().Rows() - 1);
        AltKey(u'C');
        EXPECT_EQ(form.Rows(u"select F604 from B01 where F1='W2'"_s), QStringList{OperatorName})
            << "whoever has the form releases";
    }
}

TEST(Calculator, IsTheFileInTheProgramsFolder) {
    WaybillList form({});
    form.script.Box(u"计算器(jisuan.exe)文件丢失！\r请找到jisuan.exe文件，并复制到本系统所在文件夹内！"_s,
                    Title);
    AltKey(u'J');
    const QString path = AppFolder + u"jisuan.exe"_s;
    Write(path, {});
    form.script.Start(path);
    AltKey(u'J');
    form.script.Start(path, false);
    form.script.Box(u"计算器(jisuan.exe)无法启动！"_s, Title);
    AltKey(u'A');
    AltKey(u'J');
    EXPECT_TRUE(EditInProgress) << "an edit goes on beside it";
    AltKey(u'C');
}

}  // namespace
}  // namespace tests
