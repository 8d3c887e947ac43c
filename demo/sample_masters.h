// The tables of the sample company: its staff, its services and its costs. All data is invented and marked as
// such where the program has a field for a remark. Weights are in kg, prices in yuan.
//
// Always holds: names of couriers and origins have at most 4 characters; prices per kg fall as the weight
// rises; every zone is served by at least one channel.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace sample {

inline const QString kCompany = QStringLiteral("样例速递有限公司（虚构）");

/// The twenty figures of the pricing standard: first weights and steps, the bounds of the heavy segments in
/// kg, the coefficient.
const QStringList& Standard();

/// A line of a small form: a name and its note.
struct Named {
    QString name, note;
};
struct SmallTable {
    QString form;
    std::vector<Named> rows;
};
/// Salespersons, couriers, origins, reasons of incidents, in the order of their forms.
const std::vector<SmallTable>& SmallTables();
const std::vector<Named>& Couriers();
const std::vector<Named>& Origins();
const std::vector<Named>& Reasons();

/// A place of a zone.
struct Place {
    QString name, english;
};
struct Zone {
    QString code, name, english;
    int days;
    int document, documentMore, parcel, parcelMore;
    int heavy;  ///< price of the first heavy segment, per kg
    std::vector<Place> places;
    bool Domestic() const { return code.startsWith(u'A'); }
};
const std::vector<Zone>& Zones();
/// The nineteen list prices in the order of the standard's brackets.
QStringList ListPrices(const Zone& zone);

struct Channel {
    QString code, name, remark;
    QStringList weights;  ///< first weight and step of documents, then of parcels
    QStringList bounds;   ///< lower bounds of its heavy segments; none, up to ten
};
const std::vector<Channel>& Channels();

struct CostZone {
    QString channel, code, name, english;
    int days;
    QStringList serves;  ///< the company's own zones
    double document, documentMore, parcel, parcelMore;
    double heavy;      ///< price of the channel's first segment, per kg
    unsigned flagged;  ///< bit s: segment s is priced as first weight plus continuation
};
const std::vector<CostZone>& CostZones();
/// The four plain prices and one for each segment of its channel.
QStringList CostPrices(const CostZone& zone);

struct Customer {
    QString code, name, company, english, address, addressEnglish, salesperson;
    QString domestic, abroad;  ///< coefficients of the quotes: zones beginning with A, all others
};
const std::vector<Customer>& Customers();

/// Operators other than the administrator, as statements: no form for them is implemented yet.
QStringList OperatorStatements();

}  // namespace sample
