#include "tariffs/zone_form.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "tariffs/world_map.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using controls::Card;
using When = CommandRow::When;

namespace {

enum Box { Code = 0, Name = 1, AreaName = 6, AreaEnglish = 7, AreaRemark = 8 };

constexpr int RequiredBoxes = 2;
constexpr int LastChecked = 17;  // a save does not look at the heavy prices behind

constexpr int CodeLimit = 8;

/// Boxes up to here are locked, unlocked and emptied. Those behind are not: a new zone begins with the heavy
/// prices of the zone seen before from the sixth segment on. In browsing nobody gets into them.
constexpr int LastHandled = 17;

/// Proposed as the first place's English name. Kept on purpose: in the selling zones the operator sees the
/// days of delivery there.
constexpr int ProposedEnglish = 3;

constexpr int MapRows = 6;

/// What is pasted or dropped into the code is raised like what is typed; comparisons in the forms mind the
/// case.
void Raise(controls::LineBox& code) {
    const QString raised = code.text().toUpper();
    if (raised == code.text()) return;
    const int place = code.cursorPosition();
    code.SetText(raised);
    code.setCursorPosition(place);
}

}  // namespace

ZoneForm::ZoneForm(const ZoneSettings& settings)
    : RecordForm({.form = settings.form,
                  .caption = settings.caption,
                  .listTab = settings.listTab,
                  .cardTab = settings.cardTab,
                  .tabStripDisabled = true}),
      choice_(new controls::ComboBox(Frm)),
      zone_(settings) {
    SetUsualCommands({
        {u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Browsing, [this] { ExportGrid(*GD); }},
        {u"Menu_print"_s, u"&P.打印"_s, When::Browsing, [] {}},  // kept on purpose: nothing is printed
    });
    MakeBoxes();
    MakeChoice();
    BuildCard();
    WireCard();
    CloseCard();
    GD->SetCols(static_cast<int>(settings.headers.size()));
    for (int col = settings.shownCols; col < GD->Cols(); ++col) GD->SetGridColWidth(col, 0);
}

// ------------------------------------------------------------------------------------------ building

void ZoneForm::MakeBoxes() {
    for (const QString& caption : zone_.captions) MakeBox(caption, Txt.empty() ? CodeLimit : NoLimit);
    for (int box = LastHandled + 1; box <= zone_.lastPrice; ++box) Txt[box]->SetLocked(false);
    if (zone_.unused != NoTextBox) {
        Txt[zone_.unused]->Widget()->hide();
        Lab[zone_.unused]->hide();
    }
    for (int box = 0; box <= zone_.lastPrice; ++box)
        if (box == zone_.days || box >= zone_.firstPrice)
            Line(box).setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void ZoneForm::MakeChoice() {
    choice_->setObjectName(zone_.choiceCombo);
    WireBox(*choice_);
    if (zone_.choiceBox != NoTextBox) {
        choiceLabel_ = Lab[zone_.choiceBox];
        choiceLabel_->setBuddy(choice_);
        choice_->setAccessibleName(choiceLabel_->text());
        return;
    }
    choiceLabel_ = controls::MakeCaption(zone_.choiceCaption, choice_, Frm);
    choiceLabel_->setObjectName(zone_.choiceLabel);
}

ZoneAreas* ZoneForm::MakeAreas() const {
    return new ZoneAreas({{{Txt[AreaName], Lab[AreaName]},
                           {Txt[AreaEnglish], Lab[AreaEnglish]},
                           {Txt[AreaRemark], Lab[AreaRemark]}}});
}

ZonePrices* ZoneForm::MakePrices() const {
    std::vector<ZonePrices::Price> prices;
    for (int box = zone_.firstPrice; box <= zone_.lastPrice; ++box) prices.push_back({Txt[box], Lab[box]});
    return new ZonePrices(prices, zone_.pricesInARow, zone_.priceNote);
}

void ZoneForm::BuildCard() {
    card_ = MakeCard();
    areas_ = MakeAreas();
    prices_ = MakePrices();
    card_->Group(u"区域"_s, u"包含地区"_s);
    PlaceZone();
    const int mapRow = zone_.places.back().row + 1;
    card_->TallField(Card::Half::Left, mapRow, MapRows, 0, 3, nullptr, new WorldMap);
    card_->HalfPanel(Card::Half::Right, 0, mapRow + MapRows, areas_);
    card_->Group(zone_.priceGroup);
    card_->Panel(0, prices_->Rows(), prices_);
    card_->Finish();
    SetTabOrder(TabOrder());
}

void ZoneForm::PlaceZone() {
    for (const auto& [box, row, pair, span] : zone_.places) {
        const int shown = box == ChoiceField ? zone_.choiceBox : box;
        QLabel* caption = box == ChoiceField ? choiceLabel_ : Lab[box];
        QWidget* field = shown == NoTextBox ? choice_ : Txt[shown]->Widget();
        card_->Field(Card::Half::Left, row, pair, span, caption, field);
        if (box == ChoiceField && shown != NoTextBox) card_->Over(field, choice_);
    }
}

std::vector<QWidget*> ZoneForm::TabOrder() const {
    const auto box = [this](int i) { return Txt[i]->Widget(); };
    std::vector<QWidget*> tabOrder;
    for (const ZonePlace& place : zone_.places) {
        const int shown = place.box == ChoiceField ? zone_.choiceBox : place.box;
        if (shown != NoTextBox) tabOrder.push_back(box(shown));
        if (place.box == ChoiceField) tabOrder.push_back(choice_);
    }
    for (QWidget* stop : areas_->TabOrder()) tabOrder.push_back(stop);
    for (int i = zone_.firstPrice; i <= zone_.lastPrice; ++i) tabOrder.push_back(box(i));
    return tabOrder;
}

// ------------------------------------------------------------------------------------------ the card at work

void ZoneForm::WireCard() {
    for (int box = 0; box <= zone_.lastPrice; ++box) {
        auto& text = *Txt[box];
        text.GotFocus = [this, box] { EnterBox(box); };
        text.KeyPressed = [this, box](controls::KeyPress& key) { KeyInBox(box, key); };
    }
    Txt[Code]->LostFocus = [this] { DropTrailingBlanks(); };
    auto* code = &Line(Code);
    connect(code, &QLineEdit::textEdited, this, [code] { sys::Guarded([code] { Raise(*code); }); });
}

void ZoneForm::ShowForEdit(bool shown) {
    if (zone_.choiceBox == NoTextBox) choiceLabel_->setVisible(shown);
    choice_->setVisible(shown);
    areas_->ShowEntry(shown);
}

/// The heavy prices from the sixth segment on.
void ZoneForm::LookLocked(bool locked) {
    for (int box = LastHandled + 1; box <= zone_.lastPrice; ++box)
        controls::Mark(Txt[box]->Widget(), "state", locked ? u"locked"_s : QString());
}

void ZoneForm::OpenCard() {
    const controls::CardAtRest rest(*card_);
    for (int box = Name; box <= LastHandled; ++box) {
        if (box == zone_.unused) continue;
        auto& text = *Txt[box];
        text.SetLocked(false);
        if (FormMode == Adding) text.SetText({});
    }
    ShowForEdit(true);
    LookLocked(false);
    SetBoxesInTabOrder(true);
}

void ZoneForm::CloseCard() {
    const controls::CardAtRest rest(*card_);
    for (int box = Code; box <= LastHandled; ++box) Txt[box]->SetLocked(true);
    ShowForEdit(false);
    LookLocked(true);
    SetBoxesInTabOrder(false);
}

/// While browsing Tab goes straight to the places; the boxes would only send it back.
void ZoneForm::SetBoxesInTabOrder(bool inOrder) {
    for (auto* box : Txt) box->Widget()->setFocusPolicy(inOrder ? Qt::StrongFocus : Qt::ClickFocus);
}

void ZoneForm::EnterBox(int box) {
    if (FormMode < Adding) {
        TabS->SetFocus();
        return;
    }
    ProposeFor(box);
    Line(box).selectAll();
}

void ZoneForm::ProposeFor(int box) {
    const QString code = BoxText(Code);
    if (box == Name && !code.isEmpty() && BoxText(Name).isEmpty()) Txt[Name]->SetText(u"区域"_s + code);
    if (box == zone_.englishName && !code.isEmpty() && BoxText(box).isEmpty())
        Txt[box]->SetText(u"Zone "_s + code);
    if (box == AreaName && areas_->Empty() && BoxText(AreaEnglish).isEmpty()) {
        Txt[AreaName]->SetText(BoxText(Name));
        Txt[AreaEnglish]->SetText(BoxText(ProposedEnglish));
    }
}

void ZoneForm::KeyInBox(int box, controls::KeyPress& key) const {
    if (box == AreaRemark && key.IsEnter()) {
        // A second Enter adds the place.
        key.taken = true;
        areas_->GoToAdd();
        return;
    }
    if (box == Code) key.text = key.text.toUpper();
    const auto& switches = zone_.inputSwitches;
    if (key.IsEnter() && std::find(switches.begin(), switches.end(), box) != switches.end())
        sys::seams().switchInputMethod();
    controls::EnterMovesOn(key);
}

/// In the file a code with trailing blanks would be another code.
void ZoneForm::DropTrailingBlanks() {
    QString code = BoxText(Code);
    if (FormMode < Adding || !code.endsWith(u' ')) return;
    while (code.endsWith(u' ')) code.chop(1);
    Txt[Code]->SetText(code);
}

QString ZoneForm::TrimmedBox(int box) const {
    return text::Trim(BoxText(box));
}

QString ZoneForm::NumberBox(int box) const {
    return text::GeneralText(text::Val(BoxText(box)));
}

// ------------------------------------------------------------------------------------------ the commands

void ZoneForm::Menu_Add() {
    FormMode = Adding;
    EnterEdit();
    Txt[Code]->SetLocked(false);
    Txt[Code]->SetText({});
    ClearAreas();
    Txt[Code]->SetFocus();
}

void ZoneForm::Menu_edit() {
    FormMode = Editing;
    EnterEdit();
    Txt[Code]->SetLocked(IsUsed(CurrentCell(zone_.codeCol)));
    Txt[Code]->SetFocus();
}

/// By design no zone counts as used: it may be recoded and deleted, and quotes and waybills keep the old
/// code.
bool ZoneForm::IsUsed(const QString& /*code*/) const {
    return false;
}

void ZoneForm::Menu_del() {
    if (text::Trim(GD->TextMatrix(1, zone_.codeCol)).isEmpty()) return;
    const QString code = text::Trim(CurrentCell(zone_.codeCol));
    const QString name = CurrentCell(zone_.nameCol);
    const DeleteAnswer answer =
        AskToDelete(name, IsUsed(code), u"真的要删除"_s + name + u"吗?"_s, sys::BoxAnswer::No);
    if (answer == DeleteAnswer::No) return;
    // Not reached while no zone counts as used.
    if (answer == DeleteAnswer::RecordAndUses)
        for (const QString& cascade : zone_.cascades) Db->Execute(cascade + Quoted(code));
    Db->Execute(u"delete from "_s + zone_.table + u" WHERE F1="_s + Quoted(code));
    Db->Execute(u"delete from "_s + zone_.areaTable + u" WHERE F0="_s + Quoted(code));
    RemoveCurrentRecord(CurRowLimit::GridRows);
}

void ZoneForm::Menu_query() {
    RunQuery(*this, *GD, zone_.search,
             [this](const QString& sql) { LoadGridOrReport(sql + zone_.searchTail); });
}

bool ZoneForm::RequireAreas() const {
    // Only the first row is looked at.
    if (!areas_->FirstName().isEmpty()) return true;
    sys::Inform(u"请输入该区域包含的具体地区名！"_s, MsgTitle);
    return false;
}

bool ZoneForm::RequirePrices() const {
    for (int box = zone_.firstPrice; box <= LastChecked; ++box) {
        if (text::Val(BoxText(box)) >= 0) continue;
        sys::Inform(zone_.negativePrice, MsgTitle);
        return false;
    }
    return true;
}

/// The refusals in their order.
bool ZoneForm::TestCard() {
    return RequireFilled(RequiredBoxes) && RequireChoice() && RequireAreas() && RequirePrices();
}

bool ZoneForm::CheckCode() {
    const QString code = TrimmedBox(Code);
    const QString old = OldKey(zone_.codeCol);
    const QString found = NameOf(zone_.table, code);
    return PrepareSave({.key = code,
                        .old = old,
                        .found = found,
                        .refusal = LangText(u"["_s) + found + LangText(u"]已经使用了"_s) + BoxText(Code) +
                                   LangText(u"这个编号，请重新设置编号!"_s),
                        .deleteOld = [&] {
                            Db->Execute(u"delete from "_s + zone_.table + u" where F1="_s + Quoted(old));
                            Db->Execute(u"delete from "_s + zone_.areaTable + u" where F0="_s + Quoted(old));
                        }});
}

void ZoneForm::Menu_save() {
    DropTrailingBlanks();  // the box may not have been left
    if (!TestCard() || !CheckCode()) return;
    Db->Execute(InsertStatement());
    areas_->Store(zone_.areaTable, BoxText(Code));  // the code as it is, not trimmed
    AppendLine(SavedLine());
    FinishSave();
}
