#include "demo/day_entries.h"

using namespace Qt::StringLiterals;

namespace demo {
namespace {

const QDate kSaturday(2024, 11, 23);
const QString kZone = u"D01.北美东岸"_s;
constexpr int kSegments = 15;

/// The list prices of the new zone; each heavy segment costs 1 yuan per kg less than the one before.
QStringList ListPrices() {
    QStringList prices = {u"170"_s, u"52"_s, u"215"_s, u"66"_s};
    for (int segment = 0; segment < kSegments; ++segment) prices += QString::number(88 - segment);
    return prices;
}

std::vector<Entry> Boxes(int first, const QStringList& texts) {
    std::vector<Entry> entries;
    for (const QString& text : texts) entries.push_back({u"Txt(%1)"_s.arg(first++), text});
    return entries;
}

}  // namespace

std::vector<Entry> ZoneEntries() {
    return Boxes(0, {u"G01"_s, u"中亚"_s, u"Central Asia"_s, u"5"_s});
}

std::vector<Entry> ZonePrices() {
    return Boxes(9, ListPrices());
}

const std::vector<MasterRow>& ZoneAreas() {
    static const std::vector<MasterRow> areas = {
        {u"阿拉木图"_s, u"Almaty"_s}, {u"塔什干"_s, u"Tashkent"_s}, {u"比什凯克"_s, u"Bishkek"_s}};
    return areas;
}

std::vector<Entry> ChannelEntries() {
    return Boxes(0, {u"HY01"_s, kChannel, u"每日 18:00 取件"_s, u"0.5"_s, u"0.5"_s, u"0.5"_s, u"0.5"_s,
                     u"2"_s, u"21"_s, u"71"_s});
}

const std::vector<CostZone>& CostZones() {
    static const std::vector<CostZone> zones = {
        {.entries = {{u"Txt(0)"_s, u"HY01-5"_s},
                     {u"Txt(1)"_s, u"美国东部及加拿大东部"_s},
                     {u"Txt(3)"_s, u"US East and Canada East"_s},
                     {u"Txt(4)"_s, u"4"_s},
                     {u"Txt(5)"_s, u"阿拉斯加除外"_s}},
         .areas = {{u"纽约"_s, u"New York"_s}, {u"波士顿"_s, u"Boston"_s}, {u"多伦多"_s, u"Toronto"_s}},
         .prices = Boxes(9, {u"110"_s, u"30"_s, u"140"_s, u"40"_s, u"58"_s, u"52"_s}),
         .turned = {u"Chk(13)"_s, u"Chk(14)"_s},
         .stored = u"美国东部及加拿大东部|HY01|US East and Canada East|4|110|30|140|40|58|52|2|0|-1"_s},
        {.entries = {{u"Txt(0)"_s, u"HY01-6"_s},
                     {u"Txt(1)"_s, u"美国西部及加拿大西部"_s},
                     {u"Txt(3)"_s, u"US West and Canada West"_s},
                     {u"Txt(4)"_s, u"3"_s}},
         .areas = {{u"洛杉矶"_s, u"Los Angeles"_s}, {u"温哥华"_s, u"Vancouver"_s}},
         .prices = Boxes(9, {u"104"_s, u"28"_s, u"132"_s, u"38"_s, u"55"_s, u"49.5"_s}),
         .turned = {},
         .stored = u"美国西部及加拿大西部|HY01|US West and Canada West|3|104|28|132|38|55|49.5|2|0|-1"_s},
    };
    return zones;
}

const std::vector<Customer>& Customers() {
    static const std::vector<Customer> customers = {
        {.code = u"C0012"_s,
         .name = kCustomer,
         .company = u"上海华兴电子有限公司"_s,
         .entries = {{u"Txt(3)"_s, u"Shanghai Huaxing Electronics Co., Ltd."_s},
                     {u"Txt(4)"_s, u"上海市浦东新区金桥路 1288 号 6 号楼 3 层"_s},
                     {u"Txt(5)"_s, u"3/F Bldg 6, No.1288 Jinqiao Rd, Pudong, Shanghai"_s},
                     {u"Txt(6)"_s, u"021-5555 0188"_s},
                     {u"CmbYWY"_s, u"孙雨晴"_s}}},
        {.code = u"C0027"_s,
         .name = u"恒丰贸易"_s,
         .company = u"上海恒丰贸易有限公司"_s,
         .entries = {{u"Txt(3)"_s, u"Shanghai Hengfeng Trading Co., Ltd."_s}, {u"CmbYWY"_s, u"孙雨晴"_s}}},
    };
    return customers;
}

const std::vector<SmallMaster>& SmallMasters() {
    static const std::vector<SmallMaster> masters = {
        {.form = u"A030"_s,
         .keys = u"A4"_s,
         .table = u"M030"_s,
         .picture = u"salesperson"_s,
         .caption = u"业务员资料"_s,
         .newcomer = {u"郑凯"_s, u"南京、无锡"_s}},
        {.form = u"A04"_s,
         .keys = u"A6"_s,
         .table = u"M04"_s,
         .picture = u"courier"_s,
         .caption = u"外务员资料"_s,
         .newcomer = {u"方志远"_s, u"昆山"_s}},
        {.form = u"A05"_s,
         .keys = u"A7"_s,
         .table = u"M05"_s,
         .picture = u"origin"_s,
         .caption = u"始发地资料"_s,
         .newcomer = {u"无锡"_s, u"0510-5555 0100"_s}},
        {.form = u"A06"_s,
         .keys = u"A8"_s,
         .table = u"M06"_s,
         .picture = u"incident"_s,
         .caption = u"速递事故原因设置"_s,
         .newcomer = {u"收件人拒收"_s, u"与发件人确认后退回"_s}},
    };
    return masters;
}

const std::vector<Consignment>& Consignments() {
    static const std::vector<Consignment> day = {
        {.number = u"KV2411250001"_s,
         .rule = u"文件，首重加续重"_s,
         .date = kToday,
         .entries = {{u"Cmb(6)"_s, kZone},
                     {u"Cmb(7)"_s, u"纽约"_s},
                     {u"Txt(12)"_s, u"东方光电公司"_s},
                     {u"Txt(16)"_s, u"+1 212 555 0134"_s},
                     {u"Txt(13)"_s, u"Eastern Photonics Inc."_s},
                     {u"Txt(15)"_s, u"12/F, 463 Seventh Avenue, New York, NY 10018"_s},
                     {u"Cmb(17)"_s, u"D.文件(File)"_s},
                     {u"Txt(18)"_s, u"合同"_s},
                     {u"Txt(20)"_s, u"1"_s},
                     {u"Txt(21)"_s, u"1.2"_s},
                     {u"Txt(46)"_s, u"0"_s},
                     {u"Txt(47)"_s, u"0"_s},
                     {u"Txt(48)"_s, u"0"_s},
                     {u"Txt(33)"_s, u"1.145"_s}},
         .basic = u"259.2"_s,  // 162 + 2 x 48.6
         .total = u"296.78"_s},
        {.number = u"KV2411250002"_s,
         .rule = u"小包裹，首重加续重"_s,
         .date = kToday,
         .entries = {{u"Txt(3)"_s, u"易碎，外箱加固"_s},
                     {u"Cmb(6)"_s, kZone},
                     {u"Cmb(7)"_s, u"纽约"_s},
                     {u"Cmb(5)"_s, u"HY01."_s + kChannel},
                     {u"Txt(12)"_s, u"东方光电公司"_s},
                     {u"Txt(16)"_s, u"+1 212 555 0134"_s},
                     {u"Txt(13)"_s, u"Eastern Photonics Inc."_s},
                     {u"Txt(14)"_s, u"纽约州纽约市第七大道 463 号 12 层"_s},
                     {u"Txt(15)"_s, u"12/F, 463 Seventh Avenue, New York, NY 10018"_s},
                     {u"Cmb(17)"_s, u"S.物品(Parcel)"_s},
                     {u"Txt(18)"_s, u"光学传感器样品"_s},
                     {u"Txt(19)"_s, u"USD 480"_s},
                     {u"Txt(20)"_s, u"2"_s},
                     {u"Txt(21)"_s, u"3"_s},
                     {u"Txt(22)"_s, u"2.9"_s},
                     {u"Txt(23)"_s, u"3"_s},
                     {u"Txt(46)"_s, u"42"_s},
                     {u"Txt(47)"_s, u"30"_s},
                     {u"Txt(48)"_s, u"26"_s},
                     {u"Txt(27)"_s, u"35"_s},
                     {u"Txt(43)"_s, u"20"_s},
                     {u"Txt(33)"_s, u"1.145"_s}},
         .basic = u"518.2"_s,    // 205.2 + 5 x 62.6
         .total = u"653.41"_s},  // (518.2 + 35) x 1.145 + 20
        {.number = u"KV2411250003"_s,
         .rule = u"重包裹分段，每公斤计价"_s,
         .date = kToday,
         .released = true,
         .entries = {{u"Txt(2)"_s, u"HY8860 2417 5538"_s},
                     {u"Txt(3)"_s, u"木箱，请勿倒置"_s},
                     {u"Cmb(6)"_s, kZone},
                     {u"Cmb(7)"_s, u"波士顿"_s},
                     {u"Cmb(5)"_s, u"HY01."_s + kChannel},
                     {u"Txt(12)"_s, u"北辰仪器公司"_s},
                     {u"Txt(16)"_s, u"+1 617 555 0182"_s},
                     {u"Txt(13)"_s, u"Polaris Instruments LLC"_s},
                     {u"Txt(14)"_s, u"马萨诸塞州波士顿市港湾街 25 号"_s},
                     {u"Txt(15)"_s, u"25 Harbor Street, Boston, MA 02210"_s},
                     {u"Cmb(17)"_s, u"S.物品(Parcel)"_s},
                     {u"Txt(18)"_s, u"测试台架"_s},
                     {u"Txt(19)"_s, u"USD 1200"_s},
                     {u"Txt(20)"_s, u"3"_s},
                     {u"Txt(21)"_s, u"30"_s},
                     {u"Txt(22)"_s, u"29.6"_s},
                     {u"Txt(23)"_s, u"30"_s},
                     {u"Txt(46)"_s, u"60"_s},
                     {u"Txt(47)"_s, u"45"_s},
                     {u"Txt(48)"_s, u"40"_s},
                     {u"Txt(43)"_s, u"0"_s},
                     {u"Txt(33)"_s, u"1.145"_s}},
         .basic = u"2592"_s,  // 86.4 x 30
         .total = u"2967.84"_s},
        {.number = u"KV2411250004"_s,
         .rule = u"该分段无报价，按首重加续重"_s,
         .date = kToday,
         .entries = {{u"Cmb(4)"_s, u"苏州"_s},
                     {u"Cmb(6)"_s, kZone},
                     {u"Cmb(7)"_s, u"多伦多"_s},
                     {u"Cmb(5)"_s, u"HY01."_s + kChannel},
                     {u"Txt(12)"_s, u"枫叶影像公司"_s},
                     {u"Txt(13)"_s, u"Maple Imaging Ltd."_s},
                     {u"Cmb(17)"_s, u"S.物品(Parcel)"_s},
                     {u"Txt(18)"_s, u"显示屏"_s},
                     {u"Txt(20)"_s, u"5"_s},
                     {u"Txt(21)"_s, u"50"_s},
                     {u"Txt(23)"_s, u"50"_s},
                     {u"Cmb(25)"_s, u"现金.Cash"_s},
                     {u"Txt(33)"_s, u"1.145"_s},
                     {u"Cmb(30)"_s, u"方志远"_s}},
         .basic = u"6402.6"_s,  // 205.2 + 99 x 62.6
         .total = u"7330.98"_s},
        {.number = u"KV2411230005"_s,
         .rule = u"文件，首重；补录"_s,
         .date = kSaturday,
         .entries = {{u"Cmb(6)"_s, kZone},
                     {u"Cmb(7)"_s, u"纽约"_s},
                     {u"Txt(12)"_s, u"东方光电公司"_s},
                     {u"Cmb(17)"_s, u"D.文件(File)"_s},
                     {u"Txt(18)"_s, u"报关单证"_s},
                     {u"Txt(20)"_s, u"1"_s},
                     {u"Txt(21)"_s, u"0.5"_s},
                     {u"Txt(46)"_s, u"0"_s},
                     {u"Txt(47)"_s, u"0"_s},
                     {u"Txt(48)"_s, u"0"_s},
                     {u"Cmb(25)"_s, u"到付.Charge On Delivery"_s},
                     {u"Txt(33)"_s, u"1.145"_s}},
         .basic = u"162"_s,
         .total = u"185.49"_s},
    };
    return day;
}

}  // namespace demo
