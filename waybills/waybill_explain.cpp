// The explanation of a waybill's charge and cost: F1 in their text boxes, and on the card that is only read.
//
// Always holds: showing an explanation writes nothing, changes no text box and shows no message box of its
// own; what the computation would ask or refuse is a row of the panel. Only its print writes, to a work
// table, and may be refused. The steps shown are those that gave the amount in the text box, where they are
// known.
#include "app/data_access.h"
#include "app/session.h"
#include "platform/controls/card.h"
#include "platform/controls/keys.h"
#include "platform/errors.h"
#include "platform/text/numbers.h"
#include "reports/printing.h"
#include "waybills/explanation_panel.h"
#include "waybills/stored_steps.h"
#include "waybills/waybill_form.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;
using enum waybills::Box;
using waybills::BothSides;
using waybills::Box;
using waybills::ExplainedRow;
using waybills::ExplainedSide;
using waybills::Origin;
using waybills::Priced;
using waybills::Side;

namespace {

constexpr Box ExplainedBoxes[] = {BasicCharge, TotalCharge, ShippingCost};
const QString Layout = u"prntb01.rpt"_s;

QRect PlaceIn(const QWidget& parent, const QWidget& control) {
    return {control.mapTo(&parent, QPoint()), control.size()};
}

}  // namespace

void B01::WireExplanation() {
    TabS->Click = [this, select = TabS->Click] {
        if (TabS->SelectedItem() == ListTab) CloseExplanation();
        select();
    };
    for (const Box box : ExplainedBoxes) {
        Txt[box]->KeyPressed = [this](controls::KeyPress& key) {
            ExplanationKey(key);
            if (!key.taken) controls::EnterMovesOn(key);
        };
        Txt[box]->LostFocus = [this] { CloseExplanation(); };
        Txt[box]->Change = [this] { ShowExplanation(); };
        Txt[box]->ExtendMenu = [this](QMenu& menu) {
            menu.addSeparator();
            controls::AddCommand(&menu, u"Menu_Explain"_s, u"价格说明\tF1"_s, [this] { ExplainPrice(); });
        };
    }
}

/// While the card is only read its text boxes have no focus; the keys come from the tabs.
void B01::keyPressEvent(QKeyEvent* event) {
    controls::KeyPress key{event->key(), event->modifiers(), event->text(), event->isAutoRepeat()};
    sys::Guarded([&] {
        if (FormMode == Browsing) ExplanationKey(key);
    });
    if (key.taken)
        event->accept();
    else
        RecordForm::keyPressEvent(event);
}

void B01::resizeEvent(QResizeEvent* event) {
    RecordForm::resizeEvent(event);
    // Behind the layout of the card.
    QMetaObject::invokeMethod(
        this, [this] { sys::Guarded([this] { ShowExplanation(); }); }, Qt::QueuedConnection);
}

void B01::ExplanationKey(controls::KeyPress& key) {
    if (key.key == Qt::Key_F1 && key.modifiers == Qt::NoModifier) {
        key.taken = true;
        if (!key.repeats) ExplainPrice();
        return;
    }
    if (explained_.empty() || !explanation_ || !explanation_->isVisible()) return;
    const bool control = key.modifiers == Qt::ControlModifier;
    key.taken = key.key == Qt::Key_Escape || (control && (key.key == Qt::Key_C || key.key == Qt::Key_P));
    if (!key.taken || key.repeats) return;
    if (key.key == Qt::Key_Escape)
        CloseExplanation();
    else if (key.key == Qt::Key_C)
        CopyExplanation();
    else
        PrintExplanation();
}

QString B01::CardText(Box box) const {
    const auto combo = Cmb.find(box);
    return FormMode >= Adding && combo != Cmb.end() ? combo->second->Text() : BoxText(box);
}

waybills::CardText B01::ShownText() const {
    return [this](Box box) { return CardText(box); };
}

/// The steps that gave the amount in the text box: of this edit, else stored with the waybill; where there
/// are none, those that the computation gives now.
B01::Explained B01::ExplainedOf(Side side, const BothSides& stored) const {
    const auto index = static_cast<std::size_t>(side);
    if (runs_[index]) return {side, *runs_[index], Origin::Card};
    if (stored[index]) return {side, *stored[index], Origin::Stored};
    return {side, waybills::PricedNow(*Db, side, ShownText()),
            FormMode == Adding ? Origin::Card : Origin::Today};
}

void B01::ExplainPrice() {
    // The line of an empty list has no number.
    const QString number = text::Trim(FormMode == Browsing ? BoxText(Number) : OldKey());
    if (!CanSeeFigures || TabS->SelectedItem() != CardTab || (number.isEmpty() && FormMode != Adding)) return;
    const BothSides stored = number.isEmpty() ? BothSides{} : waybills::ReadSteps(*Db, number);
    explained_ = {ExplainedOf(Side::Charge, stored)};
    // Only the administrator reads the cost.
    if (IsAdministrator()) explained_.push_back(ExplainedOf(Side::Cost, stored));
    ScrollForExplanation();
    ShowExplanation();
}

QList<ExplainedSide> B01::ExplainedSides() const {
    QList<ExplainedSide> sides;
    for (const Explained& each : explained_) {
        try {
            sides += waybills::Explain(each.side, each.priced, each.origin, ShownText());
        } catch (const RuntimeError& error) {
            sides += waybills::NotExplained(each.side, error.Text());
        }
    }
    return sides;
}

void B01::MakeExplanationPanel() {
    explanation_ = new ExplanationPanel(Frm);
    explanation_->FillMenu = [this](QMenu& menu) { FillExplanationMenu(menu); };
    const auto& card = *Frm->findChild<QScrollArea*>();
    for (const QScrollBar* bar : {card.verticalScrollBar(), card.horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, [this] {
            if (explained_.empty()) return;
            sys::Guarded([this] { ShowExplanation(); });
        });
}

/// On a low window the card is scrolled so that there are as many rows as possible above the text boxes,
/// which can be below the part that is shown.
void B01::ScrollForExplanation() {
    const auto& card = *Frm->findChild<QScrollArea*>();
    const QRect box = PlaceIn(*Frm, *Txt[BasicCharge]->Widget());
    const int missing = ExplanationPanel::LeastHeight(ExplainedSides()) - box.top();
    const int below = card.viewport()->height() - box.bottom() - controls::kRowGap;
    const int down = std::min(std::max(missing, 0), below);
    card.verticalScrollBar()->setValue(card.verticalScrollBar()->value() - down);
}

/// Again after a change of an amount, of the size and of what the card is scrolled to.
void B01::ShowExplanation() {
    if (explained_.empty()) return;
    if (!explanation_) MakeExplanationPanel();
    const auto place = [this](Box first, Box last, Box tip) {
        return ExplanationPanel::HalfPlace{.left = PlaceIn(*Frm, *Lab[first]).left(),
                                           .words = PlaceIn(*Frm, *Txt[tip]->Widget()).left(),
                                           .right = PlaceIn(*Frm, *Txt[last]->Widget()).right() + 1,
                                           .tip = PlaceIn(*Frm, *Txt[tip]->Widget()).center().x()};
    };
    QList<ExplanationPanel::HalfPlace> places = {place(OtherFees, AdditionalCharge, BasicCharge),
                                                 place(ChannelFuelRate, ChannelOtherFees, ShippingCost)};
    places[0].words = PlaceIn(*Frm, *Txt[OtherFees]->Widget()).left();
    places.resize(static_cast<qsizetype>(explained_.size()));
    const QString keys =
        FormMode == Browsing ? u"Ctrl+C 复制    Ctrl+P 打印    Esc 关闭"_s : u"Ctrl+C 复制    Esc 关闭"_s;
    explanation_->Explain(ExplainedSides(), places, PlaceIn(*Frm, *Txt[BasicCharge]->Widget()).top(), keys);
}

void B01::CloseExplanation() {
    explained_.clear();
    if (explanation_) explanation_->hide();
}

void B01::FillExplanationMenu(QMenu& menu) {
    controls::AddCommand(&menu, u"Menu_CopyExplanation"_s, u"复制(&C)\tCtrl+C"_s,
                         [this] { CopyExplanation(); });
    auto* print = controls::AddCommand(&menu, u"Menu_PrintExplanation"_s, u"打印给客户(&P)\tCtrl+P"_s,
                                       [this] { PrintExplanation(); });
    print->setEnabled(FormMode == Browsing);
    controls::AddCommand(&menu, u"Menu_CloseExplanation"_s, u"关闭(&X)\tEsc"_s,
                         [this] { CloseExplanation(); });
}

void B01::CopyExplanation() const {
    QGuiApplication::clipboard()->setText(waybills::AsText(ExplainedSides()));
}

/// What the customer gets is what is saved: the charge of the waybill, and never its cost.
void B01::PrintExplanation() {
    if (FormMode != Browsing || explained_.empty()) return;
    const Priced charge = explained_.front().priced;
    const QList<ExplainedRow> rows = waybills::ForCustomer(charge, ShownText());
    if (rows.isEmpty()) return sys::Inform(u"这张速递单没有算出基本费用，不能打印！"_s, MsgTitle);
    if (!LayoutIsThere(Layout, u"丢失!"_s)) return;
    Db->Execute(u"delete from PRNTB01"_s);
    for (const ExplainedRow& row : rows) {
        const QStringList values = {Quoted(row.caption), Quoted(row.words), Quoted(row.figure),
                                    Quoted(row.look == ExplainedRow::Look::Sum ? u"1"_s : u"0"_s)};
        Db->Execute(u"insert into PRNTB01 (F1,F2,F3,F4) VALUES ("_s + values.join(u',') + u')');
    }
    const auto formula = [](const QString& name, QString value) { return Formula(name, CleanText(value)); };
    RunReport(Layout, {formula(u"DH"_s, BoxText(Number)), formula(u"RQ"_s, BoxText(SendDate)),
                       formula(u"KH"_s, BoxText(CustomerCode)), formula(u"QY"_s, BoxText(ServiceZoneCode)),
                       formula(u"DD"_s, BoxText(Destination)), formula(u"BJ"_s, charge.day)});
}
