#include "accounts/ledger_print.h"

#include "accounts/ledger_rows.h"
#include "app/data_access.h"
#include "app/session.h"
#include "platform/controls/wait.h"
#include "platform/text/dates.h"
#include "reports/printing.h"

using namespace Qt::StringLiterals;

namespace accounts {
namespace {

QString Period(const LedgerPrint& print, const QString& between) {
    return Formula(u"rq"_s, text::DateText(print.from) + between + text::DateText(print.to));
}

}  // namespace

/// The grid's last line, the total of the last group, is not printed; required by the business.
void PrintDetail(const LedgerPrint& print) {
    const controls::WaitPointer wait;
    Db->Execute(u"delete from Plist"_s);
    for (int row = 1; row <= print.grid.Rows() - 2; ++row) {
        QString values = Quoted(u"%1"_s.arg(row, 4, 10, QChar(u'0'))) + u',';
        for (int col = 0; col < LedgerColumns; ++col)
            values += Quoted(print.grid.TextMatrix(row, col)) + u',';
        Db->Execute(u"Insert into Plist (F0,F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,V1) VALUES("_s + values +
                    QString::number(row) + u')');
    }
    const bool payable = print.LB == 10;
    RunReport(u"kuanmx.rpt"_s,
              {Formula(u"Cpt"_s, payable ? u"应付款明细帐"_s : u"应收款明细帐"_s),
               Formula(u"khbm"_s, payable ? u"供货商编号："_s : u"客户编号："_s), Period(print, u" - "_s)});
}

/// Its title on the receivable side is not the form's caption; required by the business.
void PrintSummary(const LedgerPrint& print) {
    constexpr int printed[] = {Unit, Name2, Opening, Raised, Lowered, Closing};
    const controls::WaitPointer wait;
    Db->Execute(u"delete from PrTA1"_s);
    for (int row = 1; row < print.grid.Rows(); ++row) {
        QStringList values;
        for (const int col : printed) values += Quoted(print.grid.TextMatrix(row, col));
        Db->Execute(u"Insert into PrTA1 (F1,F2,F3,F4,F5,F6) VALUES("_s + values.join(u',') + u')');
    }
    QStringList formulas{Formula(u"Cpt"_s, print.LB == 10 ? u"应付货款总帐"_s : u"应收货款总帐"_s)};
    for (const int col : printed)
        formulas += Formula(u'C' + QString::number(formulas.size()), print.grid.TextMatrix(0, col));
    formulas += Period(print, u" 至 "_s);
    RunReport(u"kuanhz.rpt"_s, formulas);
}

}  // namespace accounts
