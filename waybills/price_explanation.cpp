#include "waybills/price_explanation.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/controls/card.h"
#include "platform/controls/keys.h"
#include "platform/errors.h"
#include "waybills/explanation_panel.h"
#include "waybills/explanation_print.h"
#include "waybills/stored_steps.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;
using enum waybills::Box;
using waybills::BothSides;
using waybills::Box;
using waybills::ExplainedSide;
using waybills::Origin;
using waybills::Priced;
using waybills::Side;

namespace {

constexpr Box ExplainedBoxes[] = {BasicCharge, TotalCharge, ShippingCost};

}  // namespace

PriceExplanation::PriceExplanation(QObject* form, Host host) : QObject(form), host_(std::move(host)) {
    for (const Box box : ExplainedBoxes) WireBox(box);
}

void PriceExplanation::WireBox(Box box) {
    auto& text = host_.box(box);
    text.KeyPressed = [this](controls::KeyPress& key) {
        Key(key);
        if (!key.taken) controls::EnterMovesOn(key);
    };
    text.LostFocus = [this] { Close(); };
    text.Change = [this] { Refresh(); };
    text.ExtendMenu = [this](QMenu& menu) {
        menu.addSeparator();
        controls::AddCommand(&menu, u"Menu_Explain"_s, u"价格说明\tF1"_s, [this] { Explain(); });
    };
}

void PriceExplanation::Key(controls::KeyPress& key) {
    if (key.key == Qt::Key_F1 && key.modifiers == Qt::NoModifier) {
        key.taken = true;
        if (!key.repeats) Explain();
        return;
    }
    if (explained_.empty() || !panel_ || !panel_->isVisible()) return;
    const bool control = key.modifiers == Qt::ControlModifier;
    key.taken = key.key == Qt::Key_Escape || (control && (key.key == Qt::Key_C || key.key == Qt::Key_P));
    if (!key.taken || key.repeats) return;
    if (key.key == Qt::Key_Escape)
        Close();
    else if (key.key == Qt::Key_C)
        Copy();
    else
        Print();
}

void PriceExplanation::Keep(Side side, Priced run) {
    runs_[static_cast<std::size_t>(side)] = std::move(run);
}

/// The steps that gave the amount in the text box: of this edit, else stored with the waybill; where there
/// are none, those that the computation gives now.
PriceExplanation::Explained PriceExplanation::ExplainedOf(Side side, const BothSides& stored) const {
    const auto index = static_cast<std::size_t>(side);
    if (runs_[index]) return {side, *runs_[index], Origin::Card};
    if (stored[index]) return {side, *stored[index], Origin::Stored};
    return {side, waybills::PricedNow(*Db, side, host_.cardText),
            host_.adding() ? Origin::Card : Origin::Today};
}

void PriceExplanation::Explain() {
    const QString number = host_.storedNumber();
    if (!CanSeeFigures || !host_.cardShown() || (number.isEmpty() && !host_.adding())) return;
    const BothSides stored = number.isEmpty() ? BothSides{} : waybills::ReadSteps(*Db, number);
    explained_ = {ExplainedOf(Side::Charge, stored)};
    if (IsAdministrator()) explained_.push_back(ExplainedOf(Side::Cost, stored));
    ScrollForPanel();
    Refresh();
}

QList<ExplainedSide> PriceExplanation::ExplainedSides() const {
    QList<ExplainedSide> sides;
    for (const Explained& each : explained_) {
        try {
            sides += waybills::Explain(each.side, each.priced, each.origin, host_.cardText);
        } catch (const RuntimeError& error) {
            sides += waybills::NotExplained(each.side, error.Text());
        }
    }
    return sides;
}

void PriceExplanation::MakePanel() {
    panel_ = new ExplanationPanel(host_.frame);
    panel_->FillMenu = [this](QMenu& menu) { FillMenu(menu); };
    const auto& card = *host_.frame->findChild<QScrollArea*>();
    for (const QScrollBar* bar : {card.verticalScrollBar(), card.horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, [this] {
            if (explained_.empty()) return;
            sys::Guarded([this] { Refresh(); });
        });
}

QRect PriceExplanation::PlaceOf(const QWidget& control) const {
    return {control.mapTo(host_.frame, QPoint()), control.size()};
}

/// On a low window the card is scrolled so that there are as many rows as possible above the text boxes,
/// which can be below the part that is shown.
void PriceExplanation::ScrollForPanel() {
    const auto& card = *host_.frame->findChild<QScrollArea*>();
    const QRect box = PlaceOf(BasicCharge);
    const int missing = ExplanationPanel::LeastHeight(ExplainedSides()) - box.top();
    const int below = card.viewport()->height() - box.bottom() - controls::kRowGap;
    const int down = std::min(std::max(missing, 0), below);
    card.verticalScrollBar()->setValue(card.verticalScrollBar()->value() - down);
}

void PriceExplanation::Refresh() {
    if (explained_.empty()) return;
    if (!panel_) MakePanel();
    const auto place = [this](Box first, Box last, Box tip) {
        return ExplanationPanel::HalfPlace{.left = PlaceOf(host_.label(first)).left(),
                                           .words = PlaceOf(tip).left(),
                                           .right = PlaceOf(last).right() + 1,
                                           .tip = PlaceOf(tip).center().x()};
    };
    QList<ExplanationPanel::HalfPlace> places = {place(OtherFees, AdditionalCharge, BasicCharge),
                                                 place(ChannelFuelRate, ChannelOtherFees, ShippingCost)};
    places[0].words = PlaceOf(OtherFees).left();
    places.resize(static_cast<qsizetype>(explained_.size()));
    const QString keys =
        host_.browsing() ? u"Ctrl+C 复制    Ctrl+P 打印    Esc 关闭"_s : u"Ctrl+C 复制    Esc 关闭"_s;
    panel_->Explain(ExplainedSides(), places, PlaceOf(BasicCharge).top(), keys);
}

void PriceExplanation::Close() {
    explained_.clear();
    if (panel_) panel_->hide();
}

void PriceExplanation::FillMenu(QMenu& menu) {
    controls::AddCommand(&menu, u"Menu_CopyExplanation"_s, u"复制(&C)\tCtrl+C"_s, [this] { Copy(); });
    auto* print = controls::AddCommand(&menu, u"Menu_PrintExplanation"_s, u"打印给客户(&P)\tCtrl+P"_s,
                                       [this] { Print(); });
    print->setEnabled(host_.browsing());
    controls::AddCommand(&menu, u"Menu_CloseExplanation"_s, u"关闭(&X)\tEsc"_s, [this] { Close(); });
}

void PriceExplanation::Copy() const {
    QGuiApplication::clipboard()->setText(waybills::AsText(ExplainedSides()));
}

/// What the customer gets is what is saved.
void PriceExplanation::Print() {
    if (!host_.browsing() || explained_.empty()) return;
    // A copy, so that the print does not need the explanation to stay open.
    const Priced charge = explained_.front().priced;
    waybills::PrintExplanation(charge, host_.cardText);
}
