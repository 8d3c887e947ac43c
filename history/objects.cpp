#include "history/objects.h"

#include "waybills/waybill_fields.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace history {
namespace {

using Captions = QHash<QString, QString>;

void Number(Captions& captions, const QString& head, int first, int last, const QString& caption,
            int from = 1) {
    for (int i = first; i <= last; ++i) captions[head + QString::number(i)] = caption.arg(i - first + from);
}

const QString Heavy = u"重包裹第%1段"_s;

Captions Pair(const QString& key, const QString& note) {
    return {{u"F1"_s, key}, {u"F2"_s, note}};
}

Captions Prices(int firstHeavy, int lastHeavy) {
    Captions captions{{u"F1"_s, u"区域编号"_s},       {u"F2"_s, u"区域概称(中文)"_s},
                      {u"F4"_s, u"区域概称(英文)"_s}, {u"F6"_s, u"送达工作日"_s},
                      {u"F8"_s, u"备注信息"_s},       {u"P101"_s, u"文件首重"_s},
                      {u"P102"_s, u"文件续重"_s},     {u"P201"_s, u"小包裹首重"_s},
                      {u"P202"_s, u"小包裹续重"_s},   {u"P3"_s, u"重包裹分段数"_s}};
    Number(captions, u"P"_s, firstHeavy, lastHeavy, Heavy);
    Number(captions, u"A3"_s, 0, 9, u"重包裹第%1段按首重续重"_s);
    return captions;
}

Captions CostZone() {
    Captions captions = Prices(300, 309);
    captions[u"F3"_s] = u"所属出货渠道"_s;
    return captions;
}

Captions SellingZone() {
    Captions captions = Prices(301, 315);
    captions[u"F3"_s] = u"范围"_s;
    return captions;
}

Captions Standard() {
    Captions captions{{u"F1"_s, u"文件首重(KG)"_s},
                      {u"F2"_s, u"文件续重(KG)"_s},
                      {u"F3"_s, u"小包裹首重(KG)"_s},
                      {u"F4"_s, u"小包裹续重(KG)"_s},
                      {u"P888"_s, u"加价系数"_s}};
    Number(captions, u"F"_s, 5, 19, u"重包裹第%1段起重(KG)"_s);
    return captions;
}

Captions Channel() {
    Captions captions{{u"F1"_s, u"渠道编号"_s},       {u"F2"_s, u"渠道名称"_s},
                      {u"F3"_s, u"备注"_s},           {u"D0"_s, u"文件首重(KG)"_s},
                      {u"D1"_s, u"文件续重(KG)"_s},   {u"S0"_s, u"小包裹首重(KG)"_s},
                      {u"S1"_s, u"小包裹续重(KG)"_s}, {u"JFD"_s, u"重包裹分段数"_s}};
    Number(captions, u"J"_s, 0, 9, u"重包裹第%1段起重(KG)"_s);
    return captions;
}

Captions Customer() {
    Captions captions{{u"F1"_s, u"客户编码"_s},   {u"F2"_s, u"客户简称"_s},   {u"F301"_s, u"中文名称"_s},
                      {u"F302"_s, u"英文名称"_s}, {u"F401"_s, u"中文地址"_s}, {u"F402"_s, u"英文地址"_s},
                      {u"F5"_s, u"电话"_s},       {u"F6"_s, u"传真"_s},       {u"F7"_s, u"邮箱"_s},
                      {u"F8"_s, u"业务员"_s},     {u"F9"_s, u"备注"_s},       {u"P888"_s, u"客户加价系数"_s},
                      {u"LJFK"_s, u"累计付款"_s}, {u"LJQK"_s, u"累计欠款"_s}};
    Number(captions, u"F9"_s, 1, 4, u"备注%1"_s, 2);
    return captions;
}

Captions Quote() {
    Captions captions{{u"F0"_s, u"客户编码"_s}, {u"F1"_s, u"区域"_s},       {u"F2"_s, u"文件首重"_s},
                      {u"F3"_s, u"文件续重"_s}, {u"F4"_s, u"小包裹首重"_s}, {u"F5"_s, u"小包裹续重"_s}};
    Number(captions, u"F"_s, 6, 20, Heavy);
    return captions;
}

Captions Operator() {
    return {{u"F1"_s, u"操作员帐号"_s},
            {u"F2"_s, u"操作员姓名"_s},
            {u"F60"_s, u"基本资料"_s},
            {u"F61"_s, u"速递单据"_s},
            {u"F62"_s, u"统计报表"_s},
            {u"F63"_s, u"系统管理"_s},
            {u"F65"_s, u"速递单中的出重、成本价、客户价"_s},
            {u"F64"_s, u"修改已出货运单"_s},
            {u"F66"_s, u"修改删除帐款记录"_s},
            {u"F67"_s, u"帐款往来"_s}};
}

Captions Journal() {
    return {{u"S2"_s, u"业务类型"_s}, {u"SN"_s, u"序号"_s},     {u"LB"_s, u"类别"_s},
            {u"F1"_s, u"单据号"_s},   {u"F2"_s, u"单据日期"_s}, {u"F3"_s, u"关系单位"_s},
            {u"YF"_s, u"增加金额"_s}, {u"FK"_s, u"付收金额"_s}, {u"QC"_s, u"期初余额"_s},
            {u"QM"_s, u"期末余额"_s}, {u"S1"_s, u"经手人"_s},   {u"F5"_s, u"制单人"_s},
            {u"F6"_s, u"审核人"_s},   {u"F10"_s, u"备注"_s},    {u"H8"_s, u"写入时间"_s},
            {u"K"_s, u"不计"_s},      {u"F30"_s, u"凭证号"_s}};
}

const Captions& CaptionsOf(const QByteArray& table) {
    const Captions place{{u"F0"_s, u"区域编号"_s},
                         {u"F1"_s, u"地区名称(中文)"_s},
                         {u"F2"_s, u"地区名称(英文)"_s},
                         {u"F8"_s, u"备注信息"_s}};
    static const QHash<QByteArray, Captions> all{
        {"M01", Channel()},
        {"M011", CostZone()},
        {"M0111", place},
        {"M02", SellingZone()},
        {"M021", place},
        {"M03", Customer()},
        {"M031", Quote()},
        {"M030", Pair(u"姓名"_s, u"备注"_s)},
        {"MS1", Standard()},
        {"M04", Pair(u"姓名"_s, u"备注"_s)},
        {"TE1", Operator()},
        {"M05", Pair(u"始发地名称"_s, u"始发地电话"_s)},
        {"TB1", Journal()},
        {"M06", Pair(u"事故原因"_s, u"备注信息"_s)},
        {"B01", {{u"DF"_s, u"到付金额"_s}, {u"YJ"_s, u"月结金额"_s}, {u"XJ"_s, u"现金金额"_s}}},
    };
    static const Captions none;
    const auto found = all.constFind(table);
    return found == all.constEnd() ? none : *found;
}

}  // namespace

bool HasKey(const Object& object) {
    return object.table != "MS1";
}

const std::vector<Object>& Objects() {
    static const std::vector<Object> objects = {
        {.table = "B01", .caption = u"速递单"_s, .menu = u"Menu_b"_s, .name = ""},
        {.table = "TB1", .caption = u"帐款"_s, .menu = u"Menu_wanglai"_s, .name = ""},
        {.table = "M03",
         .caption = u"客户资料"_s,
         .menu = u"Menu_A"_s,
         .name = "F2",
         .family = {{"M031", u"F0=%1"_s, true}},
         .usedIn = {u"B01 where F603"_s}},
        {.table = "M02",
         .caption = u"本司分区"_s,
         .menu = u"Menu_A"_s,
         .name = "F2",
         .family = {{"M021", u"F0=%1"_s}}},
        // The delete of a channel takes along what its cascade names.
        {.table = "M01",
         .caption = u"出货渠道"_s,
         .menu = u"Menu_A"_s,
         .name = "F2",
         .family = {{"M02", u"F3=%1"_s, false, true},
                    {"M021", u"%1<>''"_s, false, true},
                    {"M031", u"%1<>''"_s, true, true}},
         .usedIn = {u"M02 where F3"_s, u"B01 where F202"_s}},
        {.table = "M011",
         .caption = u"渠道区域"_s,
         .menu = u"Menu_A"_s,
         .name = "F2",
         .family = {{"M0111", u"F0=%1"_s}}},
        {.table = "M030",
         .caption = u"业务员"_s,
         .menu = u"Menu_A"_s,
         .name = "",
         .usedIn = {u"B01 where F602"_s}},
        {.table = "M04",
         .caption = u"外务员"_s,
         .menu = u"Menu_A"_s,
         .name = "",
         .usedIn = {u"B01 where F602"_s}},
        {.table = "M05",
         .caption = u"始发地"_s,
         .menu = u"Menu_A"_s,
         .name = "",
         .usedIn = {u"B01 where F201"_s}},
        {.table = "M06",
         .caption = u"事故原因"_s,
         .menu = u"Menu_A"_s,
         .name = "",
         .usedIn = {u"B01 where F201"_s}},
        {.table = "MS1", .caption = u"计价标准"_s, .menu = u"Menu_S"_s, .name = ""},
        {.table = "TE1", .caption = u"操作员"_s, .menu = u"Menu_S"_s, .name = "F2"},
    };
    return objects;
}

ColumnCaption CaptionOf(const QByteArray& table, const QString& column) {
    if (table == "B01")
        for (const waybills::BoxRow& box : waybills::Boxes())
            if (box.field == column) return {box.caption, box.figure, box.box == waybills::ShippingCost};
    const Captions& captions = CaptionsOf(table);
    const auto found = captions.constFind(column);
    return {.text = found == captions.constEnd() ? column : *found, .figure = table == "B01"};
}

QString JournalCaption(const QString& kind) {
    const int number = kind.toInt();
    if (number == 0) return u"帐款"_s;
    if (qAbs(number) == 10) return number > 0 ? u"付款"_s : u"收款"_s;
    return number > 0 ? u"应付款"_s : u"应收款"_s;
}

}  // namespace history
