// The sample company's invoice accounts: delivery notes of two months and what was paid on them. Amounts are
// in yuan.
//
// Always holds: payments are in the order of their days. A note is paid whole, half, or not at all.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <vector>

namespace sample {

/// Their customers and notes as statements: no form writes these tables.
QStringList InvoiceStatements();

struct InvoicePayment {
    QDate day;
    QString customer;  ///< by code
    QString note;
    QString amount;
};
std::vector<InvoicePayment> PlanInvoicePayments();

}  // namespace sample
