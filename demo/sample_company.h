// The sample company: what is in the file before the day begins, and what the day brings.
//
// What has its form is entered by keys. Five further zones stand in the file already, as the old system left
// them.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <vector>

namespace demo {

inline const QString kCompany = QStringLiteral("示例速递有限公司");
inline const QString kPassword = QStringLiteral("korvane1");  ///< of the administrator
inline const QString kCustomer = QStringLiteral("华兴电子");
inline const QString kChannel = QStringLiteral("环洋快件");

/// Statements in the system's dialect.
QStringList MasterStatements();

/// Names of couriers and origins have at most 4 characters.
struct MasterRow {
    QString name;
    QString note;
};
/// A table with a form of its own that is filled by keys.
struct SmallMaster {
    QString form;
    QString keys;  ///< of its menu
    QString table;
    QString picture;
    QString caption;
    std::vector<MasterRow> rows;  ///< in the order of their entry
};
const std::vector<SmallMaster>& SmallMasters();

/// Text typed into a control.
struct Entry {
    QString control;
    QString text;
};

// The tariffs, in the order of Tab. Prices in yuan, weights in kg.
std::vector<Entry> StandardEntries();
/// The zone of all the day's waybills, up to its range; then its places and its list prices.
std::vector<Entry> ZoneEntries();
const std::vector<MasterRow>& ZoneAreas();
std::vector<Entry> ZonePrices();
std::vector<Entry> ChannelEntries();

/// What the channel asks for a zone of its own.
struct CostZone {
    std::vector<Entry> entries;  ///< from the code on; the channel is chosen from the list
    std::vector<MasterRow> areas;
    std::vector<Entry> prices;
    QString tick;    ///< the segment that runs as first weight plus continuation
    QString stored;  ///< F2, F3, F4, F6, P101 to P301, P3, A30, A31
};
const std::vector<CostZone>& CostZones();

// What the customer is quoted: the zones beginning with B at one coefficient, all others at another.
inline const QString kQuotedPrefix = QStringLiteral("B");
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
    QDate today;   ///< the day on which it is entered
    QDate date;    ///< the sending date
    bool released = false;
    std::vector<Entry> entries;  ///< in the order of Tab, from the destination on
    QString basic;               ///< what entering the box of the basic charge computes
    QString total;
    double sequence;  ///< SN of its receivable
};
const std::vector<Consignment>& Consignments();

}  // namespace demo
