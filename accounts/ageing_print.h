// The prints of the ageing: the whole table, the list of who is overdue, and a reminder to one customer. Each
// fills the work table PRNTC04 with columns of its own and runs its layout.
#pragma once

#include "accounts/ageing.h"
#include "platform/text/stored_key.h"

#include <QHash>
#include <QString>

namespace accounts {

/// How a customer is reached. All empty for a channel, which has no telephone in its master.
struct Contact {
    QString fullName;
    QString address;
    QString telephone;
    QString fax;
};

/// Those of all customers by their short name, of several with one name the first.
class Contacts {
  public:
    explicit Contacts(dao::Database& db);
    Contact Of(const QString& unit) const { return byName_.value(text::StoredKey(unit)); }

  private:
    QHash<QString, Contact> byName_;
};

/// What is printed: the lines as they are listed, and what they were built for.
struct AgeingPrint {
    AgeingScope scope;
    const std::vector<AgeingLine>& lines;
    const Contacts& contacts;
    bool overdueOnly = false;  ///< the lines without an overdue amount are left out
};

/// Apostrophes become ’ on all three. They raise DatabaseError and what RunReport raises. Beside the day the
/// first two say which counterparties they leave out.
void PrintAgeing(const AgeingPrint& print);
/// Of the lines those with an overdue amount.
void PrintOverdue(const AgeingPrint& print);
/// To a counterparty of the receivable side, with the charges it has open.
void PrintReminder(const AgeingPrint& print, const UnitAgeing& unit);

}  // namespace accounts
