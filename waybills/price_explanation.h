// The explanation of a waybill's charge and cost over its card: F1 in their text boxes, and on the card that
// is only read.
//
// Always holds: showing an explanation writes nothing, changes no text box and shows no message box of its
// own; what the computation would ask or refuse is a row of the panel. Only its print writes, to a work
// table, and may be refused. The steps shown are those that gave the amount in the text box, where they are
// known. Only the administrator reads the cost.
#pragma once

#include "platform/controls/box.h"
#include "waybills/explanation.h"

#include <QLabel>
#include <QObject>

#include <functional>
#include <vector>

class ExplanationPanel;

class PriceExplanation : public QObject {
    Q_OBJECT
  public:
    /// What the explanation needs of the waybill's form.
    struct Host {
        QWidget* frame;  ///< contains the card in its scroll area, and the panel
        std::function<controls::TextBox&(waybills::Box)> box;
        std::function<QLabel&(waybills::Box)> label;
        waybills::CardText cardText;
        std::function<bool()> browsing;   ///< the card is only read
        std::function<bool()> adding;     ///< the waybill has no stored steps
        std::function<bool()> cardShown;  ///< and not the list
        /// Under which the waybill is stored, trimmed; "" for a new one and on the line of an empty list.
        std::function<QString()> storedNumber;
    };
    /// Takes keys, change, loss of the focus and the context menu of the text boxes that are explained.
    PriceExplanation(QObject* form, Host host);

    /// F1, and while the panel is shown the keys at its foot; marks those as taken.
    void Key(controls::KeyPress& key);

    /// Opens the panel with the steps that are known now; with those that the computation would give where
    /// there are none. Nothing happens without the right to see figures, on the list and on an empty card.
    void Explain();
    /// While the panel is open: again after a change of an amount, of the size and of what the card is
    /// scrolled to.
    void Refresh();
    void Close();

    /// What the computations last gave in this add or edit state; the form stores it with the waybill.
    const waybills::BothSides& Runs() const { return runs_; }
    void Keep(waybills::Side side, waybills::Priced run);
    void ForgetRuns() { runs_ = {}; }

  private:
    struct Explained {
        waybills::Side side;
        waybills::Priced priced;
        waybills::Origin origin;
    };
    void WireBox(waybills::Box box);
    Explained ExplainedOf(waybills::Side side, const waybills::BothSides& stored) const;
    QList<waybills::ExplainedSide> ExplainedSides() const;
    void MakePanel();
    void ScrollForPanel();
    void FillMenu(QMenu& menu);
    void Copy() const;
    void Print();
    /// Where that control is in the frame.
    QRect PlaceOf(const QWidget& control) const;
    QRect PlaceOf(waybills::Box box) const { return PlaceOf(*host_.box(box).Widget()); }

    Host host_;
    waybills::BothSides runs_;
    std::vector<Explained> explained_;  ///< by the panel; empty while it is closed
    ExplanationPanel* panel_ = nullptr;
};
