// What is not released in the sample company, numbers scanned for it and the manifest of these, as in the
// expected file (tests/support/expected.h says how to renew it).
#include "tests/reports/report_desk.h"
#include "tests/support/expected.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

TEST(SampleRelease, IsAsExpected) {
    ReportDesk desk({}, {.file = QStringLiteral(SAMPLE_COMPANY "/tessik.dat")});
    desk.script.SetNow(QDateTime(QDate(2024, 11, 24), QTime(17, 30)));
    desk.Frame().ShowChild(u"Unreleased"_s);
    Settle();
    QStringList lines =
        QStringList{u"-- 未出货、未审核"_s} + desk.Lines() + QStringList{u"-- "_s + desk.Status()};
    QStringList numbers;
    for (const QString& line : desk.Lines().first(8)) numbers += line.section(u'|', 0, 0);
    numbers << numbers[2].toLower() << u"YL24112101"_s << u"NO'WHERE"_s;
    desk.PrintList();
    lines += QStringList{desk.Layout()} + desk.Formulas() + desk.Rows(u"select F1,F6,F7,F8 from PRNTC04"_s);
    lines += desk.PdfLines();
    AltKey(u'R');
    AltKey(u'R');

    desk.Frame().ShowChild(u"ScanRelease"_s);
    Settle();
    for (const QString& number : numbers) {
        Type(number);
        Press(Qt::Key_Return);
    }
    lines += u"-- 扫描出货"_s;
    lines += desk.Lines() + QStringList{u"-- "_s + desk.Status()};
    auto& channels = desk.At<controls::ComboBox>(u"Cmb"_s);
    for (const int channel : {0, channels.ListCount() - 1}) {
        channels.SetListIndex(channel);
        lines += u"-- "_s + channels.Text();
        desk.PrintList(channel == 0 ? 0 : 1);
        lines += QStringList{desk.Layout()} + desk.Formulas() + desk.Rows(u"select * from PRNTC01"_s);
        lines += desk.PdfLines();
        AltKey(u'R');
    }
    desk.PrintList(3);
    lines += u"-- 扫描清单"_s;
    lines += QStringList{desk.Layout()} + desk.Formulas() + desk.Rows(u"select * from PRNTC05"_s);
    lines += desk.PdfLines();
    ExpectAsInFile(QStringLiteral(EXPECTED "/release.txt"), lines.join(u'\n') + u'\n');
}

}  // namespace
}  // namespace tests
