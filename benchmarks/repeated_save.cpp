#include "benchmarks/repeated_save.h"

#include "app/session.h"
#include "platform/controls/box.h"

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;
using waybills::Box;

namespace benchmarks {
namespace {

const QByteArray Number = "B0000001";
constexpr int Customer = 7;
constexpr int Channel = 3;
constexpr int Charge = 250;
constexpr int Cost = 180;

/// Subtracts what the posting added to later balances of that party.
void Lower(BareEngine& engine, const QByteArray& kind, const QByteArray& party, int amount) {
    const QString place = engine.Answer("select SN from TB1 where F1='" + kind + Number + "'");
    if (place.isEmpty()) return;
    const QByteArray by = QByteArray::number(amount);
    engine.Run("update TB1 set QC=QC-" + by + ",QM=QM-" + by + " where F3='" + party + "' and SN>" +
               place.toUtf8());
}

void FillCard(OpenForm& form, QDate date) {
    form.Press(u"Menu_Add"_s);
    const auto text = [](const QByteArray& utf8) { return QString::fromUtf8(utf8); };
    const std::pair<Box, QString> combos[] = {
        {waybills::CustomerCode, text(CustomerCode(Customer) + '.' + CustomerName(Customer))},
        {waybills::Courier, text(CourierName(0))},
        {waybills::ServiceType, u"S.物品(Parcel)"_s},
        {waybills::PaymentMode, u"月结.Account"_s},
        {waybills::ServiceZoneCode, text(ZoneCode(0))},
        {waybills::OriginName, u"上海"_s},
        {waybills::Destination, u"纽约"_s},
        {waybills::ChannelCode, text(ChannelCode(Channel) + '.' + ChannelName(Channel))},
    };
    for (const auto& [box, value] : combos) form.Combo(box).SetText(value);
    const std::pair<Box, QString> boxes[] = {
        {waybills::Number, text(Number)},
        {waybills::ShipperCompany, u"华兴国际贸易有限公司"_s},
        {waybills::ShipperAddress, u"上海市浦东新区世纪大道100号"_s},
        {waybills::ConsigneeCompany, u"Hudson Trading Inc."_s},
        {waybills::ConsigneeAddress, u"350 Fifth Avenue, New York"_s},
        {waybills::Goods, u"样品"_s},
        {waybills::Pieces, u"2"_s},
        {waybills::ReceivedWeight, u"12.5"_s},
        {waybills::ShippedWeight, u"12.5"_s},
        {waybills::BasicCharge, QString::number(Charge)},
        {waybills::FuelRate, u"1"_s},
        {waybills::TotalCharge, QString::number(Charge)},
        {waybills::ShippingCost, QString::number(Cost)},
        {waybills::ReleaseMark, OperatorName},
    };
    for (const auto& [box, value] : boxes) form.Box(box).SetText(value);
    // The computations give their steps, which the save stores; the amounts are ours.
    form.Combo(waybills::ChannelZoneCode).SetText(text(CostZoneCode(Channel, 0)));
    for (const Box box : {waybills::BasicCharge, waybills::ShippingCost}) form.Box(box).GotFocus();
    form.Box(waybills::BasicCharge).SetText(QString::number(Charge));
    form.Box(waybills::ShippingCost).SetText(QString::number(Cost));
    form.findChild<controls::DTPicker*>(u"DTP"_s)->SetValue(date);
}

}  // namespace

RepeatedSave::RepeatedSave(Office& office, QDate day)
    : office_(office),
      ours_(office.Engine()),
      day_(day),
      counter_(office.Bare().Answer("select Setval from SysInfo where ID=100")) {
    MakeReady();
    Save();
    if (office.Bare().Answer("select count(*) from TB1 where F1 in ('YS" + Number + "','YF" + Number +
                             "')") == u"2" &&
        office.Bare().Answer("select count(*) from B011 where F5<>'' and F9<>''") == u"1")
        return;
    std::fprintf(stderr, "the save did not post or store its steps\n");
    std::exit(2);
}

RepeatedSave::~RepeatedSave() {
    Undo(office_.Bare());
}

void RepeatedSave::MakeReady(BareEngine& engine) {
    Undo(engine);
    FillCard(office_.Form(), day_);
    Office::Settle();
}

void RepeatedSave::Save() {
    office_.Form().Press(u"Menu_save"_s);
}

void RepeatedSave::Undo(BareEngine& engine) const {
    engine.Run("begin immediate");
    Lower(engine, "YS", CustomerName(Customer), Charge);
    Lower(engine, "YF", ChannelName(Channel), Cost);
    engine.Run("delete from TB1 where F1 in ('YS" + Number + "','YF" + Number + "')");
    engine.Run("delete from B01 where F1='" + Number + "'");
    engine.Run("delete from B011 where F1='" + Number + "'");
    engine.Run("update SysInfo set Setval=" + counter_.toUtf8() + " where ID=100");
    engine.Run("commit");
}

}  // namespace benchmarks
