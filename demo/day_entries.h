// What the day brings, as it is typed and as it has to come out: new masters, a zone, a channel, customers,
// and the waybills of a Monday. Everything is invented. Weights in kg, prices in yuan.
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
/// A small form, and who joins its list today.
struct SmallMaster {
    QString form;
    QString keys;  ///< of its menu
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

// The tariffs, in the order of Tab. A new zone, up to its days; then its places and its list prices.
std::vector<Entry> ZoneEntries();
const std::vector<MasterRow>& ZoneAreas();
std::vector<Entry> ZonePrices();
std::vector<Entry> ChannelEntries();

/// What the channel asks for a zone of its own.
struct CostZone {
    std::vector<Entry> entries;  ///< from the code on; the channel is chosen from the list
    std::vector<MasterRow> areas;
    std::vector<Entry> prices;
    /// Check boxes to be turned: ticked is a segment that runs as first weight plus continuation. They begin
    /// as the zone before had them.
    QStringList turned;
    QString stored;  ///< F2, F3, F4, F6, P101 to P301, P3, A30, A31
};
const std::vector<CostZone>& CostZones();

// What the customer is quoted: the zones beginning with D at one coefficient, all others at another.
inline const QString kQuotedPrefix = QStringLiteral("D");
inline const QString kCoefficient = QStringLiteral("1.08");
inline const QString kOtherCoefficient = QStringLiteral("1.06");

struct Customer {
    QString code, name, company;
    std::vector<Entry> entries;  ///< behind the three
};
const std::vector<Customer>& Customers();

/// A waybill as it is typed, and what has to come of it. Money in yuan, weights in kg.
struct Consignment {
    QString number;
    QString rule;  ///< how the customer's quote prices it
    QDate date;    ///< the sending date
    bool released = false;
    std::vector<Entry> entries;  ///< in the order of Tab, from the destination on
    QString basic;               ///< what entering the box of the basic charge computes
    QString total;
};
const std::vector<Consignment>& Consignments();

}  // namespace demo
