#include "accounts/ageing_print.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/controls/wait.h"
#include "platform/text/dates.h"
#include "reports/printing.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace accounts {
namespace {

QString Clean(QString text) {
    return CleanText(text);
}

QString CleanFormula(const QString& name, const QString& value) {
    return Formula(name, Clean(value));
}

/// Fields F1 on of the work table, a row for each list.
void Fill(const std::vector<QStringList>& rows) {
    Db->Execute(u"DELETE FROM PRNTC04"_s);
    for (const QStringList& row : rows) {
        QStringList fields, values;
        for (const QString& cell : row) {
            fields += u'F' + QString::number(fields.size() + 1);
            values += Quoted(Clean(cell));
        }
        Db->Execute(u"insert into PRNTC04 ("_s + fields.join(u',') + u") VALUES ("_s + values.join(u',') +
                    u')');
    }
}

bool Receivable(const AgeingPrint& print) {
    return print.scope.LB < 0;
}

QString Day(const AgeingPrint& print) {
    return CleanFormula(u"rq"_s, text::DateText(print.scope.day));
}

/// With what the lines are narrowed down to.
QString DayAndLimits(const AgeingPrint& print, bool overdueOnly) {
    QStringList limits;
    if (overdueOnly) limits += u"逾期%1天以上的单位"_s.arg(print.scope.overdueAfter);
    if (!print.scope.unit.isEmpty()) limits += u"关系单位“"_s + print.scope.unit + u'”';
    const QString day = text::DateText(print.scope.day);
    return CleanFormula(u"rq"_s, limits.isEmpty() ? day : day + u"（只含"_s + limits.join(u"，"_s) + u'）');
}

QString OverdueDays(const AgeingPrint& print) {
    return CleanFormula(u"ts"_s, QString::number(print.scope.overdueAfter));
}

}  // namespace

Contacts::Contacts(dao::Database& db) {
    auto rows = db.OpenRecordset(u"select F2,F301,F401,F5,F6 from M03 order by F1"_s);
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString name = text::StoredKey(rows.Fields(0).Text());
        if (!byName_.contains(name))
            byName_.insert(name, {rows.Fields(1).Text(), rows.Fields(2).Text(), rows.Fields(3).Text(),
                                  rows.Fields(4).Text()});
    }
    rows.Close();
}

void PrintAgeing(const AgeingPrint& print) {
    const controls::WaitPointer wait;
    std::vector<QStringList> rows;
    for (const AgeingLine& line : print.lines) {
        QStringList& row = rows.emplace_back(QStringList{line.unit, CentsText(line.balance)});
        for (const Cents bucket : line.buckets) row += AmountText(bucket);
        row += {AmountText(line.prepaid), AmountText(line.difference), text::DateText(line.oldest)};
    }
    Fill(rows);
    RunReport(u"prntzl1.rpt"_s,
              {CleanFormula(u"Cpt"_s, Receivable(print) ? u"应收帐款帐龄分析表"_s : u"应付帐款帐龄分析表"_s),
               CleanFormula(u"yu"_s, Receivable(print) ? u"预收"_s : u"预付"_s),
               DayAndLimits(print, print.overdueOnly)});
}

void PrintOverdue(const AgeingPrint& print) {
    const controls::WaitPointer wait;
    std::vector<QStringList> rows;
    for (const AgeingLine& line : print.lines)
        if (line.overdue != 0)
            rows.push_back({line.unit, Receivable(print) ? print.contacts.Of(line.unit).telephone : QString(),
                            CentsText(line.balance), CentsText(line.overdue), text::DateText(line.oldest),
                            QString::number(line.oldestAge), AmountText(line.difference)});
    Fill(rows);
    RunReport(u"prntzl2.rpt"_s,
              {CleanFormula(u"Cpt"_s, Receivable(print) ? u"逾期应收帐款名单"_s : u"逾期应付帐款名单"_s),
               DayAndLimits(print, false), OverdueDays(print)});
}

void PrintReminder(const AgeingPrint& print, const UnitAgeing& unit) {
    const controls::WaitPointer wait;
    std::vector<QStringList> rows;
    for (const OpenCharge& charge : unit.charges)
        rows.push_back({charge.voucher, text::DateText(charge.date), CentsText(charge.amount),
                        CentsText(charge.open), QString::number(charge.age),
                        charge.age > print.scope.overdueAfter ? u"逾期"_s : QString()});
    Fill(rows);
    const Contact contact = print.contacts.Of(unit.line.unit);
    RunReport(u"prntzl3.rpt"_s,
              {CleanFormula(u"dw"_s, contact.fullName.isEmpty() ? unit.line.unit : contact.fullName),
               CleanFormula(u"dz"_s, contact.address), CleanFormula(u"dh"_s, contact.telephone),
               CleanFormula(u"cz"_s, contact.fax), Day(print), OverdueDays(print),
               CleanFormula(u"yq"_s, CentsText(unit.line.overdue))});
}

}  // namespace accounts
