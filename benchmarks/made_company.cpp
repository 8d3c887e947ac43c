#include "benchmarks/made_company.h"

#include "schema/data_files.h"
#include "schema/names.h"

#include <QDate>
#include <QDir>
#include <QFile>

#include <array>
#include <cstdio>

namespace benchmarks {
namespace {

/// Raise it when the recipe below changes.
constexpr int Recipe = 1;

constexpr int Days = 5 * 365;
const QDate FirstDay(2019, 1, 1);

QByteArray Numbered(const char* head, int index) {
    return head + QByteArray::number(index + 1).rightJustified(4, '0');
}

QByteArray ChannelCode(int index) {
    return Numbered("Q", index);
}

QByteArray ChannelName(int index) {
    return Numbered("渠道", index);
}

/// The tables' definitions; a file of other tables is made anew.
QString Shape(const QString& file) {
    return BareEngine(file).Answer("select group_concat(sql,';') from sqlite_master where name<>'made'");
}

QByteArray Places(int count) {
    return "?" + QByteArray(",?").repeated(count - 1);
}

void FillTariffs(BareEngine& engine) {
    engine.Run("delete from MS1");
    engine.Run(
        "insert into MS1 values (0.5,0.5,0.5,0.5,21,46,71,101,201,301,401,501,601,701,801,901,1001,1101,"
        "1201,1.5)");
    BareStatement zone(engine.Handle(), "insert into M02 (F1,F2) values (?,?)");
    for (int z = 0; z < Zones; ++z) zone.Insert({ZoneCode(z), Numbered("区域", z)});
    BareStatement channel(engine.Handle(),
                          "insert into M01 (F1,F2,D0,D1,S0,S1,JFD) values (?,?,0.5,0.5,0.5,0.5,0)");
    for (int c = 0; c < Channels; ++c) channel.Insert({ChannelCode(c), ChannelName(c)});
    BareStatement customer(engine.Handle(), "insert into M03 (F1,F2,F301) values (?,?,?)");
    BareStatement quote(engine.Handle(), "insert into M031 values (?,?," + Places(19) + ")");
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

/// The waybills with their receivable and payable rows, places and balances as the journal gives them.
class LedgerMaker {
  public:
    explicit LedgerMaker(BareEngine& engine)
        : waybill_(
              engine.Handle(),
              "insert into B01 (F1,F101,F2031,F301,F402,F404,F501,F602,F604,F103,F401,F504,F507,F603,F202,"
              "F201,F203) values (?,?,'纽约','S',?,?,'月结','外务一','管理员','备注',1,?,?,?,?,'上海',?)"),
          entry_(engine.Handle(),
                 "insert into TB1 (S2,F1,F2,F3,H8,LB,SN,YF,QC,QM,S1,F5,F6,F10) values "
                 "(?,?,?,?,?,?,?,?,?,?,'外务一','管理员','管理员','')") {}

    void Fill() {
        for (int i = 0; i < Waybills; ++i) {
            const int dayNumber = static_cast<int>(static_cast<qint64>(i) * Days / Waybills);
            if (dayNumber != day_) counter_ += 29;
            day_ = dayNumber;
            counter_ += 2;
            Add(i, FirstDay.addDays(dayNumber).toString(u"yyyy-MM-dd").toUtf8());
        }
    }
    double Counter() const { return counter_; }

  private:
    void Add(int i, const QByteArray& date) {
        const int customer = i % 10 == 0 ? LargeCustomer : 1 + i % (Customers - 1);
        const int channel = i % Channels;
        const double weight = 0.5 + i % 60;
        const double charge = 30 + weight * 12;
        const double cost = 20 + weight * 9;
        const QByteArray number = QByteArray::number(80'000'000 + i);
        waybill_.Bind(3, weight);
        waybill_.Bind(4, weight);
        waybill_.Bind(5, charge);
        waybill_.Bind(6, cost);
        waybill_.Bind(7, CustomerCode(customer));
        waybill_.Bind(8, ChannelCode(channel));
        waybill_.Bind(9, ZoneCode(i % Zones));
        waybill_.Insert({number, date});
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
    std::array<double, Customers> customerBalance_{};
    std::array<double, Channels> channelBalance_{};
    int day_ = -1;
    double counter_ = 100;
};

void Fill(BareEngine& engine) {
    engine.Run("begin immediate");
    FillTariffs(engine);
    LedgerMaker maker(engine);
    maker.Fill();
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

MadeCompany::MadeCompany(const QString& folder) : file_(folder + u'/' + schema::kDatabaseFile.toString()) {
    QDir().mkpath(folder);
    const QString fresh = folder + QStringLiteral("/fresh.dat");
    RemoveWithSideFiles(fresh);
    schema::MakeDatabase(fresh);
    if (!QFile::exists(file_) || !IsOurs(file_, Shape(fresh))) {
        std::printf("making a company of %d waybills, once\n", Waybills);
        std::fflush(stdout);
        RemoveWithSideFiles(file_);
        {
            BareEngine engine(fresh);
            Fill(engine);
        }
        QFile::rename(fresh, file_);
    }
    RemoveWithSideFiles(fresh);
    db_ = dao::Database::Open(file_, schema::kConnect.toString());
    bare_ = std::make_unique<BareEngine>(file_);
}

}  // namespace benchmarks
