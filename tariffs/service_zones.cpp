#include "tariffs/service_zones.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/text/numbers.h"
#include "tariffs/brackets.h"

using namespace Qt::StringLiterals;

namespace {

enum Box {
    Code,
    Name,
    EnglishName,
    Days,
    Remark,
    Unused,
    FirstPrice = 9,
    LastPlainPrice = 12,
    LastPrice = 27
};

constexpr int FirstPriceCol = 5;
constexpr int LoadedColumns = 24;

const QString ListStatement =
    u"select M02.F1,M02.F2,M02.F4,M02.F6,M02.F8,M02.P101,M02.P102,M02.P201,M02.P202,M02.P301,M02.P302,"_s +
    u"M02.P303,M02.P304,M02.P305,M02.P306,M02.P307,M02.P308,M02.P309,M02.P310,M02.P311,M02.P312,M02.P313,"_s +
    u"M02.P314,M02.P315 from M02 order by M02.F1"_s;

/// The captions of the first four prices are cut when the standard is read: their tail has to be "0.5Kg". The
/// heavy ones stand only while there is no standard.
std::vector<QString> DesignedCaptions() {
    std::vector<QString> captions{u"区域编号"_s,     u"区域概称(中文)"_s, u"区域概称(英文)"_s,
                                  u"送达工作日"_s,   u"备注信息"_s,       u""_s,
                                  u"中文名称"_s,     u"英文名称"_s,       u"备注信息"_s,
                                  u"文件首0.5Kg"_s,  u"文件续0.5Kg"_s,    u"小包裹首0.5Kg"_s,
                                  u"小包裹续0.5Kg"_s};
    for (int segment = 1; segment <= LastPrice - LastPlainPrice; ++segment)
        captions.push_back(u"重包裹第%1段"_s.arg(segment));
    return captions;
}

const ZoneSettings& Settings() {
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
        .loadedCols = LoadedColumns,  // the last column of the list carries nothing
        .codeCol = 0,
        .nameCol = 1,
        .captions = DesignedCaptions(),
        .places = {{Code, 0, 0, 1},
                   {Name, 1, 0, 3},
                   {EnglishName, 2, 0, 3},
                   {Days, 3, 0, 1},
                   {ChoicePlace, 3, 1, 2},
                   {Remark, 4, 0, 3}},
        .englishName = EnglishName,
        .days = Days,
        .unused = Unused,
        .firstPrice = FirstPrice,
        .lastPrice = LastPrice,
        .priceGroup = u"报价(元)"_s,
        .negativePrice = u"价格不能为负值！"_s,
        .priceNote = {},
        .choiceCombo = u"cmbFw"_s,
        .choiceBox = NoBox,
        .choiceLabel = u"Labfw"_s,
        .choiceCaption = u"范围"_s,
        .inputSwitches = {},
        .cascades = {u"delete from M031 where F1='"_s, u"delete from B01 where F203='"_s},
    };
    return settings;
}

}  // namespace

A02::A02() : ZoneForm(Settings()) {
    for (const QString& range : {u"国内"_s, u"国外"_s}) choice_->AddItem(range);
    choice_->lineEdit()->setReadOnly(true);  // these two and no other
    GD->SetColAlignment(Days, Qt::AlignRight);
}

void A02::Load() {
    FormMode = Browsing;
    BuildBracketCaptions();
    LoadGridOrTell(ListStatement);
}

/// Once per opening, on the captions as designed.
void A02::BuildBracketCaptions() {
    const auto standard = tariffs::ReadStandard(*Db);
    if (!standard) return;
    for (int box = FirstPrice; box <= LastPrice; ++box) {
        QLabel* caption = Lab[static_cast<std::size_t>(box)];
        caption->setText(tariffs::ListPriceCaption(*standard, box - FirstPrice, caption->text()));
        Txt[static_cast<std::size_t>(box)]->Widget()->setAccessibleName(caption->text());
    }
}

void A02::RowToCard() {
    if (CurRow == 0) CurRow = 1;
    for (int box = Code; box <= Remark; ++box) Txt[static_cast<std::size_t>(box)]->SetText(CurrentCell(box));
    for (int box = FirstPrice; box <= LastPrice; ++box) {
        QString price = CurrentCell(box - FirstPrice + FirstPriceCol);
        if (box <= LastPlainPrice && text::IsPlainNumber(price))
            price = text::FormatFixed(text::Val(text::Trim(price)), 1);
        Txt[static_cast<std::size_t>(box)]->SetText(price);
    }
    const QString range = GetStr(u"select F3 from M02 where F1="_s + Quoted(CurrentCell(Code)));
    choice_->SetListIndex(range == u"国内" ? 0 : 1);
    FillAreas();
}

QString A02::InsertStatement() const {
    QStringList values{Quoted(TrimmedBox(Code)), Quoted(TrimmedBox(Name)), Quoted(TrimmedBox(EnglishName)),
                       NumberBox(Days), Quoted(TrimmedBox(Remark))};
    for (int box = FirstPrice; box <= LastPrice; ++box) values += NumberBox(box);
    values += Quoted(choice_->Text());
    return u"insert into M02 (F1,F2,F4,F6,F8,P101,P102,P201,P202,P301,P302,P303,P304,P305,P306,P307,P308,"_s +
           u"P309,P310,P311,P312,P313,P314,P315,F3) VALUES ("_s + values.join(u',') + u")"_s;
}

QStringList A02::SavedLine() const {
    QStringList cells{BoxText(Code), BoxText(Name), BoxText(EnglishName), NumberBox(Days), BoxText(Remark)};
    for (int box = FirstPrice; box <= LastPrice; ++box) cells += BoxText(box);
    return cells;
}
