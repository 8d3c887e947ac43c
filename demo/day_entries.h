// The input of the day and its expected results: new masters, a zone, a channel, customers, and the waybills
// of a Monday. All data is invented. Weights are in kg, prices in yuan.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <vector>

namespace demo {

inline const QDate kToday(2024, 11, 25);  ///< the Monday after the sample company's last waybill
inline const QString kCustomer = QStringLiteral("华兴电子");
inline const QString kChannel = QStringLiteral("环洋快件");

/// Names of couriers and origins have at most 4 characters.
struct MasterRow {
    QString name;
    QString note;
};
/// A small form and the row that is added to its list.
struct SmallMaster {
    QString form;
    QString keys;  ///< the key sequence of its menu command
    QString table;
    QString picture;
    QString caption;
    MasterRow newcomer;
};
const std::vector<SmallMaster>& SmallMasters();

/// Text typed into a control.
struct Entry {
    QString control;
    QString text;
};

// The tariffs, in tab order. A new zone, up to its days; then its places and its list prices.
std::vector<Entry> ZoneEntries();
const std::vector<MasterRow>& ZoneAreas();
std::vector<Entry> ZonePrices();
std::vector<Entry> ChannelEntries();

/// The cost standard of the channel for one of its own zones.
struct CostZone {
    std::vector<Entry> entries;  ///< from the code on; the channel is chosen from the list
    std::vector<MasterRow> areas;
    std::vector<Entry> prices;
    /// Check boxes to be toggled: a ticked segment is priced as first weight plus continuation. Their initial
    /// state is that of the zone before.
    QStringList turned;
    QString stored;  ///< F2, F3, F4, F6, P101 to P301, P3, A30, A31
};
const std::vector<CostZone>& CostZones();

// The customer's quotes: the zones beginning with D at one coefficient, all others at another.
inline const QString kQuotedPrefix = QStringLiteral("D");
inline const QString kCoefficient = QStringLiteral("1.08");
inline const QString kOtherCoefficient = QStringLiteral("1.06");

struct Customer {
    QString code, name, company;
    std::vector<Entry> entries;  ///< the entries after code, name and company
};
const std::vector<Customer>& Customers();

/// A waybill as it is typed, and its expected amounts. Amounts are in yuan, weights in kg.
struct Consignment {
    QString number;
    QString rule;  ///< the quote rule that prices it
    QDate date;    ///< the sending date
    bool released = false;
    std::vector<Entry> entries;  ///< in tab order, from the destination on
    QString basic;               ///< the amount that entering the text box of the basic charge computes
    QString total;
};
const std::vector<Consignment>& Consignments();

}  // namespace demo
