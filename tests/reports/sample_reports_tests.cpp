// Every report over the sample company: grid, status, formulas, work table and the lines of the PDF, as in
// the expected files (tests/support/expected.h says how to renew them).
#include "tests/reports/report_desk.h"
#include "tests/support/expected.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

struct Report {
    const char* name;  ///< of the expected file
    QString keys, form, choice;
    QDate from, to;
    int entry;  ///< of the menu 打印, -1 where that is the command
    QString work;
};

const Report Reports[] = {
    {"c011", u"C1"_s, u"C01"_s, u"Q1"_s, QDate(2024, 11, 20), {}, 0, u"PRNTC01"_s},
    {"c012", u"C1"_s, u"C01"_s, u"Q1"_s, QDate(2024, 11, 20), {}, 1, u"PRNTC01"_s},
    {"c013", u"C1"_s, u"C01"_s, u"Q1"_s, QDate(2024, 11, 20), {}, 2, u"PRNTC01"_s},
    {"c02", u"C2"_s, u"C02"_s, u"SH001"_s, QDate(2024, 11, 1), QDate(2024, 11, 23), -1, u"PRNTC023"_s},
    {"c03", u"C3"_s, u"C03"_s, u"Q1"_s, QDate(2024, 11, 11), QDate(2024, 11, 23), -1, u"PRNTC023"_s},
    {"c04", u"C4"_s, u"C04"_s, {}, QDate(2024, 11, 21), QDate(2024, 11, 23), -1, u"PRNTC04"_s},
    {"kuanmx_payable", u"D6"_s, u"KuanMx"_s, {}, QDate(2024, 11, 18), QDate(2024, 11, 19), -1, u"Plist"_s},
    {"kuanmx_receivable", u"D8"_s, u"KuanMx"_s, {}, QDate(2024, 11, 22), QDate(2024, 11, 23), -1, u"Plist"_s},
    {"kuanhz_payable", u"D5"_s, u"KuanHz"_s, {}, QDate(2024, 11, 1), QDate(2024, 11, 23), -1, u"PrTA1"_s},
    {"kuanhz_receivable", u"D7"_s, u"KuanHz"_s, {}, QDate(2024, 11, 22), QDate(2024, 11, 23), -1, u"PrTA1"_s},
    {"c06", u"C6"_s, u"C06"_s, {}, QDate(2024, 9, 1), QDate(2024, 11, 23), -1, u"PRNTC04"_s},
};

class SampleReports : public testing::TestWithParam<Report> {};

TEST_P(SampleReports, AreAsExpected) {
    const Report& report = GetParam();
    ReportDesk desk({}, {.file = QStringLiteral(SAMPLE_COMPANY "/tessik.dat")});
    desk.Open(report.keys, report.form);
    desk.Refresh(report.choice, report.from, report.to);
    QStringList lines = desk.Lines();
    lines.prepend(u"-- "_s + desk.Frame().Front()->windowTitle());
    lines += u"-- "_s + desk.Status();
    desk.PrintList(report.entry);
    lines += u"-- "_s + desk.Layout();
    lines += desk.Formulas();
    lines += u"-- "_s + report.work;
    lines += desk.Rows(u"select * from "_s + report.work);
    lines += u"-- PDF"_s;
    lines += desk.PdfLines();
    ExpectAsInFile(QStringLiteral(EXPECTED "/%1.txt").arg(QString::fromLatin1(report.name)),
                   lines.join(u'\n') + u'\n');
}

INSTANTIATE_TEST_SUITE_P(Each, SampleReports, testing::ValuesIn(Reports),
                         [](const auto& report) { return std::string(report.param.name); });

}  // namespace
}  // namespace tests
