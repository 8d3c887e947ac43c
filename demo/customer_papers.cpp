#include "demo/customer_papers.h"

#include "app/main_window.h"
#include "demo/day_entries.h"
#include "demo/reports.h"

using namespace Qt::StringLiterals;

namespace demo {
namespace {

void PlayQuoteSheets(Operator& op, const QString& folder) {
    op.Command(u"A5"_s);
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_Home);
    const QString sheets[] = {u"国际报价表"_s, u"国内报价表"_s};
    for (int sheet = 0; sheet < 2; ++sheet) {
        op.Command(u"P"_s);
        if (sheet == 0) op.Picture(u"quote-sheet-menu"_s, u"客户资料：打印报价表"_s);
        for (int down = 0; down < sheet; ++down) op.Press(Qt::Key_Down);
        op.Press(Qt::Key_Return);
        SavePaper(op, folder + u'/' + sheets[sheet] + u".pdf"_s, u"quote-sheet"_s, sheets[sheet]);
        op.ExpectText(u"Txt(1)"_s, kCustomer);
    }
    op.Command(u"R"_s);
}

/// No menu leads to these forms.
void Show(Operator& op, const QString& form) {
    op.Do(u"打开 "_s + form, [form] { TheFrame().ShowChild(form); });
}

void PlayInvoicePayment(Operator& op) {
    Show(op, u"D2"_s);
    op.Command(u"A"_s);
    op.ExpectWindow(u"D201"_s);
    op.TypeOver(u"SH001"_s);
    op.EnterTo(u"Txt(0)"_s);
    op.Type(u"FH241018003"_s);
    op.EnterTo(u"Txt(1)"_s);
    op.Type(u"2000"_s);
    op.Picture(u"invoice-payment"_s, u"付款登记"_s);
    op.EnterTo(u"Command1"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"MForm"_s);
    op.ExpectRows(u"select F1,F3,F4,F5 from TD2 where F2='FH241018003'"_s,
                  {u"SH001|2024-11-25|2000|1826.74"_s});
    op.ExpectStatus(u"客户付款记录：共 25 条记录 当前为第 25 条"_s);
    op.Picture(u"invoice-payments"_s, u"客户付款记录"_s);
    op.Command(u"R"_s);
}

void PlaySales(Operator& op, const QString& folder) {
    Show(op, u"D3"_s);
    op.TabTo(u"DTP(0)"_s);
    op.Type(u"20241001"_s);
    op.EnterTo(u"Cmd"_s);
    op.Press(Qt::Key_Return);
    op.ExpectStatus(u"销售统计报表：共 36 条记录 当前为第 1 条"_s);
    op.Picture(u"sales"_s, u"销售统计报表"_s);
    const struct {
        QString key, paper;
    } papers[] = {{u"P"_s, u"销售帐款统计报表"_s}, {u"M"_s, u"客户月结单"_s}};
    for (const auto& [key, paper] : papers) {
        op.Command(key);
        SavePaper(op, folder + u'/' + paper + u".pdf"_s, u"sales"_s, paper);
    }
    op.Command(u"R"_s);
}

}  // namespace

void PlayCustomerPapers(Operator& op, const QString& folder) {
    PlayQuoteSheets(op, folder);
    PlayInvoicePayment(op);
    PlaySales(op, folder);
}

}  // namespace demo
