// The statements of all customers of the sample company, written in one go: their rows, sums and papers are
// those of the single statement, and the list of them is as in the expected file.
#include "tests/reports/report_desk.h"
#include "tests/support/expected.h"
#include "tests/support/workbooks.h"

#include <QDir>

#include <gtest/gtest.h>

namespace tests {
namespace {

const QDate From(2024, 11, 1), To(2024, 11, 23);

class SampleBatch : public testing::Test {
  protected:
    QString Path(const QString& file) { return folder.filePath(file); }
    QStringList Files() { return QDir(folder.path()).entryList(QDir::Files, QDir::Name); }

    /// For all customers of the period.
    void Generate(int customers) {
        desk.Frame().ShowChild(u"BatchStatements"_s);
        desk.Refresh({}, From, To);
        EXPECT_EQ(desk.Status(), u"共 %1 个客户 已选 %1 个"_s.arg(customers));
        desk.Enter(u"Txt(0)"_s);
        TypeOver(folder.path());
        desk.script.Box(
            u"已生成 %1 个客户的对帐单。\r汇总表：对帐单汇总_2024-11-01至2024-11-23.xls"_s.arg(customers),
            MsgTitle);
        desk.Push(u"Cmd(1)"_s);
        EXPECT_TRUE(desk.script.Done());
        AltKey(u'R');
    }

    QTemporaryDir folder;
    ReportDesk desk{{}, {.file = QStringLiteral(SAMPLE_COMPANY "/tessik.dat")}};
};

/// The rows of a sheet, cells joined by "|", without that of the field names.
QStringList RowsOf(const Workbook& book) {
    QStringList lines;
    for (const QStringList& row : book.rows.mid(1)) lines += row.join(u'|');
    return lines;
}

TEST_F(SampleBatch, HasTheSingleStatementOfEachCustomer) {
    constexpr int customers = 12, papers = 3;
    Generate(customers);
    QStringList pdfs = Files().filter(u".pdf"_s);
    ASSERT_EQ(pdfs.size(), customers);
    const Workbook summary = ReadWorkbook(Path(Files().filter(u"汇总"_s).value(0)));
    ASSERT_EQ(summary.rows.size(), customers + 3);
    QStringList expected = QStringList{u"-- 文件"_s} + Files() + QStringList{u"-- 汇总"_s} + RowsOf(summary);
    QStringList paths;
    for (const QStringList& row : summary.rows.mid(2, customers)) paths += Path(row[5] + u".xls"_s);
    const QList<Workbook> books = ReadWorkbooks(paths);
    for (int i = 0; i < customers; ++i) {
        const QStringList row = summary.rows[i + 2];
        const Workbook& book = books[i];
        QStringList rows = RowsOf(book);
        if (i == 0) expected += QStringList{u"-- "_s + row[5]} + rows;
        EXPECT_EQ(rows.takeFirst(),
                  u"日期|运单号|D/S|目的地|重量|基本费用|附加费用|燃油费率|其它费用|运费"_s);
        desk.Open(u"C2"_s, u"C02"_s);
        desk.Refresh(row[0], From, To);
        EXPECT_EQ(rows, desk.Lines()) << row[5].toStdString();
        EXPECT_EQ(book.rows.back()[4] + u'|' + book.rows.back()[9], row[3] + u'|' + row[4]);
        if (i < papers) {
            desk.PrintList();
            EXPECT_EQ(PdfLinesOf(Path(row[5] + u".pdf"_s)), desk.PdfLines()) << row[5].toStdString();
            AltKey(u'R');
        }
        AltKey(u'R');
    }
    ExpectAsInFile(QStringLiteral(EXPECTED "/batch.txt"), expected.join(u'\n') + u'\n');
}

}  // namespace
}  // namespace tests
