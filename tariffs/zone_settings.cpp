#include "tariffs/zone_settings.h"

using namespace Qt::StringLiterals;
using search::Kind;

namespace {

const QString SellingSearch =
    u"select M02.F1,M02.F2,M02.F4,M02.F6,M02.F8,M02.P101,M02.P102,M02.P201,M02.P202,M02.P301,M02.P302,"_s +
    u"M02.P303,M02.P304,M02.P305 from M02 "_s;

/// The blanks are kept on purpose.
const QString CostSearch =
    u"select M01.F2 AS LB,M011.F1,M011.F2,M011.F6,M011.F8,M01.F1,M011.F4 from (M011 left join M01 on  "_s +
    u"M011.F3=M01.F1) left join M0111 ON M0111.F0=M011.F1 "_s;

/// The captions of the first four prices are cut when the standard is read: their tail has to be "0.5Kg". The
/// heavy ones are shown only while there is no standard.
std::vector<QString> SellingCaptions() {
    using enum selling_zone::Box;
    std::vector<QString> captions{u"区域编号"_s,     u"区域概称(中文)"_s, u"区域概称(英文)"_s,
                                  u"送达工作日"_s,   u"备注信息"_s,       u""_s,
                                  u"中文名称"_s,     u"英文名称"_s,       u"备注信息"_s,
                                  u"文件首0.5Kg"_s,  u"文件续0.5Kg"_s,    u"小包裹首0.5Kg"_s,
                                  u"小包裹续0.5Kg"_s};
    for (int segment = 1; segment <= LastPrice - LastPlainPrice; ++segment)
        captions.push_back(u"重包裹第%1段"_s.arg(segment));
    return captions;
}

/// The head of the first four prices stays when a channel is read: two of them have a blank in it.
std::vector<QString> CostCaptions() {
    using enum cost_zone::Box;
    std::vector<QString> captions{
        u"区域编号"_s,     u"区域概称(中文)"_s, u"所属出货渠道"_s, u"区域概称(英文)"_s, u"送达工作日"_s,
        u"备注信息"_s,     u"中文名称"_s,       u"英文名称"_s,     u"备注信息"_s,       u"文件首 0.5Kg"_s,
        u"文件续 0.5Kg"_s, u"小包裹首0.5Kg"_s,  u"小包裹续0.5Kg"_s};
    for (int box = FirstHeavy; box <= LastPrice; ++box) captions.push_back(QString());
    return captions;
}

}  // namespace

const ZoneSettings& SellingZoneSettings() {
    using enum selling_zone::Box;
    static const ZoneSettings settings = {
        .form = u"A02"_s,
        .caption = u"本公司速递区域资料与报价"_s,
        .listTab = u"区域列表"_s,
        .cardTab = u"区域资料与报价"_s,
        .table = u"M02"_s,
        .areaTable = u"M021"_s,
        .headers =
            QStringList{u"区域编号"_s, u"区域概称(中文)"_s, u"区域概称(英文)"_s, u"送达时日"_s, u"备注"_s} +
            QStringList(20),
        .shownCols = 5,
        .loadedCols = 24,  // the last column of the list carries nothing
        .codeCol = 0,
        .nameCol = 1,
        .captions = SellingCaptions(),
        .places = {{Code, 0, 0, 1},
                   {Name, 1, 0, 3},
                   {EnglishName, 2, 0, 3},
                   {Days, 3, 0, 1},
                   {ChoiceField, 3, 1, 2},
                   {Remark, 4, 0, 3}},
        .englishName = EnglishName,
        .days = Days,
        .unused = Unused,
        .firstPrice = FirstPrice,
        .lastPrice = LastPrice,
        .pricesInARow = 5,
        .priceGroup = u"报价(元)"_s,
        .negativePrice = u"价格不能为负值！"_s,
        .priceNote = {},
        .choiceCombo = u"cmbFw"_s,
        .choiceBox = NoTextBox,
        .choiceLabel = u"Labfw"_s,
        .choiceCaption = u"范围"_s,
        .inputSwitches = {},
        .cascades = {u"delete from M031 where F1="_s, u"delete from B01 where F203="_s},
        .search = {.base = SellingSearch,
                   .fields = {{0, u"M02.F1"_s},
                              {1, u"M02.F2"_s},
                              {2, u"M02.F4"_s},
                              {3, u"M02.F6"_s, Kind::Number},
                              {4, u"M02.F8"_s}}},
        .searchTail = {},
    };
    return settings;
}

const ZoneSettings& CostZoneSettings() {
    using enum cost_zone::Box;
    using enum cost_zone::Column;
    using cost_zone::Columns;
    static const ZoneSettings settings = {
        .form = u"A011"_s,
        .caption = u"出货渠道区域成本"_s,
        .listTab = u"渠道区域列表"_s,
        .cardTab = u"渠道区域资料与成本"_s,
        .table = u"M011"_s,
        .areaTable = u"M0111"_s,
        .headers = QStringList{u"所属渠道"_s, u"区域编号"_s, u"区域概称(中文)"_s, u"送达时日"_s, u"备注"_s,
                               u"所属渠道编号"_s, u"区域概称(英文)"_s} +
                   QStringList(Columns - FirstPriceCol),
        .shownCols = 5,
        .loadedCols = Columns,
        .codeCol = CodeCol,
        .nameCol = NameCol,
        .captions = CostCaptions(),
        .places = {{ChoiceField, 0, 0, 3},
                   {Code, 1, 0, 1},
                   {Name, 2, 0, 3},
                   {EnglishName, 3, 0, 3},
                   {Days, 4, 0, 1},
                   {Remark, 5, 0, 3}},
        .englishName = EnglishName,
        .days = Days,
        .unused = NoTextBox,
        .firstPrice = FirstPrice,
        .lastPrice = LastPrice,
        .pricesInARow = 4,
        .priceGroup = u"出货成本(元)"_s,
        .negativePrice = u"出货成本不能为负值！"_s,
        .priceNote = u"注:出货成本分段价格右侧复选框如果被勾选,表示该重量段计价按首重价格+续重价格方式计算"_s,
        .choiceCombo = u"CmbLB"_s,
        .choiceBox = ChannelName,
        .choiceLabel = {},
        .choiceCaption = {},
        .inputSwitches = {EnglishName, AreaEnglish},
        .cascades = {u"delete from M031 where F1="_s, u"delete from B01 where F203="_s},
        // Kept on purpose: the fields are in the order of the selling zones, the headers in that of this
        // list. From the fourth on the operator picks a header and searches another field than it names.
        .search = {.base = CostSearch,
                   .fields = {{0, u"M01.F2"_s},
                              {1, u"M011.F1"_s},
                              {2, u"M011.F2"_s},
                              {3, u"M011.F4"_s},
                              {4, u"M011.F6"_s, Kind::Number},
                              {5, u"M011.F8"_s},
                              {SearchField::OwnCaption, u"M0111.F1"_s, Kind::Text, u"地区名称(中文)"_s},
                              {SearchField::OwnCaption, u"M0111.F2"_s, Kind::Text, u"地区名称(英文)"_s}}},
        // A zone with several places is one hit.
        .searchTail = u" GROUP BY M01.F2,M011.F1,M011.F2,M011.F6,M011.F8,M01.F1,M011.F4 "_s,
    };
    return settings;
}
