#include "waybills/explanation_print.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/system/seams.h"
#include "reports/printing.h"

using namespace Qt::StringLiterals;

namespace waybills {
namespace {

const QString Layout = u"prntb01.rpt"_s;

void Fill(const QList<ExplainedRow>& rows) {
    Db->Execute(u"delete from PRNTB01"_s);
    for (const ExplainedRow& row : rows) {
        const QStringList values = {Quoted(row.caption), Quoted(row.words), Quoted(row.figure),
                                    Quoted(row.look == ExplainedRow::Look::Sum ? u"1"_s : u"0"_s)};
        Db->Execute(u"insert into PRNTB01 (F1,F2,F3,F4) VALUES ("_s + values.join(u',') + u')');
    }
}

QString CleanFormula(const QString& name, QString value) {
    return Formula(name, CleanText(value));
}

}  // namespace

void PrintExplanation(const Priced& charge, const CardText& card) {
    const QList<ExplainedRow> rows = ForCustomer(charge, card);
    if (rows.isEmpty()) return sys::Inform(u"这张速递单没有算出基本费用，不能打印！"_s, MsgTitle);
    if (!LayoutIsThere(Layout, u"丢失!"_s)) return;
    Fill(rows);
    RunReport(Layout,
              {CleanFormula(u"DH"_s, card(Number)), CleanFormula(u"RQ"_s, card(SendDate)),
               CleanFormula(u"KH"_s, card(CustomerCode)), CleanFormula(u"QY"_s, card(ServiceZoneCode)),
               CleanFormula(u"DD"_s, card(Destination)), CleanFormula(u"BJ"_s, charge.day)});
}

}  // namespace waybills
