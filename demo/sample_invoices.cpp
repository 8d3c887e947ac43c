#include "demo/sample_invoices.h"

#include "demo/sample_masters.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "platform/text/quoted.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace sample {
namespace {

constexpr int CustomersWithNotes = 8;
const QDate FirstDay(2024, 10, 8);
constexpr int DaysToPay = 6;

struct Note {
    QString number, customer;
    QDate day;
    int cents;
    int paidCents;
};

std::vector<Note> PlanNotes() {
    std::vector<Note> notes;
    for (int i = 0; i < CustomersWithNotes; ++i) {
        const int count = 3 + i % 4;
        for (int n = 0; n < count; ++n) {
            const QDate day = FirstDay.addDays(i * 2 + n * 5);
            const int cents = 120000 + (i * 97713 + n * 131337) % 880000;
            const int ways[] = {cents, cents / 20000 * 10000,
                                0};  // whole, half in whole hundreds, not at all
            notes.push_back(
                {u"FH"_s + day.toString(u"yyMMdd"_s) + u"%1"_s.arg(i * 10 + n + 1, 3, 10, QChar(u'0')),
                 Customers()[static_cast<std::size_t>(i)].code, day, cents, ways[(i + n) % 3]});
        }
    }
    return notes;
}

QString Yuan(int cents) {
    constexpr double CentsOfAYuan = 100;
    return text::GeneralText(cents / CentsOfAYuan);
}

}  // namespace

QStringList InvoiceStatements() {
    QStringList statements;
    const auto values = [](const QStringList& texts) {
        QStringList quoted;
        for (const QString& text : texts) quoted += Quoted(text);
        return quoted.join(u',');
    };
    for (const Customer& customer : Customers())
        statements +=
            u"insert into TA2 (F1,F2,F3,F4,F5) VALUES ("_s +
            values({customer.code, customer.company, customer.address, u"555 0100"_s, u"555 0101"_s}) + u')';
    for (const Note& note : PlanNotes())
        statements += u"insert into TD1 (F1,F2,F3,F9) VALUES ("_s +
                      values({note.number, text::DateText(note.day), note.customer}) + u',' +
                      Yuan(note.cents) + u')';
    return statements;
}

std::vector<InvoicePayment> PlanInvoicePayments() {
    std::vector<InvoicePayment> payments;
    for (const Note& note : PlanNotes())
        if (note.paidCents > 0)
            payments.push_back(
                {note.day.addDays(DaysToPay), note.customer, note.number, Yuan(note.paidCents)});
    std::ranges::stable_sort(payments, {}, &InvoicePayment::day);
    return payments;
}

}  // namespace sample
