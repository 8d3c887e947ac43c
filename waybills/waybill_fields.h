// The text boxes of the waybill's card and the columns of table B01, matched by position. Each row of one
// table gives a text box, its column, its kind and its caption. Without a screen: the save's statement and
// the card use the same table.
//
// Always holds: text boxes 0 to 42 are in the order of the table's first 43 columns. Weights are in kg,
// lengths in cm, amounts in yuan; a fuel rate is a factor.
#pragma once

#include <QString>

#include <array>
#include <span>

namespace waybills {

using namespace Qt::StringLiterals;

enum Box {
    Number,
    SendDate,
    Forwarding,
    Remark,
    OriginName,
    ChannelCode,
    ServiceZoneCode,
    Destination,
    ShipperCompany,
    ShipperCompanyEnglish,
    ShipperAddress,
    ShipperAddressEnglish,
    ConsigneeCompany,
    ConsigneeCompanyEnglish,
    ConsigneeAddress,
    ConsigneeAddressEnglish,
    Telephone,
    ServiceType,
    Goods,
    DeclaredValue,
    Pieces,
    ReceivedWeight,
    FirstWeighing,
    ShippedWeight,
    Volume,
    PaymentMode,
    BasicCharge,
    AdditionalCharge,
    TotalCharge,
    Maker,
    Courier,
    CustomerCode,
    ReleaseMark,
    FuelRate,
    ShippingCost,
    ChannelFuelRate,
    Incident,
    IncidentReason,
    IncidentOutcome,
    IncidentExplanation,
    ChannelZoneCode,
    SignedBy,
    DeliveryTime,
    OtherFees,
    ChannelOtherFees,
    ChannelAdditionalFees,
    Length,
    Width,
    Height,
    BoxCount
};

/// The number of text boxes that the card reads by column position; it reads the later ones by name.
constexpr int BoxesByPosition = DeliveryTime + 1;

enum class Kind { Text, Number };

struct BoxRow {
    Box box;
    QString field;
    Kind kind;
    QString caption;
    /// Hidden from an operator who may not see figures.
    bool figure = false;
};

/// In the order of the text boxes.
const std::array<BoxRow, BoxCount>& Boxes();

// The texts of the release mark of a waybill that is not released; any other text is the name of the operator
// who released it.
inline const QString NotChecked = u"未审核"_s;  ///< new
inline const QString NotShipped = u"未出货"_s;  ///< the operator removed the mark
bool IsReleased(const QString& releaseMark);

/// A code as it is stored ("月结"), and the dressed text that the card shows for it ("月结.Account").
struct CodedWord {
    QString code;
    QString shown;
};
bool IsCodeOf(std::span<const CodedWord> words, QStringView code);
inline const std::array<CodedWord, 2> ServiceTypes = {
    {{u"D"_s, u"D.文件(File)"_s}, {u"S"_s, u"S.物品(Parcel)"_s}}};
inline const std::array<CodedWord, 3> PaymentModes = {
    {{u"月结"_s, u"月结.Account"_s}, {u"现金"_s, u"现金.Cash"_s}, {u"到付"_s, u"到付.Charge On Delivery"_s}}};

}  // namespace waybills
