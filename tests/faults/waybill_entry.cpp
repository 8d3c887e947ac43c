#include "tests/faults/waybill_entry.h"

#include "platform/controls/box.h"
#include "tests/support/gui.h"
#include "waybills/waybill_fields.h"

using namespace Qt::StringLiterals;
using namespace waybills;

namespace tests {

void FillCard(QWidget& form, const WaybillEntry& entry) {
    const auto combo = [&](Box box, const QString& text) {
        Find<controls::ComboBox>(form, u"Cmb(%1)"_s.arg(box)).SetText(text);
    };
    const auto type = [&](Box box, const QString& text) {
        Find<controls::LineBox>(form, u"Txt(%1)"_s.arg(box)).SetText(text);
    };
    combo(CustomerCode, entry.customer);
    combo(Courier, entry.courier);
    combo(ServiceType, u"S.物品(Parcel)"_s);
    combo(PaymentMode, u"月结.Account"_s);
    combo(ServiceZoneCode, u"Z1.北美"_s);
    combo(OriginName, u"上海"_s);
    combo(Destination, u"纽约"_s);
    combo(ChannelCode, entry.channel);
    combo(ChannelZoneCode, QString());
    for (int box = ShipperCompany; box <= DeclaredValue; ++box)
        if (box != ServiceType) type(static_cast<Box>(box), QString());
    for (int box = SignedBy; box <= Height; ++box) type(static_cast<Box>(box), QString());
    type(Number, entry.number);
    type(TotalCharge, QString::number(entry.total, 'g', 15));
    type(ShippingCost, QString::number(entry.cost, 'g', 15));
    Find<controls::DTPicker>(form, u"DTP"_s).SetValue(entry.date);
    auto& released = Find<controls::CheckBox>(form, u"ChkChuHuo"_s);
    if (released.Value() == 0) released.click();
}

}  // namespace tests
