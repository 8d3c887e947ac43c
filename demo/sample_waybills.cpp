#include "demo/sample_waybills.h"

#include "demo/sample_masters.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "waybills/waybill_fields.h"

#include <algorithm>
#include <cmath>
#include <random>

using namespace Qt::StringLiterals;
using namespace waybills;

namespace sample {
namespace {

const QDate FirstDay(2024, 9, 23);
const QDate LastDay(2024, 11, 23);
constexpr int OnWeekday = 13;
constexpr int OnSaturday = 6;
constexpr int FirstHeavyBound = 4;  // index among the standard's figures
constexpr int HeavySegments = 15;

bool IsHoliday(QDate day) {
    return day.dayOfWeek() == Qt::Sunday || (day >= QDate(2024, 10, 1) && day <= QDate(2024, 10, 3));
}

/// The rates change monthly.
QString CustomersRate(QDate day) {
    const QString rates[] = {u"1.145"_s, u"1.16"_s, u"1.135"_s};
    return rates[day.month() - 9];
}
QString ChannelsRate(QDate day) {
    const QString rates[] = {u"1.12"_s, u"1.13"_s, u"1.11"_s};
    return rates[day.month() - 9];
}

class Planner {
  public:
    std::vector<Waybill> Plan() {
        for (QDate day = FirstDay; day <= LastDay; day = day.addDays(1)) {
            if (IsHoliday(day)) continue;
            const int count = day.dayOfWeek() == Qt::Saturday ? OnSaturday : OnWeekday;
            for (int n = 1; n <= count; ++n) plan_.push_back(OneOf(day, n));
        }
        return std::move(plan_);
    }

  private:
    int UpTo(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
    bool Chance(int percent) { return UpTo(100) < percent; }
    template <class T>
    const T& AnyOf(const std::vector<T>& from) {
        return from[static_cast<std::size_t>(UpTo(static_cast<int>(from.size())))];
    }
    void Put(Box box, const QString& text) { now_.boxes.emplace_back(u"Txt(%1)"_s.arg(box), text); }
    void Choose(Box box, const QString& text) { now_.boxes.emplace_back(u"Cmb(%1)"_s.arg(box), text); }

    Waybill OneOf(QDate day, int n) {
        now_ = {.entered = day, .sent = day};
        if (Chance(5) && day > FirstDay.addDays(4)) now_.sent = day.addDays(-1 - UpTo(4));
        const QString operators[] = {u"002"_s, u"002"_s, u"004"_s, u"001"_s};
        now_.operatorCode = operators[day.dayOfYear() % 4];
        Put(Number, u"YL%1%2"_s.arg(day.toString(u"yyMMdd"_s)).arg(n, 2, 10, QChar(u'0')));
        const bool document = Chance(34);
        const Zone& zone = AnyOf(Zones());
        const double weight = document ? DocumentWeight() : Chance(60) ? ParcelWeight() : HeavyWeight();
        PutRoute(zone);
        PutGoods(document, weight);
        PutMoney(weight);
        if (now_.release == Release::AtOnce || now_.release == Release::ByEdit) PutDelivery(zone);
        if (Chance(4)) PutIncident();
        return now_;
    }

    double DocumentWeight() { return Chance(10) ? (30 + UpTo(50)) / 10.0 : (3 + UpTo(23)) / 10.0; }
    double ParcelWeight() { return Chance(6) ? 0.5 : (5 + UpTo(196)) / 10.0; }
    /// Light weights are more frequent, and every segment occurs.
    double HeavyWeight() {
        const auto bound = [](int segment) { return Standard()[FirstHeavyBound + segment].toInt(); };
        const int segment = ++heavy_ % 4 == 0 ? heavy_ / 4 % HeavySegments
                                              : std::min(UpTo(HeavySegments), UpTo(HeavySegments));
        const int from = bound(segment);
        const int to = segment + 1 < HeavySegments ? bound(segment + 1) : from + 200;
        return from + UpTo(2 * (to - from)) / 2.0;
    }

    void PutRoute(const Zone& zone) {
        const Customer& customer = AnyOf(Customers());
        now_.customer = customer.code;
        now_.zone = zone.code + u'.' + zone.name;
        const Place& place = AnyOf(zone.places);
        now_.place = place.name;
        const QStringList cities = {u"SH"_s, u"SZ"_s, u"HZ"_s, u"NB"_s};
        const auto city = cities.indexOf(customer.code.left(2));
        Choose(OriginName, Origins()[static_cast<std::size_t>(city)].name);
        Choose(Courier, city == 0 ? Couriers()[static_cast<std::size_t>(UpTo(5))].name
                                  : Couriers()[static_cast<std::size_t>(4 + city)].name);
        const int kind = UpTo(100);
        now_.release = kind < 72   ? Release::AtOnce
                       : kind < 80 ? Release::ByEdit
                       : kind < 84 ? Release::Unmarked
                                   : Release::None;
        if (now_.release == Release::ByEdit && now_.sent != now_.entered) now_.release = Release::AtOnce;
        if (now_.release != Release::None || Chance(50)) PutChannel(zone);
        static const std::vector<QString> trades = {u"样例贸易"_s, u"样例电子"_s, u"样例工业"_s,
                                                    u"样例实验室"_s};
        static const std::vector<QString> english = {u"Sample Trading Ltd."_s, u"Sample Electronics Inc."_s,
                                                     u"Sample Industries"_s, u"Sample Laboratories"_s};
        const auto trade = static_cast<std::size_t>(UpTo(4));
        const int street = 1 + UpTo(98);
        Put(ConsigneeCompany, place.name + trades[trade]);
        Put(ConsigneeCompanyEnglish, place.english + u' ' + english[trade]);
        Put(ConsigneeAddress, place.name + u"样例街 %1 号"_s.arg(street));
        Put(ConsigneeAddressEnglish, u"%1 Sample Street, %2"_s.arg(street).arg(place.english));
        Put(Telephone, u"555 %1"_s.arg(100 + UpTo(100), 4, 10, QChar(u'0')));
    }

    void PutChannel(const Zone& zone) {
        std::vector<const CostZone*> serving;
        for (const CostZone& cost : CostZones())
            if (cost.serves.contains(zone.code)) serving.push_back(&cost);
        const CostZone& cost = *AnyOf(serving);
        for (const Channel& channel : Channels())
            if (channel.code == cost.channel) now_.channel = channel.code + u'.' + channel.name;
        now_.channelZone = cost.code + u'.' + cost.name;
        if (now_.release != Release::None)
            Put(Forwarding, cost.channel + u"%1"_s.arg(10'000'000 + UpTo(90'000'000)));
    }

    void PutGoods(bool document, double weight) {
        static const std::vector<QString> papers = {u"合同"_s, u"报关单证"_s, u"图纸"_s, u"提单"_s};
        static const std::vector<QString> wares = {u"电子元件样品"_s, u"丝绸面料"_s, u"紧固件"_s,
                                                   u"光学镜片"_s,     u"仪器配件"_s, u"茶叶"_s,
                                                   u"塑胶模具"_s,     u"文具"_s};
        Choose(ServiceType, document ? ServiceTypes[0].shown : ServiceTypes[1].shown);
        Put(Goods, AnyOf(document ? papers : wares));
        Put(DeclaredValue, document ? QString() : u"USD %1"_s.arg(20 * (1 + UpTo(100))));
        Put(Pieces, QString::number(1 + static_cast<int>(weight / 30)));
        Put(ReceivedWeight, text::GeneralText(weight));
        Put(FirstWeighing, text::GeneralText(weight));
        Put(ShippedWeight, text::GeneralText(std::ceil(weight * 2) / 2));
        for (const Box side : {Length, Width, Height})
            Put(side, document ? u"0"_s : QString::number(15 + UpTo(60)));
        if (!document && weight > 100) Put(Remark, u"托盘，请勿倒置"_s);
    }

    void PutMoney(double weight) {
        const int mode = UpTo(100);
        Choose(PaymentMode, PaymentModes[mode < 60 ? 0 : mode < 84 ? 1 : 2].shown);
        Put(FuelRate, CustomersRate(now_.sent));
        Put(AdditionalCharge, weight > 70 && Chance(60) ? QString::number(10 * (2 + UpTo(9))) : u"0"_s);
        Put(OtherFees, Chance(12) ? QString::number(5 * (1 + UpTo(10))) : u"0"_s);
        Put(ChannelOtherFees, u"0"_s);
        Put(ChannelAdditionalFees, Chance(8) ? u"15"_s : u"0"_s);
        Put(ChannelFuelRate, ChannelsRate(now_.sent));
    }

    void PutDelivery(const Zone& zone) {
        const QDate arrives = now_.sent.addDays(zone.days + UpTo(3));
        if (arrives > LastDay || !Chance(70)) return;
        Put(SignedBy, u"前台（样例）"_s);
        Put(DeliveryTime, text::DateText(arrives) + u" %1:%2"_s.arg(9 + UpTo(9)).arg(10 + UpTo(50)));
    }

    void PutIncident() {
        static const std::vector<QString> events = {u"派送不成功"_s, u"途中延误"_s, u"外箱破损一处"_s};
        static const std::vector<QString> outcomes = {u"已妥投"_s, u"处理中"_s, u"已与发件人协商"_s};
        Put(Incident, AnyOf(events));
        Choose(IncidentReason, Reasons()[static_cast<std::size_t>(incidents_++) % Reasons().size()].name);
        Put(IncidentOutcome, AnyOf(outcomes));
        Put(IncidentExplanation, u"样例事故，虚构"_s);
    }

    std::mt19937 random_{20241123};
    int heavy_ = 0;      ///< heavy parcels so far
    int incidents_ = 0;  ///< incidents so far
    Waybill now_;
    std::vector<Waybill> plan_;
};

}  // namespace

std::vector<Waybill> PlanWaybills() {
    return Planner().Plan();
}

}  // namespace sample
