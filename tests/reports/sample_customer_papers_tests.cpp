// The quote sheets and the invoice accounts' papers over the sample company, as in the expected files
// (tests/support/expected.h says how to renew them).
#include "tests/reports/report_desk.h"
#include "tests/support/expected.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

class SampleCustomerPapers : public testing::Test {
  protected:
    void Show(const QString& form) {
        sys::Guarded([&] { desk.Frame().ShowChild(form); });
        Settle();
    }
    /// Of the report in the preview, which is closed then.
    void Read(const QString& work) {
        lines += u"-- "_s + desk.Layout();
        lines += desk.Formulas();
        lines += u"-- "_s + work;
        lines += desk.Rows(u"select * from "_s + work);
        lines += u"-- PDF"_s;
        lines += desk.PdfLines();
        AltKey(u'R');
    }
    void Compare(const QString& file) {
        ExpectAsInFile(QStringLiteral(EXPECTED "/") + file, lines.join(u'\n') + u'\n');
    }

    ReportDesk desk{{}, {.file = QStringLiteral(SAMPLE_COMPANY "/tessik.dat")}};
    QStringList lines;
};

TEST_F(SampleCustomerPapers, TheQuoteSheetsShareTheZonesBetweenThem) {
    Show(u"A03"_s);
    desk.GoToRow(4);
    for (const int sheet : {0, 1}) {
        AltKey(u'P');
        for (int i = 0; i < sheet; ++i) Press(Qt::Key_Down);
        Press(Qt::Key_Return);
        Read(u"PRNTM03"_s);
    }
    Compare(u"quote_sheets.txt"_s);
}

TEST_F(SampleCustomerPapers, TheInvoiceAccountsAreListedAndPrinted) {
    desk.script.SetNow(QDateTime(QDate(2024, 10, 31), QTime(10, 0)));
    for (const auto& form : {u"D2"_s, u"D3"_s}) {
        Show(form);
        lines += u"-- "_s + desk.Frame().Front()->windowTitle();
        lines += desk.Lines();
        lines += u"-- "_s + desk.Status();
    }
    for (const auto key : {u'P', u'M'}) {
        AltKey(key);
        Read(u"PRTB2"_s);
    }
    Compare(u"invoices.txt"_s);
}

}  // namespace
}  // namespace tests
