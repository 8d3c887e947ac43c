// A generated company of five years: 2,000 customers with quotes, waybills by the thousand, each with its two
// journal rows. The data is deterministic. The file is cached under build/ and rebuilt only when the tables
// or the recipe change.
#pragma once

#include "benchmarks/bare_engine.h"
#include "platform/dao/database.h"
#include "schema/names.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <memory>

namespace benchmarks {

constexpr int Waybills = 100'000;  ///< the default number
constexpr int Customers = 2'000;
constexpr int Channels = 20;
constexpr int Zones = 10;
constexpr int Couriers = 12;
constexpr int Days = 5 * 365;

QByteArray CustomerCode(int index);
QByteArray CustomerName(int index);
QByteArray ZoneCode(int index);
QByteArray ChannelCode(int index);
QByteArray ChannelName(int index);
/// Each channel has a cost zone for every zone.
QByteArray CostZoneCode(int channel, int zone);
QByteArray CourierName(int index);
/// The sending date of the newest waybill.
QDate LastDay();

/// The one customer with a tenth of all waybills: a chain of 10,000 rows. The chain of each channel has 5,000
/// rows.
constexpr int LargeCustomer = 0;

class MadeCompany {
  public:
    /// Creates the file in that folder, or opens the cached one. The size of a folder's company is fixed.
    explicit MadeCompany(const QString& folder, int waybills = Waybills);

    dao::Database& Db() { return *db_; }
    BareEngine& Bare() { return *bare_; }
    QString File() const { return folder_ + u'/' + schema::kDatabaseFile.toString(); }
    QString Folder() const { return folder_; }

  private:
    QString folder_;
    std::unique_ptr<dao::Database> db_;
    std::unique_ptr<BareEngine> bare_;
};

}  // namespace benchmarks
