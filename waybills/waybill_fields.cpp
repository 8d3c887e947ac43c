#include "waybills/waybill_fields.h"

#include "platform/text/numbers.h"

#include <algorithm>
#include <stdexcept>

namespace waybills {
namespace {

using BoxTable = std::array<BoxRow, BoxCount>;

/// A row in another place would store one text box in the column of another.
BoxTable InOrder(BoxTable rows) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].box != static_cast<Box>(i))
            throw std::logic_error("waybill_fields.cpp: a row out of order");
    return rows;
}

}  // namespace

const std::array<BoxRow, BoxCount>& Boxes() {
    constexpr bool Figure = true;
    static const BoxTable rows = InOrder({{
        {Number, u"F1"_s, Kind::Text, u"速递单号"_s},
        {SendDate, u"F101"_s, Kind::Text, u"寄件日期"_s},
        {Forwarding, u"F102"_s, Kind::Text, u"转单号"_s},
        {Remark, u"F103"_s, Kind::Text, u"备注"_s},
        {OriginName, u"F201"_s, Kind::Text, u"始发地"_s},
        {ChannelCode, u"F202"_s, Kind::Text, u"出货渠道"_s, Figure},
        {ServiceZoneCode, u"F203"_s, Kind::Text, u"目的区域"_s},
        {Destination, u"F2031"_s, Kind::Text, u"目的地"_s},
        {ShipperCompany, u"F2041"_s, Kind::Text, u"发件人公司名"_s},
        {ShipperCompanyEnglish, u"F2042"_s, Kind::Text, u"Shipper'Company"_s},
        {ShipperAddress, u"F2051"_s, Kind::Text, u"发件人地址"_s},
        {ShipperAddressEnglish, u"F2052"_s, Kind::Text, u"Shipper'Address"_s},
        {ConsigneeCompany, u"F2061"_s, Kind::Text, u"收件人公司名"_s},
        {ConsigneeCompanyEnglish, u"F2062"_s, Kind::Text, u"Consignee'Company"_s},
        {ConsigneeAddress, u"F2071"_s, Kind::Text, u"收件人地址"_s},
        {ConsigneeAddressEnglish, u"F2072"_s, Kind::Text, u"Consignee'Address"_s},
        {Telephone, u"F208"_s, Kind::Text, u"联系电话"_s},
        {ServiceType, u"F301"_s, Kind::Text, u"服务类型"_s},
        {Goods, u"F302"_s, Kind::Text, u"货品名称"_s},
        {DeclaredValue, u"F303"_s, Kind::Text, u"海关申明价值"_s},
        {Pieces, u"F401"_s, Kind::Number, u"件数"_s},
        {ReceivedWeight, u"F402"_s, Kind::Number, u"收重(KG)"_s},
        {FirstWeighing, u"F403"_s, Kind::Number, u"初重(KG)"_s},
        {ShippedWeight, u"F404"_s, Kind::Number, u"出重(KG)"_s, Figure},
        {Volume, u"F405"_s, Kind::Text, u"体积(CM)"_s},
        {PaymentMode, u"F501"_s, Kind::Text, u"付款方式"_s},
        {BasicCharge, u"F502"_s, Kind::Number, u"基本费用"_s, Figure},
        {AdditionalCharge, u"F503"_s, Kind::Number, u"附加费用"_s, Figure},
        {TotalCharge, u"F504"_s, Kind::Number, u"总计费用"_s, Figure},
        {Maker, u"F601"_s, Kind::Text, u"制单人"_s},
        {Courier, u"F602"_s, Kind::Text, u"外务员"_s},
        {CustomerCode, u"F603"_s, Kind::Text, u"发件客户"_s},
        {ReleaseMark, u"F604"_s, Kind::Text, u"审核人"_s},
        {FuelRate, u"F505"_s, Kind::Number, u"燃油费率"_s, Figure},
        {ShippingCost, u"F507"_s, Kind::Number, u"出货成本"_s, Figure},
        {ChannelFuelRate, u"F506"_s, Kind::Number, u"燃油费率"_s, Figure},
        {Incident, u"F701"_s, Kind::Text, u"问题事故"_s},
        {IncidentReason, u"F702"_s, Kind::Text, u"事故原因"_s},
        {IncidentOutcome, u"F703"_s, Kind::Text, u"处理结果"_s},
        {IncidentExplanation, u"F704"_s, Kind::Text, u"事故说明"_s},
        {ChannelZoneCode, u"F2021"_s, Kind::Text, u"出货区域"_s, Figure},
        {SignedBy, u"F605"_s, Kind::Text, u"收件人签收"_s},
        {DeliveryTime, u"F606"_s, Kind::Text, u"收件时间"_s},
        {OtherFees, u"F508"_s, Kind::Number, u"其它费用"_s, Figure},
        {ChannelOtherFees, u"F509"_s, Kind::Number, u"其它费用"_s, Figure},
        {ChannelAdditionalFees, u"F510"_s, Kind::Number, u"附加费用"_s, Figure},
        {Length, u"F4051"_s, Kind::Number, u"长"_s},
        {Width, u"F4052"_s, Kind::Number, u"宽"_s},
        {Height, u"F4053"_s, Kind::Number, u"高"_s},
    }});
    return rows;
}

bool IsCodeOf(std::span<const CodedWord> words, QStringView code) {
    return std::ranges::any_of(words, [&](const CodedWord& word) { return word.code == code; });
}

bool IsReleased(const QString& releaseMark) {
    const QString mark = text::Trim(releaseMark);
    return mark != NotChecked && mark != NotShipped;
}

}  // namespace waybills
