// A waybill as an operator enters it, put into the boxes of the form B01 in add or edit state.
// Every box that a new card keeps from the one before is set, so that what is saved depends on nothing else.
#pragma once

#include "tests/waybills/waybill_company.h"

#include <QDate>
#include <QString>
#include <QStringList>

class QWidget;

namespace tests {

struct WaybillEntry {
    QString number = QStringLiteral("W1");
    QString customer = QStringLiteral("C1");
    QString courier = QStringLiteral("张三");
    QString channel = QStringLiteral("H1");
    QDate date = QDate(2024, 3, 15);
    double total = 115;  ///< yuan
    double cost = 80.5;  ///< yuan
};

void FillCard(QWidget& form, const WaybillEntry& entry);

/// The masters of the waybills' tests and a second customer and channel that have names of their own.
inline QStringList FaultMasters() {
    return WaybillMasters() + QStringList{QStringLiteral("insert into M03 (F1,F2) VALUES ('C3','长江')"),
                                          QStringLiteral("insert into M01 (F1,F2) VALUES ('H2','大洋')")};
}

}  // namespace tests
