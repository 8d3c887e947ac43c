#include "tariffs/service_zones.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/text/numbers.h"
#include "tariffs/brackets.h"

using namespace Qt::StringLiterals;
using enum selling_zone::Box;

namespace {

constexpr int FirstPriceCol = 5;

const QString ListStatement =
    u"select M02.F1,M02.F2,M02.F4,M02.F6,M02.F8,M02.P101,M02.P102,M02.P201,M02.P202,M02.P301,M02.P302,"_s +
    u"M02.P303,M02.P304,M02.P305,M02.P306,M02.P307,M02.P308,M02.P309,M02.P310,M02.P311,M02.P312,M02.P313,"_s +
    u"M02.P314,M02.P315 from M02 order by M02.F1"_s;

}  // namespace

A02::A02() : ZoneForm(SellingZoneSettings()) {
    for (const QString& range : {u"国内"_s, u"国外"_s}) choice_->AddItem(range);
    choice_->SetItemsOnly();
    GD->SetColAlignment(Days, Qt::AlignRight);
}

void A02::Load() {
    FormMode = Browsing;
    BuildBracketCaptions();
    LoadGridOrReport(ListStatement);
}

/// Once per opening, on the captions as designed.
void A02::BuildBracketCaptions() {
    const auto standard = tariffs::ReadStandard(*Db);
    if (!standard) return;
    for (int box = FirstPrice; box <= LastPrice; ++box) {
        QLabel* caption = Lab[box];
        caption->setText(tariffs::ListPriceCaption(*standard, box - FirstPrice, caption->text()));
        Txt[box]->Widget()->setAccessibleName(caption->text());
    }
}

void A02::RowToCard() {
    if (CurRow == 0) CurRow = 1;
    for (int box = Code; box <= Remark; ++box) Txt[box]->SetText(CurrentCell(box));
    for (int box = FirstPrice; box <= LastPrice; ++box) {
        QString price = CurrentCell(box - FirstPrice + FirstPriceCol);
        if (box <= LastPlainPrice && text::IsPlainNumber(price))
            price = text::FormatFixed(text::Val(text::Trim(price)), 1);
        Txt[box]->SetText(price);
    }
    const QString range = GetStr(u"select F3 from M02 where F1="_s + Quoted(CurrentCell(Code)));
    choice_->SetListIndex(range == u"国内" ? 0 : 1);
    LoadAreas();
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
