// The card of a zone and how it behaves under the operator's hands; the commands are in zone_commands.cpp.
#include "tariffs/zone_form.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "records/export.h"

#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using controls::Card;
using When = CommandRow::When;

namespace {

enum Box { Code = 0, Name = 1, AreaName = 6, AreaEnglish = 7, AreaRemark = 8 };

constexpr int CodeLimit = 8;
constexpr int NoLimit = 32767;

/// Boxes up to here are locked, unlocked and emptied. Those behind are not: a new zone begins with the heavy
/// prices of the zone seen before from the sixth segment on. In browsing nobody gets into them.
constexpr int LastHandled = 17;

/// Proposed as the first place's English name. In the selling zones these are the days of delivery: so it has
/// always been.
constexpr int ProposedEnglish = 3;

constexpr int MapRows = 6;
constexpr QSize EastSize(224, 160);
constexpr QSize WestSize(229, 182);

constexpr int PriceCols = 5;   // prices in a row
constexpr int PriceParts = 3;  // caption, box, and what stands beside it
constexpr int PlainPrices = 4;
constexpr int PriceCaption = 104;  // with the gap to its box
constexpr int ColumnGap = 14;
constexpr int PriceBox = 56;
constexpr int BesideWidth = 26;
constexpr int BoxHeight = 24;
constexpr int RowGap = 8;

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
    SetCommands({
        {u"Menu_Add"_s, u"&A.增加"_s, When::Browsing, [this] { Menu_Add(); }},
        {u"Menu_edit"_s, u"&E.修改"_s, When::Browsing, [this] { Menu_edit(); }},
        {u"Menu_del"_s, u"&D.删除"_s, When::Browsing, [this] { Menu_del(); }},
        {u"Menu_query"_s, u"&Q.查找"_s, When::Browsing, [this] { Menu_query(); }},
        {u"Menu_save"_s, u"&S.保存"_s, When::Editing, [this] { Menu_save(); }},
        {u"Menu_cancel"_s, u"&C.取消"_s, When::Editing, [this] { Menu_cancel(); }},
        {u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Browsing, [this] { ExportGrid(*GD); }},
        {u"Menu_print"_s, u"&P.打印"_s, When::Browsing, [] {}},  // has never printed anything
        {u"Menu_Return"_s, u"&R.返回"_s, When::Always, [this] { Menu_Return(); }},
    });
    MakeBoxes();
    MakeChoice();
    MakeAreas();
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
    if (zone_.unused != NoBox) {
        Txt[zone_.unused]->Widget()->hide();
        Lab[zone_.unused]->hide();
    }
    for (int box = 0; box <= zone_.lastPrice; ++box)
        if (box == zone_.days || box >= zone_.firstPrice)
            static_cast<controls::LineBox*>(Txt[box]->Widget())
                ->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void ZoneForm::MakeChoice() {
    choice_->setObjectName(zone_.choiceCombo);
    WireBox(*choice_);
    if (zone_.choiceBox != NoBox) {
        choiceLabel_ = Lab[zone_.choiceBox];
        choiceLabel_->setBuddy(choice_);
        choice_->setAccessibleName(choiceLabel_->text());
        return;
    }
    choiceLabel_ = controls::MakeCaption(zone_.choiceCaption, choice_, Frm);
    choiceLabel_->setObjectName(zone_.choiceLabel);
}

void ZoneForm::MakeAreas() {
    GDdq = new controls::FlexGrid;
    GDdq->setObjectName(u"GDdq"_s);
    GDdq->setAccessibleName(u"包含地区"_s);
    GDdq->SetFramed(true);
    const QString captions[] = {u"添加 >>"_s, u"<< 删除"_s};
    for (std::size_t i = 0; i < Cmd.size(); ++i) {
        Cmd[i] = new controls::Button(captions[i]);
        Cmd[i]->setObjectName(u"Cmd(%1)"_s.arg(i));
    }
    ImgMap[0] = new MapPicture(u"east"_s, EastSize, Frm);
    ImgMap[1] = new MapPicture(u"west"_s, WestSize, Frm);
    for (std::size_t i = 0; i < ImgMap.size(); ++i) ImgMap[i]->setObjectName(u"ImgMap(%1)"_s.arg(i));
    ImgMap[0]->setAccessibleName(u"世界地图东部"_s);
    ImgMap[1]->setAccessibleName(u"世界地图西部"_s);
    ImgMap[1]->hide();
    ClearAreas();
}

void ZoneForm::BuildCard() {
    card_ = new Card;
    auto* column = new QVBoxLayout(Frm);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(card_);
    card_->Group(u"区域"_s, u"包含地区"_s);
    PlaceZone();
    const int mapRow = zone_.places.back().row + 1;
    card_->TallField(Card::Half::Left, mapRow, MapRows, 0, 3, nullptr, MapPanel());
    card_->TallField(Card::Half::Right, 0, mapRow + MapRows, 0, 3, nullptr, AreaPanel());
    card_->Group(zone_.priceGroup);
    card_->Panel(0, PriceRows(), PricePanel());
    card_->Finish();
    SetTabOrder(Stops());
}

void ZoneForm::PlaceZone() {
    for (const auto& [box, row, pair, span] : zone_.places) {
        const int shown = box == ChoicePlace ? zone_.choiceBox : box;
        QLabel* caption = box == ChoicePlace ? choiceLabel_ : Lab[box];
        QWidget* field = shown == NoBox ? choice_ : Txt[shown]->Widget();
        card_->Field(Card::Half::Left, row, pair, span, caption, field);
        if (box == ChoicePlace && shown != NoBox) card_->Over(field, choice_);
    }
}

QWidget* ZoneForm::MapPanel() {
    auto* panel = new QWidget;
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    for (MapPicture* picture : ImgMap) row->addWidget(picture, 0, Qt::AlignLeft | Qt::AlignTop);
    row->addStretch(1);
    return panel;
}

/// The places, and beneath them in an edit the boxes and buttons that change them.
QWidget* ZoneForm::AreaPanel() {
    auto* FrmDq = new QWidget;
    FrmDq->setObjectName(u"FrmDq"_s);
    FrmEddq = new QWidget(FrmDq);
    FrmEddq->setObjectName(u"FrmEddq"_s);
    auto* grid = new QGridLayout(FrmEddq);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(RowGap);
    const auto place = [&](Box box, int row, int col) {
        grid->addWidget(Lab[box], row, col);
        Txt[box]->Widget()->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        grid->addWidget(Txt[box]->Widget(), row, col + 1);
    };
    place(AreaName, 0, 0);
    place(AreaEnglish, 0, 3);
    place(AreaRemark, 1, 0);
    grid->setColumnMinimumWidth(2, 14);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(4, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(RowGap);
    for (controls::Button* button : Cmd) buttons->addWidget(button);
    buttons->addStretch(1);
    grid->addLayout(buttons, 1, 3, 1, 2);

    auto* column = new QVBoxLayout(FrmDq);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(RowGap);
    column->addWidget(GDdq, 1);
    column->addWidget(FrmEddq);
    return FrmDq;
}

int ZoneForm::PriceRows() const {
    const int heavy = zone_.lastPrice - zone_.firstPrice + 1 - PlainPrices;
    return 1 + (heavy + PriceCols - 1) / PriceCols + (zone_.priceNote.isEmpty() ? 0 : 1);
}

/// Documents and small parcels in the first row, the heavy segments below.
QWidget* ZoneForm::PricePanel() {
    auto* FrmPrice = new QWidget;
    FrmPrice->setObjectName(u"FrmPrice"_s);
    auto* grid = prices_ = new QGridLayout(FrmPrice);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(RowGap);
    for (int box = zone_.firstPrice; box <= zone_.lastPrice; ++box) {
        const int nth = box - zone_.firstPrice;
        const int heavy = nth - PlainPrices;
        const int row = heavy < 0 ? 0 : 1 + heavy / PriceCols;
        const int col = PriceParts * (heavy < 0 ? nth : heavy % PriceCols);
        Lab[box]->setFixedHeight(BoxHeight);
        grid->setRowMinimumHeight(row, BoxHeight);  // hidden prices keep their place
        QWidget* price = Txt[box]->Widget();
        price->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        price->setMinimumWidth(PriceBox);
        grid->addWidget(Lab[box], row, col);
        grid->addWidget(price, row, col + 1);
    }
    for (int pair = 0; pair < PriceCols; ++pair) {
        grid->setColumnMinimumWidth(PriceParts * pair, PriceCaption + (pair > 0 ? ColumnGap : 0));
        grid->setColumnStretch(PriceParts * pair + 1, 1);
    }
    if (!zone_.priceNote.isEmpty()) {
        auto* Label1 = controls::MakeCaption(zone_.priceNote, nullptr, FrmPrice);
        Label1->setObjectName(u"Label1"_s);
        Label1->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        grid->addWidget(Label1, PriceRows() - 1, 1, 1, PriceParts * PriceCols - 1);
    }
    return FrmPrice;
}

void ZoneForm::PutBeside(int price, QWidget* part) {
    QWidget* box = Txt[price]->Widget();
    int row = 0, col = 0, rows = 0, cols = 0;
    prices_->getItemPosition(prices_->indexOf(box), &row, &col, &rows, &cols);
    prices_->addWidget(part, row, col + 1, Qt::AlignRight | Qt::AlignVCenter);
    prices_->setColumnMinimumWidth(col + 1, BesideWidth);
    QWidget::setTabOrder(box, part);
}

std::vector<QWidget*> ZoneForm::Stops() const {
    const auto box = [this](int i) { return Txt[i]->Widget(); };
    std::vector<QWidget*> stops;
    for (const ZonePlace& place : zone_.places) {
        const int shown = place.box == ChoicePlace ? zone_.choiceBox : place.box;
        if (shown != NoBox) stops.push_back(box(shown));
        if (place.box == ChoicePlace) stops.push_back(choice_);
    }
    for (QWidget* stop : {box(AreaName), box(AreaEnglish), box(AreaRemark)}) stops.push_back(stop);
    stops.insert(stops.end(), {Cmd[0], Cmd[1], GDdq});
    for (int i = zone_.firstPrice; i <= zone_.lastPrice; ++i) stops.push_back(box(i));
    return stops;
}

// ------------------------------------------------------------------------------------------ the card at work

void ZoneForm::WireCard() {
    for (int box = 0; box <= zone_.lastPrice; ++box) {
        auto& text = *Txt[box];
        text.GotFocus = [this, box] { EnterBox(box); };
        text.KeyPressed = [this, box](controls::KeyPress& key) { KeyInBox(box, key); };
    }
    Txt[Code]->LostFocus = [this] { DropTrailingBlanks(); };
    auto* code = static_cast<controls::LineBox*>(Txt[Code]->Widget());
    connect(code, &QLineEdit::textEdited, this, [code] { sys::Guarded([code] { Raise(*code); }); });
    Cmd[0]->Click = [this] { AddArea(); };
    Cmd[1]->Click = [this] { DeleteArea(); };
    GDdq->Click = [this] { AreaToBoxes(); };
    GDdq->KeyPressed = [this](controls::KeyPress& key) {
        if (key.IsEnter()) AreaToBoxes();
    };
    for (MapPicture* picture : ImgMap) picture->Click = [this] { SwapPictures(); };
}

void ZoneForm::ShowForEdit(bool shown) {
    if (zone_.choiceBox == NoBox) choiceLabel_->setVisible(shown);
    choice_->setVisible(shown);
    FrmEddq->setVisible(shown);
}

/// The prices that are never locked look as the others do.
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
    StopAtBoxes(true);
}

void ZoneForm::CloseCard() {
    const controls::CardAtRest rest(*card_);
    for (int box = Code; box <= LastHandled; ++box) Txt[box]->SetLocked(true);
    ShowForEdit(false);
    LookLocked(true);
    StopAtBoxes(false);
}

/// While browsing Tab goes straight to the places; the boxes would only send it back.
void ZoneForm::StopAtBoxes(bool stop) {
    for (auto* box : Txt) box->Widget()->setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus);
}

void ZoneForm::EnterBox(int box) {
    if (FormMode < Adding) {
        TabS->SetFocus();
        return;
    }
    ProposeFor(box);
    static_cast<controls::LineBox*>(Txt[box]->Widget())->selectAll();
}

void ZoneForm::ProposeFor(int box) {
    const QString code = BoxText(Code);
    if (box == Name && !code.isEmpty() && BoxText(Name).isEmpty()) Txt[Name]->SetText(u"区域"_s + code);
    if (box == zone_.englishName && !code.isEmpty() && BoxText(box).isEmpty())
        Txt[box]->SetText(u"Zone "_s + code);
    if (box == AreaName && GDdq->Rows() == 2 && BoxText(AreaEnglish).isEmpty()) {
        Txt[AreaName]->SetText(BoxText(Name));
        Txt[AreaEnglish]->SetText(BoxText(ProposedEnglish));
    }
}

void ZoneForm::KeyInBox(int box, controls::KeyPress& key) const {
    if (box == AreaRemark && key.IsEnter()) {
        // A second Enter adds the place.
        key.taken = true;
        Cmd[0]->SetFocus();
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

void ZoneForm::SwapPictures() {
    MapPicture* shown = ImgMap[0]->isHidden() ? ImgMap[1] : ImgMap[0];
    MapPicture* hidden = shown == ImgMap[0] ? ImgMap[1] : ImgMap[0];
    shown->setCursor(Qt::WaitCursor);
    shown->hide();
    hidden->show();
    shown->setCursor(Qt::PointingHandCursor);
}

QString ZoneForm::TrimmedBox(int box) const {
    return text::Trim(BoxText(box));
}

QString ZoneForm::NumberBox(int box) const {
    return text::GeneralText(text::Val(BoxText(box)));
}
