// When the sample company's customers pay and its channels are paid, over its two months: a part of what is
// owed, in whole hundreds of yuan.
//
// Always holds: a payment is entered on its own day, after that day's waybills, so that it is last in its
// chain.
#pragma once

#include <QDate>
#include <QString>

#include <vector>

namespace sample {

struct Payment {
    QString party;    ///< by name
    int percent = 0;  ///< of the balance at that moment
    QString remark;
};

/// What is entered on one day, customers and channels apart: they are entered as different kinds.
struct PaymentDay {
    QDate day;
    std::vector<Payment> received;
    std::vector<Payment> made;
};

std::vector<PaymentDay> PlanPayments();

}  // namespace sample
