#include "benchmarks/made_company.h"

#include "schema/data_files.h"

#include <QDate>
#include <QDir>
#include <QFile>

#include <array>
#include <cstdio>
#include <iterator>

namespace benchmarks {
namespace {

/// Increment it when the recipe below changes.
constexpr int Recipe = 4;

const QDate FirstDay(2019, 1, 1);

QByteArray Numbered(const char* head, int index) {
    return head + QByteArray::number(index + 1).rightJustified(4, '0');
}

constexpr const char* Places[] = {"纽约",   "洛杉矶", "东京", "大阪",     "伦敦", "巴黎",  "悉尼",
                                  "新加坡", "首尔",   "香港", "法兰克福", "米兰", "多伦多"};

/// The table definitions as one text; a file with other definitions is rebuilt.
QString Shape(const QString& file) {
    return BareEngine(file).Answer("select group_concat(sql,';') from sqlite_master where name<>'made'");
}

QByteArray Marks(int count) {
    return "?" + QByteArray(",?").repeated(count - 1);
}

QDate DayOf(int waybill, int waybills) {
    return FirstDay.addDays(static_cast<qint64>(waybill) * Days / waybills);
}

void FillCostZones(BareEngine& engine) {
    BareStatement zone(engine.Handle(),
                       "insert into M011 (F1,F2,F3,P101,P102,P201,P202,P300,P301,P302,P3,A30,A31,A32) values "
                       "(?,?,?,60,20,80,30,58,55,50,3,0,0,-1)");
    for (int c = 0; c < Channels; ++c)
        for (int z = 0; z < Zones; ++z)
            zone.Insert({CostZoneCode(c, z), Numbered("成本区域", z), ChannelCode(c)});
}

void FillTariffs(BareEngine& engine) {
    engine.Run("delete from MS1");
    engine.Run(
        "insert into MS1 values (0.5,0.5,0.5,0.5,21,46,71,101,201,301,401,501,601,701,801,901,1001,1101,"
        "1201,1.5)");
    BareStatement zone(engine.Handle(), "insert into M02 (F1,F2) values (?,?)");
    for (int z = 0; z < Zones; ++z) zone.Insert({ZoneCode(z), Numbered("区域", z)});
    BareStatement channel(
        engine.Handle(),
        "insert into M01 (F1,F2,D0,D1,S0,S1,JFD,J0,J1,J2) values (?,?,0.5,0.5,0.5,0.5,3,21,46,71)");
    for (int c = 0; c < Channels; ++c) channel.Insert({ChannelCode(c), ChannelName(c)});
    FillCostZones(engine);
    BareStatement courier(engine.Handle(), "insert into M04 (F1,F2) values (?,?)");
    for (int c = 0; c < Couriers; ++c) courier.Insert({CourierName(c), CourierName(c)});
    BareStatement place(engine.Handle(), "insert into M021 (F0,F1) values (?,?)");
    for (int z = 0; z < Zones; ++z)
        for (const char* name : Places) place.Insert({ZoneCode(z), name});
    BareStatement origin(engine.Handle(), "insert into M05 (F1,F2) values (?,?)");
    origin.Insert({"上海", "021"});
    BareStatement customer(engine.Handle(), "insert into M03 (F1,F2,F301) values (?,?,?)");
    BareStatement quote(engine.Handle(), "insert into M031 values (?,?," + Marks(19) + ")");
    for (int c = 0; c < Customers; ++c) {
        customer.Insert({CustomerCode(c), CustomerName(c), CustomerName(c) + "国际贸易有限公司"});
        for (int z = 0; z < Zones; ++z) {
            quote.Bind(1, CustomerCode(c));
            quote.Bind(2, ZoneCode(z));
            for (int p = 0; p < 19; ++p) quote.Bind(3 + p, 20.0 + (c * 7 + z * 3 + p) % 50);
            quote.Step();
            quote.Reset();
        }
    }
}

/// Inserts the waybills and their receivable and payable rows, with `SN` and balances as the journal computes
/// them.
class LedgerMaker {
  public:
    explicit LedgerMaker(BareEngine& engine)
        : waybill_(
              engine.Handle(),
              "insert into B01 (F1,F101,F2031,F602,F2041,F2051,F2061,F2071,F103,F402,F404,F504,F507,F603,"
              "F202,F203,F401,F501,F301,F201,F604,F601,F208,F302,F403,F502,F503,F505,F506) values (" +
                  Marks(17) + ",'月结','S','上海','管理员','管理员','021-58880000','样品',0,0,0,1,1)"),
          entry_(engine.Handle(), "insert into TB1 (S2,F1,F2,F3,H8,LB,SN,YF,QC,QM,S1,F5,F6,F10) values (" +
                                      Marks(10) + ",'外务员0001','管理员','管理员','')"),
          group_(engine.Handle(), "update HNow set N=N+1") {}

    void Fill(int waybills) {
        QDate before;
        for (int i = 0; i < waybills; ++i) {
            const QDate day = DayOf(i, waybills);
            if (day != before) counter_ += 29;
            before = day;
            counter_ += 2;
            Add(i, day.toString(u"yyyy-MM-dd").toUtf8());
        }
    }
    double Counter() const { return counter_; }

  private:
    void Add(int i, const QByteArray& date) {
        group_.Insert({});
        const int customer = i % 10 == 0 ? LargeCustomer : 1 + i % (Customers - 1);
        const int channel = i % Channels;
        const double weight = 0.5 + i % 60;
        const double charge = 30 + weight * 12;
        const double cost = 20 + weight * 9;
        const QByteArray number = QByteArray::number(80'000'000 + i);
        const QByteArray shipper = CustomerName(customer) + "国际贸易有限公司";
        const QByteArray remark = i % 8 == 0 ? "请于" + date + "前送达" : QByteArray();
        waybill_.Bind(10, weight);
        waybill_.Bind(11, weight);
        waybill_.Bind(12, charge);
        waybill_.Bind(13, cost);
        waybill_.Bind(14, CustomerCode(customer));
        waybill_.Bind(15, ChannelCode(channel));
        waybill_.Bind(16, ZoneCode(i % Zones));
        waybill_.Bind(17, static_cast<sqlite3_int64>(1 + i % 9));
        waybill_.Insert({number, date, Places[static_cast<std::size_t>(i) % std::size(Places)],
                         CourierName(i % Couriers), shipper, "上海市浦东新区世纪大道" + number + "号",
                         "Trading Company " + number, "Harbour Road " + number, remark});
        Post("增加应收", "YS" + number, date, CustomerName(customer), -9, counter_, charge,
             customerBalance_[static_cast<std::size_t>(customer)]);
        Post("增加应付", "YF" + number, date, ChannelName(channel), 9, counter_ + 1, cost,
             channelBalance_[static_cast<std::size_t>(channel)]);
    }

    void Post(const char* type, const QByteArray& key, const QByteArray& date, const QByteArray& party,
              int kind, double sequence, double amount, double& balance) {
        entry_.Bind(6, static_cast<sqlite3_int64>(kind));
        entry_.Bind(7, sequence);
        entry_.Bind(8, amount);
        entry_.Bind(9, balance);
        balance += amount;
        entry_.Bind(10, balance);
        entry_.Insert({type, key, date, party, date + " 18:00:00"});
    }

    BareStatement waybill_;
    BareStatement entry_;
    BareStatement group_;
    std::array<double, Customers> customerBalance_{};
    std::array<double, Channels> channelBalance_{};
    double counter_ = 100;
};

void Fill(BareEngine& engine, int waybills) {
    engine.Run("begin immediate");
    // As of today, so that no command has old history to remove.
    engine.Run("update HNow set N=1,Operator='管理员',Command='B01',At=datetime('now')");
    FillTariffs(engine);
    LedgerMaker maker(engine);
    maker.Fill(waybills);
    // What the program's commands would have left of it.
    for (const auto& [mirror, rows] : {std::pair{"H_B01", 300'000}, {"H_TB1", 600'000}})
        engine.Run(QByteArray("delete from ") + mirror + " where rowid<=(select max(rowid) from " + mirror +
                   ")-" + QByteArray::number(rows));
    engine.Run("update SysInfo set Setval=" + QByteArray::number(maker.Counter(), 'f', 0) + " where ID=100");
    engine.Run("create table made (recipe)");
    engine.Run("insert into made values (" + QByteArray::number(Recipe) + ")");
    engine.Run("commit");
}

void RemoveWithSideFiles(const QString& file) {
    for (const QString& side : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")})
        QFile::remove(file + side);
}

bool IsOurs(const QString& file, const QString& shape) {
    BareEngine engine(file);
    return engine.Answer("select 1 from sqlite_master where name='made'") == u"1" &&
           engine.Answer("select recipe from made").toInt() == Recipe && Shape(file) == shape;
}

}  // namespace

QByteArray CustomerCode(int index) {
    return Numbered("K", index);
}

QByteArray CustomerName(int index) {
    return Numbered("客户", index);
}

QByteArray ZoneCode(int index) {
    return Numbered("Z", index);
}

QByteArray ChannelCode(int index) {
    return Numbered("Q", index);
}

QByteArray ChannelName(int index) {
    return Numbered("渠道", index);
}

QByteArray CostZoneCode(int channel, int zone) {
    return ChannelCode(channel) + '-' + QByteArray::number(zone);
}

QByteArray CourierName(int index) {
    return Numbered("外务员", index);
}

QDate LastDay() {
    return FirstDay.addDays(Days - 1);
}

MadeCompany::MadeCompany(const QString& folder, int waybills) : folder_(folder) {
    QDir().mkpath(folder);
    const QString fresh = folder + QStringLiteral("/fresh.dat");
    RemoveWithSideFiles(fresh);
    schema::MakeDatabase(fresh);
    if (!QFile::exists(File()) || !IsOurs(File(), Shape(fresh))) {
        std::printf("making a company of %d waybills, once\n", waybills);
        std::fflush(stdout);
        RemoveWithSideFiles(File());
        {
            BareEngine engine(fresh);
            Fill(engine, waybills);
        }
        QFile::rename(fresh, File());
    }
    RemoveWithSideFiles(fresh);
    db_ = dao::Database::Open(File(), schema::kConnect.toString());
    bare_ = std::make_unique<BareEngine>(File());
}

}  // namespace benchmarks
