// 渠道帐单核对 by keys over the sample company: a bill as CSV and as .xls against the expected file
// (tests/support/expected.h says how to renew it), the kept columns, and what is refused.
#include "platform/workbook/workbook.h"
#include "tests/support/expected.h"
#include "tests/support/program.h"

#include <QTemporaryDir>

namespace tests {
namespace {

class ChannelBillForm : public testing::Test, public Program {
  protected:
    ChannelBillForm() : Program({}, u"001"_s, {.file = QStringLiteral(SAMPLE_COMPANY "/tessik.dat")}) {
        script.SetNow(QDateTime(QDate(2024, 12, 2), QTime(9, 0)));
        Frame().ShowChild(u"ChannelBill"_s);
        Settle();
    }
    void ChooseFile(const QString& path) {
        script.File(u"选择渠道帐单"_s, path);
        Push(u"Cmd(0)"_s);
    }
    void SetPeriod(QDate from, QDate to) {
        for (const auto& [name, date] : {std::pair{u"DTP(0)"_s, from}, {u"DTP(1)"_s, to}}) {
            Enter(name);
            Type(date.toString(u"yyyyMMdd"_s));
        }
    }
    QStringList Sums() {
        auto& grid = At<controls::FlexGrid>(u"GDSum"_s);
        QStringList lines;
        for (int row = 1; row < grid.Rows(); ++row) {
            QStringList cells;
            for (int col = 0; col < grid.Cols(); ++col) cells += grid.TextMatrix(row, col);
            lines += cells.join(u'|');
        }
        return lines;
    }
    QString Columns() {
        QStringList texts;
        for (int combo = 2; combo <= 5; ++combo) texts += Combo(combo);
        for (int box = 1; box <= 3; ++box) texts += Box(box);
        return texts.join(u'|');
    }

    QTemporaryDir folder_;
};

TEST_F(ChannelBillForm, FindsWhatDiffersInEachFormat) {
    const QByteArray csv = Bytes(QStringLiteral(HERE "/q1.csv"));
    SetCombo(0, u"Q1"_s);
    SetPeriod(QDate(2024, 11, 11), QDate(2024, 11, 14));
    ChooseFile(QStringLiteral(HERE "/q1.csv"));
    EXPECT_EQ(Columns(), u"运单号|B 运单编号|D 计费重(KG)|E 应付金额(元)|4|0.00|0.00"_s);
    SetBox(3, u"0.01"_s);
    Push(u"Cmd(1)"_s);
    const QStringList lines = Lines();
    ExpectAsInFile(
        QStringLiteral(HERE "/expected/q1.txt"),
        (lines + QStringList{u"--"_s} + Sums() + QStringList{u"-- "_s + Status()}).join(u'\n') + u'\n');
    // The same cells as a workbook, whose columns are the kept ones, though they have moved.
    workbook::Writer book(workbook::Format::Biff8, u"帐单"_s);
    for (const QString& line : QString::fromUtf8(csv).split(u'\n', Qt::SkipEmptyParts)) {
        book.NextRow();
        for (const QString& cell : QString(line)
                                       .replace(u"\"12,303.02\""_s, u"12303.02"_s)
                                       .replace(u"\"4,828.60\""_s, u"4828.60"_s)
                                       .replace(u"\"48,000.00\""_s, u"48000"_s)
                                       .split(u','))
            book.Add(cell);
    }
    book.Save(folder_.filePath(u"q1.xls"_s));
    ChooseFile(folder_.filePath(u"q1.xls"_s));
    EXPECT_EQ(Lines().join(u""_s).remove(u'|'), u""_s) << "another file empties the result";
    EXPECT_EQ(Columns(), u"运单号|B 运单编号|D 计费重(KG)|E 应付金额(元)|4|0.00|0.01"_s);
    Push(u"Cmd(1)"_s);
    EXPECT_EQ(Lines(), lines);
    Enter(u"Cmb(6)"_s);
    for (int down = 0; down < 5; ++down) Press(Qt::Key_Down);
    EXPECT_EQ(Lines().size(), 2);
    EXPECT_EQ(Rows(u"select F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11 from M012"_s),
              QStringList{u"Q1|0|1|3|4|3|0|0.01|运单编号|计费重(KG)|应付金额(元)"_s});
}

TEST_F(ChannelBillForm, KeepsTheColumnsOfAChannelByTheirHeadings) {
    Execute(
        u"insert into M012 (F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11) VALUES ('Q1',1,1,-1,2,1,0,0.5,'快件号','','结算')"_s);
    const QString path = folder_.filePath(u"a.csv"_s);
    Write(path, u"序号,日期,快件号,重量,结算\n1,2024-11-01,7,1,2\n"_s.toUtf8());
    SetCombo(0, u"Q1"_s);
    ChooseFile(path);
    EXPECT_EQ(Columns(), u"转单号|C 快件号|无|E 结算|2|0.00|0.50"_s);
    SetCombo(0, u"Q2"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(Columns(), u"运单号|无|无|无|2|0.00|0.00"_s);
}

TEST_F(ChannelBillForm, SaysByForwardingNumberWhereAWaybillIs) {
    Execute(u"insert into B01 (F1,F101,F102,F202,F604) values ('WX1','2024-11-12','ZD77','Q2','甲')"_s);
    const QString path = folder_.filePath(u"a.csv"_s);
    Write(path, u"转单号,金额\nzd77,5\n"_s.toUtf8());
    SetCombo(0, u"Q1"_s);
    ChooseFile(path);
    Push(u"Cmd(1)"_s);
    const QString where =
        u"我方 WX1，2024-11-12，渠道 Q2."_s + Rows(u"select F2 from M01 where F1='Q2'"_s)[0];
    EXPECT_TRUE(Lines().filter(u"渠道独有"_s).join(u'\n').endsWith(where));
}

TEST_F(ChannelBillForm, RefusesWithAMessageAndStaysUsable) {
    const auto refuses = [&](const QString& message) {
        script.Box(message, Title);
        Push(u"Cmd(1)"_s);
        EXPECT_TRUE(script.Done()) << message.toStdString();
    };
    refuses(u"请选择渠道!"_s);
    SetCombo(0, u"Q'1"_s);
    refuses(u"您输入的渠道编码无效！"_s);
    SetCombo(0, u"QX9"_s);
    refuses(u"您输入的渠道编码无效！"_s);
    SetCombo(0, u"Q1"_s);
    refuses(u"请选择帐单文件!"_s);
    Write(folder_.filePath(u"bad.xlsx"_s), "PK\3\4 no workbook");
    script.File(u"选择渠道帐单"_s, folder_.filePath(u"bad.xlsx"_s));
    script.Box(u"文件已损坏，或者不是工作簿！"_s, Title);
    Push(u"Cmd(0)"_s);
    ChooseFile(QString());
    EXPECT_EQ(Box(0), u""_s);
    ChooseFile(QStringLiteral(HERE "/q1.csv"));
    EXPECT_EQ(Box(0), u"q1.csv"_s);
    SetCombo(0, u"Q'1"_s);
    SetBox(2, u"0"_s);
    EXPECT_EQ(Combo(3), u"B 运单编号"_s);
    SetCombo(0, u"Q1"_s);
    SetBox(2, u"x"_s);
    refuses(u"重量允差应为不小于 0 的数字!"_s);
    SetBox(2, u"0"_s);
    SetBox(3, u"-1"_s);
    refuses(u"费用允差应为不小于 0 的数字!"_s);
    SetBox(3, u"0"_s);
    SetBox(1, u"22"_s);
    refuses(u"数据起始行应为 1 到 21 的整数!"_s);
    SetBox(1, u"4"_s);
    SetPeriod(QDate(2024, 11, 2), QDate(2024, 11, 1));
    refuses(u"起始日期晚于截止日期!"_s);
    SetPeriod(QDate(2024, 11, 1), QDate(2024, 11, 2));
    ComboAt(3).SetListIndex(0);
    refuses(u"请选择单号列!"_s);
    ComboAt(3).SetListIndex(2);
    for (const int column : {4, 5}) ComboAt(column).SetListIndex(0);
    refuses(u"请选择重量列或费用列!"_s);
    EXPECT_EQ(Rows(u"select F1 from M012"_s), QStringList());
}

}  // namespace
}  // namespace tests
