#include "tariffs/standard.h"

#include "app/dressing.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/controls/numeric.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "tariffs/brackets.h"

#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// What the boxes show while the table has no row.
constexpr std::array<QStringView, 20> Defaults{u"0.5", u"0.5", u"0.5", u"0.5", u"21",  u"46",  u"71",
                                               u"101", u"201", u"201", u"201", u"201", u"201", u"201",
                                               u"201", u"201", u"201", u"201", u"201", u"1.5"};

constexpr int FirstSegment = 4;    // its box
constexpr int LastSegment = 18;    // likewise
constexpr int BoxToCaption = 3;    // Lab(j + 3) is behind box j of a segment
constexpr int CheckedOnSave = 9;   // boxes from Txt(0); the segments from the sixth on are not looked at
constexpr double Correction = 25;  // kg above the box on the left

constexpr int Columns = 3;  // segments in a row
constexpr int BoxWidth = 76;
constexpr int CaptionWidth = 84;
constexpr int Indent = 92;  // where the first box of every line begins
constexpr int Margin = 16;

QString TopCaption(double top) {
    return u"Kg-"_s + text::GeneralText(top) + u"Kg"_s;
}

}  // namespace

S01::S01(QWidget* over) : ModalForm(u"S01"_s, u"本公司报价标准设定"_s, over) {
    MakeBoxes();
    MakeLabels();
    MakeButtons();
    auto* factor = new QHBoxLayout;
    factor->setSpacing(0);
    Labd->setFixedWidth(Indent);
    factor->addWidget(Labd);
    factor->addWidget(Txt[Boxes - 1]);
    factor->addStretch(1);

    auto* card = new QWidget(this);
    card->setProperty("role", u"surface"_s);
    card->setAttribute(Qt::WA_StyledBackground);
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->setSpacing(8);
    column->addLayout(Sentences());
    column->addSpacing(8);
    column->addWidget(Lab[2]);
    column->addLayout(Segments());
    column->addSpacing(8);
    column->addLayout(factor);

    auto* foot = new QVBoxLayout;
    foot->setContentsMargins(Margin, 4, Margin, 12);
    foot->addLayout(dressing::ButtonRow({CmdOK, CmdCancel}));
    dressing::Stack(*this, *card, foot);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    Txt[0]->setFocus(Qt::OtherFocusReason);
}

void S01::MakeBoxes() {
    const QString names[FirstSegment] = {u"文件资料起计重量"_s, u"文件资料续加重量"_s, u"小包裹起计重量"_s,
                                         u"小包裹续加重量"_s};
    for (int i = 0; i < Boxes; ++i) {
        auto* box = new controls::LineBox(this);
        box->setObjectName(u"Txt(%1)"_s.arg(i));
        box->setAccessibleName(i < FirstSegment ? names[i] : u"重包裹第%1段起点"_s.arg(i - FirstSegment + 1));
        box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        box->setFixedWidth(BoxWidth);
        controls::SetNumeric(*box);
        box->SetText(Defaults[i].toString());
        box->KeyPressed = controls::EnterMovesOn;
        if (i > FirstSegment && i <= LastSegment) box->LostFocus = [this, i] { LeaveSegment(i); };
        Txt[i] = box;
    }
}

void S01::MakeLabels() {
    const QString fixed[] = {u"文件资料："_s,   u"小包裹："_s, u"重包裹：分十五个计费段："_s,
                             u"Kg起计价，续"_s, u"Kg加价；"_s, u"Kg起计价，续"_s,
                             u"Kg加价；"_s,     u"Kg-45Kg"_s,  u"Kg-70Kg"_s,
                             u"Kg-100Kg"_s,     u"Kg-200Kg"_s};
    for (std::size_t i = 0; i < Lab.size(); ++i) {
        Lab[i] = new QLabel(i < std::size(fixed) ? fixed[i] : u"Kg以上"_s, this);
        Lab[i]->setTextFormat(Qt::PlainText);
        Lab[i]->setIndent(0);
        Lab[i]->setProperty("role", u"caption"_s);
        Lab[i]->setObjectName(u"Lab(%1)"_s.arg(i));
    }
    for (const int i : {0, 1, 2}) Lab[i]->setProperty("role", u"group"_s);
    Labd = controls::MakeCaption(u"默认加价系数："_s, Txt[Boxes - 1], this);
    Labd->setObjectName(u"Labd"_s);
    Labd->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void S01::MakeButtons() {
    CmdOK = new controls::Button(u"保  存"_s, this);
    CmdCancel = new controls::Button(u"退  出"_s, this);
    CmdOK->setObjectName(u"CmdOK"_s);
    CmdCancel->setObjectName(u"CmdCancel"_s);
    CmdOK->setDefault(true);  // its colour only: Enter moves on
    CmdOK->Click = [this] { Save(); };
    CmdCancel->Click = [this] { Unload(); };
}

/// Documents and small parcels: for each two text boxes with the words behind them.
QLayout* S01::Sentences() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(8);
    grid->setColumnMinimumWidth(0, Indent - grid->horizontalSpacing());
    grid->setColumnStretch(5, 1);
    for (int line = 0; line < 2; ++line) {
        const int box = 2 * line;
        const int words = 3 + 2 * line;
        grid->addWidget(Lab[line], line, 0);
        grid->addWidget(Txt[box], line, 1);
        grid->addWidget(Lab[words], line, 2);
        grid->addWidget(Txt[box + 1], line, 3);
        grid->addWidget(Lab[words + 1], line, 4);
    }
    return grid;
}

/// Three to a row, each with the top of its segment behind it.
QLayout* S01::Segments() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(8);
    grid->setContentsMargins(Indent, 0, 0, 0);
    for (int box = FirstSegment; box <= LastSegment; ++box) {
        const int nth = box - FirstSegment;
        const int column = 2 * (nth % Columns);
        QLabel* top = Lab[box + BoxToCaption];
        top->setMinimumWidth(CaptionWidth);
        grid->addWidget(Txt[box], nth / Columns, column);
        grid->addWidget(top, nth / Columns, column + 1);
    }
    return grid;
}

double S01::Number(int box) const {
    return text::Val(Txt[box]->Text());
}

/// The top of the segment on the left is one kilogram below this box.
void S01::ShowTop(int box) {
    Lab[box - 1 + BoxToCaption]->setText(TopCaption(Number(box) - 1));
}

void S01::Load() {
    const auto standard = tariffs::ReadStandard(*Db);
    if (!standard) return;
    for (int i = 0; i < Boxes; ++i) {
        auto& box = *Txt[i];
        // A value that is no number reads like an empty one: this is where it can be put right.
        const auto& value = (*standard)[i];
        if (value && std::isfinite(*value)) box.SetText(text::GeneralText(*value));
        if (i > FirstSegment && i <= LastSegment) ShowTop(i);
        box.SetText(text::FormatFixed(Number(i), 1));
    }
}

/// Out of order is put right without a word, and for the box that is left only: the next ones stay.
void S01::LeaveSegment(int box) {
    if (Number(box - 1) >= Number(box)) Txt[box]->SetText(text::GeneralText(Number(box - 1) + Correction));
    ShowTop(box);
}

void S01::Save() {
    if (!IsAdministrator())
        return sys::Inform(u"只有系统管理员才能修改此项设置，请用“001”帐号登录！"_s, u"提示"_s);
    if (!sys::Ask(u"警告！计价标准不宜经常改变！真的继续吗？"_s, u"提示"_s)) return;
    for (int i = 0; i < CheckedOnSave; ++i) {
        Txt[i]->SetText(text::GeneralText(Number(i)));
        if (Number(i) <= 0)
            return sys::Inform(u"所有数值都不能小于或等于0！"_s, u" 提示"_s);  // with its leading blank
    }
    Db->Execute(u"delete from MS1"_s);
    Db->Execute(InsertStatement());
    sys::Inform(u"保存成功！"_s, u"提示"_s);
}

QString S01::InsertStatement() const {
    QStringList texts;
    for (const auto* box : Txt) texts += box->Text();
    return u"insert into MS1 (F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19,P888) "_s +
           u"VALUES ("_s + texts.join(u',') + u")"_s;
}
