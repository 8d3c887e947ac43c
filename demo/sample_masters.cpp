#include "demo/sample_masters.h"

#include "platform/text/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace sample {
namespace {

constexpr int HeavySegments = 15;
// From a heavy segment to the next, as fractions of the first one's price.
constexpr double FallOfPrice = 0.02;
constexpr double FallOfCost = 0.03;

/// The rate per kg in that segment, to one decimal.
QString HeavyRate(double first, double fall, int segment) {
    return text::GeneralText(text::Val(text::FormatFixed(first * (1 - fall * segment), 1)));
}

}  // namespace

const QStringList& Standard() {
    static const QStringList figures =
        u"0.5 0.5 0.5 0.5 21 46 71 101 151 201 251 301 401 501 601 701 801 901 1001 1.5"_s.split(u' ');
    return figures;
}

const std::vector<Named>& Couriers() {
    static const std::vector<Named> couriers = {
        {u"吴一鸣"_s, u"浦东北片（虚构）"_s},   {u"郑小海"_s, u"浦东南片（虚构）"_s},
        {u"冯立"_s, u"徐汇、长宁（虚构）"_s},   {u"褚卫东"_s, u"闵行、松江（虚构）"_s},
        {u"沈大伟"_s, u"嘉定、青浦（虚构）"_s}, {u"欧阳建国"_s, u"苏州工业园区（虚构）"_s},
        {u"韩春"_s, u"杭州滨江（虚构）"_s},     {u"杨帆"_s, u"宁波北仑（虚构）"_s}};
    return couriers;
}

const std::vector<Named>& Origins() {
    static const std::vector<Named> origins = {{u"上海"_s, u"021-5555 0100（虚构）"_s},
                                               {u"苏州"_s, u"0512-5555 0100（虚构）"_s},
                                               {u"杭州"_s, u"0571-5555 0100（虚构）"_s},
                                               {u"宁波北仑"_s, u"0574-5555 0100（虚构）"_s}};
    return origins;
}

const std::vector<Named>& Reasons() {
    static const std::vector<Named> reasons = {{u"地址不详"_s, u"与发件人核对后再派送（样例）"_s},
                                               {u"海关查验"_s, u"等待海关放行（样例）"_s},
                                               {u"收件人外出"_s, u"次日再派（样例）"_s},
                                               {u"外包装破损"_s, u"拍照留存，重新包装（样例）"_s},
                                               {u"航班延误"_s, u"改配下一航班（样例）"_s}};
    return reasons;
}

const std::vector<SmallTable>& SmallTables() {
    static const std::vector<SmallTable> tables = {{u"A030"_s,
                                                    {{u"孙雨晴"_s, u"上海大客户（虚构）"_s},
                                                     {u"李明远"_s, u"苏州、杭州（虚构）"_s},
                                                     {u"赵清"_s, u"宁波（虚构）"_s}}},
                                                   {u"A04"_s, Couriers()},
                                                   {u"A05"_s, Origins()},
                                                   {u"A06"_s, Reasons()}};
    return tables;
}

const std::vector<Zone>& Zones() {
    static const std::vector<Zone> zones = {
        {u"A01"_s,
         u"华东"_s,
         u"East China"_s,
         1,
         12,
         2,
         12,
         3,
         5,
         {{u"南京"_s, u"Nanjing"_s}, {u"合肥"_s, u"Hefei"_s}, {u"南昌"_s, u"Nanchang"_s}}},
        {u"A02"_s,
         u"华北"_s,
         u"North China"_s,
         2,
         20,
         5,
         20,
         6,
         9,
         {{u"北京"_s, u"Beijing"_s}, {u"天津"_s, u"Tianjin"_s}, {u"青岛"_s, u"Qingdao"_s}}},
        {u"A03"_s,
         u"华南"_s,
         u"South China"_s,
         2,
         18,
         4,
         18,
         5,
         8,
         {{u"广州"_s, u"Guangzhou"_s}, {u"深圳"_s, u"Shenzhen"_s}, {u"厦门"_s, u"Xiamen"_s}}},
        {u"A04"_s,
         u"西南"_s,
         u"Southwest China"_s,
         3,
         22,
         6,
         22,
         7,
         11,
         {{u"成都"_s, u"Chengdu"_s}, {u"重庆"_s, u"Chongqing"_s}, {u"昆明"_s, u"Kunming"_s}}},
        {u"B01"_s,
         u"日本"_s,
         u"Japan"_s,
         2,
         95,
         28,
         120,
         34,
         46,
         {{u"东京"_s, u"Tokyo"_s}, {u"大阪"_s, u"Osaka"_s}, {u"名古屋"_s, u"Nagoya"_s}}},
        {u"B02"_s,
         u"韩国"_s,
         u"Korea"_s,
         2,
         90,
         26,
         112,
         32,
         44,
         {{u"首尔"_s, u"Seoul"_s}, {u"釜山"_s, u"Busan"_s}}},
        {u"B03"_s,
         u"东南亚一区"_s,
         u"South-East Asia 1"_s,
         3,
         100,
         30,
         125,
         38,
         50,
         {{u"新加坡"_s, u"Singapore"_s}, {u"吉隆坡"_s, u"Kuala Lumpur"_s}}},
        {u"B04"_s,
         u"东南亚二区"_s,
         u"South-East Asia 2"_s,
         3,
         108,
         32,
         135,
         40,
         54,
         {{u"曼谷"_s, u"Bangkok"_s}, {u"胡志明市"_s, u"Ho Chi Minh City"_s}, {u"马尼拉"_s, u"Manila"_s}}},
        {u"B05"_s,
         u"南亚"_s,
         u"South Asia"_s,
         4,
         135,
         40,
         165,
         50,
         68,
         {{u"孟买"_s, u"Mumbai"_s}, {u"科伦坡"_s, u"Colombo"_s}}},
        {u"C01"_s,
         u"西欧"_s,
         u"Western Europe"_s,
         4,
         155,
         47,
         195,
         60,
         82,
         {{u"法兰克福"_s, u"Frankfurt"_s}, {u"巴黎"_s, u"Paris"_s}, {u"鹿特丹"_s, u"Rotterdam"_s}}},
        {u"C02"_s,
         u"南欧"_s,
         u"Southern Europe"_s,
         4,
         162,
         49,
         205,
         63,
         86,
         {{u"米兰"_s, u"Milan"_s}, {u"马德里"_s, u"Madrid"_s}}},
        {u"C03"_s,
         u"北欧"_s,
         u"Northern Europe"_s,
         5,
         168,
         51,
         212,
         65,
         90,
         {{u"哥本哈根"_s, u"Copenhagen"_s}, {u"斯德哥尔摩"_s, u"Stockholm"_s}}},
        {u"C04"_s,
         u"东欧"_s,
         u"Eastern Europe"_s,
         5,
         178,
         54,
         225,
         69,
         94,
         {{u"华沙"_s, u"Warsaw"_s}, {u"布拉格"_s, u"Prague"_s}}},
        {u"D01"_s,
         u"北美东岸"_s,
         u"North America East"_s,
         4,
         150,
         45,
         190,
         58,
         80,
         {{u"纽约"_s, u"New York"_s}, {u"波士顿"_s, u"Boston"_s}, {u"多伦多"_s, u"Toronto"_s}}},
        {u"D02"_s,
         u"北美西岸"_s,
         u"North America West"_s,
         3,
         145,
         43,
         184,
         56,
         77,
         {{u"洛杉矶"_s, u"Los Angeles"_s}, {u"温哥华"_s, u"Vancouver"_s}}},
        {u"D03"_s,
         u"墨西哥及中美洲"_s,
         u"Mexico and Central America"_s,
         6,
         185,
         56,
         235,
         72,
         98,
         {{u"墨西哥城"_s, u"Mexico City"_s}, {u"巴拿马城"_s, u"Panama City"_s}}},
        {u"D04"_s,
         u"南美"_s,
         u"South America"_s,
         6,
         198,
         60,
         250,
         78,
         106,
         {{u"圣保罗"_s, u"Sao Paulo"_s}, {u"圣地亚哥"_s, u"Santiago"_s}}},
        {u"E01"_s,
         u"澳大利亚与新西兰"_s,
         u"Australia and New Zealand"_s,
         4,
         140,
         42,
         178,
         54,
         74,
         {{u"悉尼"_s, u"Sydney"_s}, {u"奥克兰"_s, u"Auckland"_s}}},
        {u"F01"_s,
         u"中东"_s,
         u"Middle East"_s,
         4,
         165,
         50,
         205,
         62,
         84,
         {{u"迪拜"_s, u"Dubai"_s}, {u"利雅得"_s, u"Riyadh"_s}}},
        // The longest code and the longest name that a zone has.
        {u"F02-EAST"_s,
         u"非洲东部及印度洋岛国（偏远地区除外）"_s,
         u"East Africa and the Indian Ocean Islands"_s,
         7,
         210,
         65,
         268,
         84,
         116,
         {{u"内罗毕"_s, u"Nairobi"_s},
          {u"达累斯萨拉姆"_s, u"Dar es Salaam"_s},
          {u"路易港"_s, u"Port Louis"_s}}},
    };
    return zones;
}

QStringList ListPrices(const Zone& zone) {
    QStringList prices;
    for (const int price : {zone.document, zone.documentMore, zone.parcel, zone.parcelMore})
        prices += QString::number(price);
    for (int segment = 0; segment < HeavySegments; ++segment)
        prices += HeavyRate(zone.heavy, FallOfPrice, segment);
    return prices;
}

const std::vector<Channel>& Channels() {
    static const std::vector<Channel> channels = {
        {u"Q1"_s,
         u"晨星快件"_s,
         u"虚构渠道，全球快件"_s,
         {u"0.5"_s, u"0.5"_s, u"0.5"_s, u"0.5"_s},
         {u"21"_s, u"45"_s, u"71"_s, u"101"_s, u"301"_s}},
        {u"Q2"_s,
         u"蓝湾专线"_s,
         u"虚构渠道，欧美专线"_s,
         {u"0.5"_s, u"0.5"_s, u"0.5"_s, u"0.5"_s},
         {u"21"_s, u"71"_s, u"201"_s}},
        {u"Q3"_s,
         u"驼铃空运"_s,
         u"虚构渠道，大货空运"_s,
         {u"0.5"_s, u"0.5"_s, u"1"_s, u"0.5"_s},
         {u"12"_s, u"21"_s, u"45"_s, u"71"_s, u"101"_s, u"201"_s, u"301"_s, u"501"_s, u"801"_s, u"1001"_s}},
        {u"Q4"_s, u"近邻快运"_s, u"虚构渠道，国内，不分重包裹段"_s, {u"0.5"_s, u"0.5"_s, u"1"_s, u"1"_s}, {}},
    };
    return channels;
}

const std::vector<CostZone>& CostZones() {
    static const QStringList asia = {u"B01"_s, u"B02"_s, u"B03"_s, u"B04"_s, u"B05"_s};
    static const QStringList europe = {u"C01"_s, u"C02"_s, u"C03"_s, u"C04"_s};
    static const QStringList america = {u"D01"_s, u"D02"_s, u"D03"_s, u"D04"_s};
    static const QStringList south = {u"E01"_s, u"F01"_s, u"F02-EAST"_s};
    static const std::vector<CostZone> zones = {
        {u"Q1"_s,
         u"Q1-1"_s,
         u"日本韩国"_s,
         u"Japan and Korea"_s,
         2,
         {u"B01"_s, u"B02"_s},
         70,
         20,
         86,
         24,
         33,
         1},
        {u"Q1"_s,
         u"Q1-2"_s,
         u"东南亚与南亚"_s,
         u"South-East and South Asia"_s,
         3,
         {u"B03"_s, u"B04"_s, u"B05"_s},
         80,
         24,
         98,
         29,
         39,
         1},
        {u"Q1"_s, u"Q1-3"_s, u"欧洲"_s, u"Europe"_s, 4, europe, 115, 35, 142, 43, 60, 3},
        {u"Q1"_s,
         u"Q1-4"_s,
         u"美国与加拿大"_s,
         u"US and Canada"_s,
         3,
         {u"D01"_s, u"D02"_s},
         108,
         32,
         134,
         40,
         56,
         3},
        {u"Q1"_s,
         u"Q1-5"_s,
         u"拉丁美洲"_s,
         u"Latin America"_s,
         6,
         {u"D03"_s, u"D04"_s},
         138,
         42,
         172,
         52,
         74,
         0},
        {u"Q1"_s, u"Q1-6"_s, u"大洋洲、中东与非洲"_s, u"Oceania, Middle East, Africa"_s, 5, south, 128, 39,
         160, 48, 66, 0},
        {u"Q2"_s,
         u"Q2-EU"_s,
         u"西欧南欧专线"_s,
         u"Western and Southern Europe"_s,
         5,
         {u"C01"_s, u"C02"_s},
         108,
         33,
         134,
         40,
         57,
         1},
        {u"Q2"_s,
         u"Q2-USE"_s,
         u"北美东岸专线"_s,
         u"North America East"_s,
         5,
         {u"D01"_s},
         102,
         30,
         128,
         38,
         54,
         1},
        {u"Q2"_s,
         u"Q2-USW"_s,
         u"北美西岸专线"_s,
         u"North America West"_s,
         4,
         {u"D02"_s},
         98,
         29,
         122,
         36,
         51,
         5},
        {u"Q3"_s, u"Q3-AS"_s, u"亚洲空运"_s, u"Asia by air"_s, 4, asia, 85, 26, 90, 24, 31, 3},
        {u"Q3"_s, u"Q3-EU"_s, u"欧洲空运"_s, u"Europe by air"_s, 6, europe, 120, 36, 138, 40, 52, 7},
        {u"Q3"_s, u"Q3-AM"_s, u"美洲空运"_s, u"The Americas by air"_s, 6, america, 125, 38, 144, 42, 56.5, 7},
        {u"Q3"_s, u"Q3-AF"_s, u"大洋洲、中东与非洲空运"_s, u"Oceania, Middle East, Africa by air"_s, 7, south,
         130, 40, 150, 44, 61.5, 0},
        {u"Q4"_s, u"Q4-A"_s, u"江浙沪周边"_s, u"Around the delta"_s, 1, {u"A01"_s}, 8, 1.5, 8, 2, 0, 0},
        {u"Q4"_s,
         u"Q4-B"_s,
         u"国内其它"_s,
         u"Elsewhere in China"_s,
         3,
         {u"A02"_s, u"A03"_s, u"A04"_s},
         12,
         3,
         12,
         4.5,
         0,
         0},
    };
    return zones;
}

QStringList CostPrices(const CostZone& zone) {
    QStringList prices;
    for (const double price : {zone.document, zone.documentMore, zone.parcel, zone.parcelMore})
        prices += text::GeneralText(price);
    const auto channel = std::find_if(Channels().begin(), Channels().end(),
                                      [&](const Channel& one) { return one.code == zone.channel; });
    for (int segment = 0; segment < channel->bounds.size(); ++segment)
        prices += HeavyRate(zone.heavy, FallOfCost, segment);
    return prices;
}

const std::vector<Customer>& Customers() {
    const QString sun = u"孙雨晴"_s, li = u"李明远"_s, zhao = u"赵清"_s;
    static const std::vector<Customer> customers = {
        {u"SH001"_s, u"样例电子"_s, u"上海样例电子有限公司"_s, u"Shanghai Sample Electronics Co., Ltd."_s,
         u"上海市浦东新区样例路 1 号"_s, u"No.1 Sample Rd, Pudong, Shanghai"_s, sun, u"1"_s, u"1.08"_s},
        {u"SH002"_s, u"样例贸易"_s, u"上海样例贸易有限公司"_s, u"Shanghai Sample Trading Co., Ltd."_s,
         u"上海市徐汇区样例路 22 号 3 楼"_s, u"3/F, No.22 Sample Rd, Xuhui, Shanghai"_s, sun, u"1.1"_s,
         u"1.12"_s},
        {u"SH003"_s, u"样例仪器"_s, u"上海样例仪器有限公司"_s, u"Shanghai Sample Instruments Co., Ltd."_s,
         u"上海市闵行区样例路 333 号"_s, u"No.333 Sample Rd, Minhang, Shanghai"_s, sun, u"0.95"_s, u"0.92"_s},
        {u"SH004"_s, u"样例医疗"_s, u"上海样例医疗器械有限公司"_s, u"Shanghai Sample Medical Co., Ltd."_s,
         u"上海市嘉定区样例路 44 号"_s, u"No.44 Sample Rd, Jiading, Shanghai"_s, sun, u"1.05"_s, u"1.05"_s},
        {u"SH005"_s, u"样例设计"_s, u"上海样例设计事务所"_s, u"Sample Design Studio"_s,
         u"上海市长宁区样例路 5 号"_s, u"No.5 Sample Rd, Changning, Shanghai"_s, li, u"1.2"_s, u"1.25"_s},
        {u"SZ001"_s, u"样例光学"_s, u"苏州样例光学有限公司"_s, u"Suzhou Sample Optics Co., Ltd."_s,
         u"苏州工业园区样例街 66 号"_s, u"No.66 Sample St, SIP, Suzhou"_s, li, u"0.9"_s, u"0.95"_s},
        {u"SZ002"_s, u"样例丝绸"_s, u"苏州样例丝绸有限公司"_s, u"Suzhou Sample Silk Co., Ltd."_s,
         u"苏州市姑苏区样例巷 7 号"_s, u"No.7 Sample Lane, Gusu, Suzhou"_s, li, u"1"_s, u"1"_s},
        // The longest code, short name and full name that a customer has.
        {u"SZ2024-VIP-3"_s, u"样例精密模具"_s, u"样例精密模具与自动化装备制造（苏州工业园区）有限责任公司"_s,
         u"Sample Precision Moulds and Automation (SIP)"_s,
         u"江苏省苏州工业园区样例大道 8888 号样例科技园 16 号楼 A 座 1208 室"_s,
         u"Rm 1208, Tower A, Bldg 16, 8888 Sample Ave, SIP"_s, li, u"0.88"_s, u"0.86"_s},
        {u"HZ001"_s, u"样例软件"_s, u"杭州样例软件有限公司"_s, u"Hangzhou Sample Software Co., Ltd."_s,
         u"杭州市滨江区样例路 99 号"_s, u"No.99 Sample Rd, Binjiang, Hangzhou"_s, li, u"1.1"_s, u"1.15"_s},
        {u"HZ002"_s, u"样例茶业"_s, u"杭州样例茶业有限公司"_s, u"Hangzhou Sample Tea Co., Ltd."_s,
         u"杭州市西湖区样例村 10 号"_s, u"No.10 Sample Village, Xihu, Hangzhou"_s, li, u"1"_s, u"1.1"_s},
        {u"NB001"_s, u"样例紧固件"_s, u"宁波样例紧固件有限公司"_s, u"Ningbo Sample Fasteners Co., Ltd."_s,
         u"宁波市北仑区样例路 11 号"_s, u"No.11 Sample Rd, Beilun, Ningbo"_s, zhao, u"0.92"_s, u"0.9"_s},
        {u"NB002"_s, u"样例文具"_s, u"宁波样例文具有限公司"_s, u"Ningbo Sample Stationery Co., Ltd."_s,
         u"宁波市鄞州区样例路 12 号"_s, u"No.12 Sample Rd, Yinzhou, Ningbo"_s, zhao, u"1.02"_s, u"1.03"_s},
    };
    return customers;
}

QStringList OperatorStatements() {
    const QString head = u"insert into TE1 (F1,F2,F3,F60,F61,F62,F63,F64,F65,F66,F67) VALUES ("_s;
    return {head + u"'002','何开单','2',0,1,0,0,1,1,0,0)"_s,  // waybills, including released ones and figures
            head + u"'003','许会计','3',0,0,1,0,0,1,1,1)"_s,  // reports and the accounts
            head + u"'004','魏主管','4',1,1,1,0,1,1,1,1)"_s,  // everything except the administration
            head + u"'005','蒋录单','5',0,1,0,0,0,0,0,0)"_s};  // waybills only, without figures
}

}  // namespace sample
