#include "reports/problem_notice.h"

#include "app/session.h"
#include "platform/controls/card.h"
#include "platform/controls/keys.h"
#include "platform/controls/wait.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "platform/text/quoted.h"
#include "reports/printing.h"

#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int HeadingHeight = 40;
constexpr int HeadingMargin = 16;
const QString Captions[] = {u"运单号"_s, u"运单信息"_s, u"问题原因"_s};

QWidget* Heading(const QString& text) {
    auto* strip = new QWidget;
    strip->setProperty("role", u"strip"_s);
    strip->setAttribute(Qt::WA_StyledBackground);
    strip->setFixedHeight(HeadingHeight);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(HeadingMargin, 0, HeadingMargin, 0);
    auto* label = new QLabel(text);
    label->setProperty("role", u"title"_s);
    row->addWidget(label);
    return strip;
}

}  // namespace

C05::C05() : ChildForm(u"C05"_s, u"问题通知单"_s) {
    MakeBoxes();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(Heading(u"无法中转及派送的问题通知"_s));
    column->addWidget(MakeCard(), 1);
    using When = CommandRow::When;
    commands_.Fill(MenuBar(), {{u"Menu_P"_s, u"&P.打印"_s, When::Always, [this] { Menu_P(); }},
                               {u"menu_R"_s, u"&R.返回"_s, When::Always, [this] { Unload(); }}});
}

QWidget* C05::FirstFocus() const {
    return Txt[Number];
}

void C05::MakeBoxes() {
    for (int i = 0; i < BoxCount; ++i) {
        const auto index = static_cast<std::size_t>(i);
        auto* box = Txt[index] = new controls::LineBox(this);
        box->setObjectName(u"Txt(%1)"_s.arg(i));
        box->KeyPressed = controls::EnterMovesOn;
        box->Change = [this, i] { MoveOnWhenFull(i); };
        if (i < kLabels) {
            Lab[index] = controls::MakeCaption(Captions[i], box, this);
            Lab[index]->setObjectName(u"Lab(%1)"_s.arg(i));
        } else {
            box->setAccessibleName(Captions[FirstReason] + QString::number(i - FirstReason + 1));
        }
    }
    Txt[Number]->LostFocus = [this] { LookUp(); };
}

QWidget* C05::MakeCard() {
    using controls::Card;
    auto* card = new Card;
    const auto place = [&](int box, int row) {
        const auto index = static_cast<std::size_t>(box);
        card->Field(Card::Half::Left, row, 0, 3, box < kLabels ? Lab[index] : nullptr, Txt[index]);
    };
    card->Group(u"运单"_s);
    for (int box = Number; box <= Facts; ++box) place(box, box);
    card->Group(u"原因"_s);
    for (int box = FirstReason; box < BoxCount; ++box) place(box, box - FirstReason);
    card->Finish();
    for (std::size_t i = 1; i < Txt.size(); ++i) setTabOrder(Txt[i - 1], Txt[i]);
    return new controls::CardScroll(card);
}

QString C05::Trimmed(int box) const {
    return text::Trim(Txt[static_cast<std::size_t>(box)]->Text());
}

/// The text has just become that long by typing.
void C05::MoveOnWhenFull(int box) {
    const auto index = static_cast<std::size_t>(box);
    const qsizetype length = Txt[index]->Text().size();
    const bool full = lengths_[index] < kLineLength && length >= kLineLength;
    lengths_[index] = length;
    if (full && Txt[index]->hasFocus()) controls::SendKeys(u"{TAB}"_s);
}

void C05::LookUp() {
    const QString number = Trimmed(Number);
    if (number.isEmpty()) return;
    auto rows = Db->OpenRecordset(u"select F402,F401,F301,F701,F702 from B01 WHERE F1="_s + Quoted(number));
    if (rows.Eof()) {
        rows.Close();
        return sys::Inform(u"你输入的运单号不存在!"_s, MsgTitle);
    }
    const auto field = [&](int ordinal) { return rows.Fields(ordinal).Text(); };
    const auto fill = [&](std::size_t box, const QString& text) {
        lengths_[box] = text.size();  // however long, it moves nothing
        Txt[box]->SetText(text);
    };
    fill(Facts, u" 重量:"_s + field(0) + u"    件数:"_s + field(1) + u"   D/S: "_s + field(2));
    fill(FirstReason, field(3));
    fill(SecondReason, field(4));
    rows.Close();
}

/// The first that is missing gets its message.
bool C05::IsFilled() const {
    for (int box = Number; box <= Facts; ++box) {
        if (!Trimmed(box).isEmpty()) continue;
        sys::Inform(u"请输入"_s + Lab[static_cast<std::size_t>(box)]->text() + u'!', MsgTitle);
        return false;
    }
    for (int box = FirstReason; box < BoxCount; ++box)
        if (!Trimmed(box).isEmpty()) return true;
    sys::Inform(u"请输入问题原因!"_s, MsgTitle);
    return false;
}

void C05::Menu_P() {
    if (!IsFilled()) return;
    const controls::WaitPointer wait;
    QStringList values;
    for (int box = 0; box < BoxCount; ++box) values += Quoted(Trimmed(box));
    Db->Execute(u"DELETE FROM PRNTC05"_s);
    Db->Execute(u"insert into prntc05 (F1,F2,F3,F4,F5,F6,F7) VALUES("_s + values.join(u',') + u')');
    RunReport(u"prntc05.rpt"_s, {});
}
