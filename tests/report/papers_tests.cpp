// The layouts, each with no row, one, a page and a page and one row: laid out, printed and read
// back.
#include "platform/report/pdf.h"
#include "tests/report/papers.h"
#include "tests/report/report_lab.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace tests {
namespace {

class ThePapers : public testing::TestWithParam<Paper> {
  protected:
    std::shared_ptr<const report::Document> With(int rows) {
        FillWorkTable(GetParam().layout, rows, [&](const QString& sql) { lab.company.Run(sql); });
        return lab.LayOutFile(QStringLiteral(LAYOUTS) + u'/' + GetParam().layout, GetParam().formulas);
    }
    /// The most rows that one page holds with all that belongs to them.
    int RowsOfAPage() {
        int rows = 1;
        while (With(rows + 1)->Pages() == 1) ++rows;
        return rows;
    }
    ReportLab lab;
};

TEST_P(ThePapers, HoldWhatTheyAreGiven) {
    lab.company.Run({u"update CompanyInfo set F1='甲速递有限公司'"_s,
                     u"insert into M01 (F1,F2) values ('Q1','环洋')"_s,
                     u"insert into M03 (F1,F2) values ('C1','华兴电子')"_s});
    EXPECT_EQ(With(0)->Pages(), 1);
    EXPECT_EQ(With(1)->Pages(), 1);
    if (GetParam().layout == u"prntc05.rpt") return;  // one notice a page
    const int full = RowsOfAPage();
    EXPECT_GT(full, 10);
    for (const int rows : {full, full + 1, 3 * full}) {
        const auto document = With(rows);
        if (rows <= full + 1) {
            EXPECT_EQ(document->Pages(), rows == full ? 1 : 2);
        }
        const QString last = ReportLab::Texts(*document, document->Pages() - 1).join(u'|');
        // Under two rows there is no total and no signature on the last page.
        const QString number = u"KV%1"_s.arg(rows - 1, 6, 10, QChar(u'0'));
        const bool numbered =
            GetParam().layout.contains(QRegularExpression(u"prntc0[1-4]|prntd|prntscan|prntunrel|kuanmx"_s));
        EXPECT_TRUE(!numbered || last.contains(number)) << last.toStdString();
        EXPECT_TRUE(last.endsWith(u"第 %1 页  共 %1 页"_s.arg(document->Pages()))) << last.toStdString();
    }
}

TEST_P(ThePapers, ReadBackWholeFromThePdf) {
    const auto document = With(GetParam().layout == u"prntc05.rpt" ? 1 : 70);
    const QString path = lab.Folder() + u"/paper.pdf"_s;
    report::WritePdf(*document, path);
    QStringList laid, read;
    for (int page = 0; page < document->Pages(); ++page)
        for (const QString& text : ReportLab::Texts(*document, page))
            for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) laid += word;
    for (const PdfWord& word : ReadPdf(path)) read += word.text;
    // The reader divides and joins words by their gaps, so characters are counted, not words.
    QString a = laid.join(QString()), b = read.join(QString());
    std::ranges::sort(a);
    std::ranges::sort(b);
    EXPECT_EQ(a.toStdString(), b.toStdString());
}

TEST_P(ThePapers, AreAsTheSchemaForEditorsSays) {
    if (QStandardPaths::findExecutable(u"xmllint"_s).isEmpty()) GTEST_SKIP() << "xmllint is not installed";
    QProcess checker;
    checker.start(u"xmllint"_s, {u"--noout"_s, u"--schema"_s, QStringLiteral(LAYOUTS "/report.xsd"),
                                 QStringLiteral(LAYOUTS "/") + GetParam().layout});
    ASSERT_TRUE(checker.waitForFinished());
    EXPECT_EQ(checker.exitCode(), 0) << checker.readAllStandardError().toStdString();
}

std::string NameOf(const testing::TestParamInfo<Paper>& info) {
    return info.param.layout.chopped(4).toStdString();
}
INSTANTIATE_TEST_SUITE_P(Each, ThePapers, testing::ValuesIn(Papers()), NameOf);

}  // namespace
}  // namespace tests
