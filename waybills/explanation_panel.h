// The panel that explains a waybill's prices over its card. It never takes the focus: whoever has it keeps it
// and closes the panel.
#pragma once

#include "waybills/explanation.h"

#include <QList>
#include <QMenu>
#include <QWidget>

#include <functional>

/// Left half the charge, right half the cost; a pointer at the lower edge under each shows the text box that
/// it explains.
class ExplanationPanel : public QWidget {
    Q_OBJECT
  public:
    explicit ExplanationPanel(QWidget* parent);

    /// The edges of a half of the card in pixels of the parent's coordinates, so that captions and words
    /// begin where those of the card do.
    struct HalfPlace {
        int left;   ///< of the captions
        int words;  ///< of the first text box
        int right;
        int tip;  ///< centre of the text box that is explained
    };
    /// Shows one side or both above that y (pixels, in the parent), the upper edge of the text boxes, with
    /// the keys that can be used at the foot. Where the height is not enough the rows get lower, then the
    /// first ones are left out; without a place for one row, and with text boxes out of sight, the panel is
    /// hidden.
    void Explain(QList<waybills::ExplainedSide> sides, QList<HalfPlace> places, int bottom, QString keys);

    /// Above the text boxes, for all rows at their lowest; pixels.
    static int LeastHeight(const QList<waybills::ExplainedSide>& sides);

    /// Fills the context menu.
    std::function<void(QMenu&)> FillMenu;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void PaintSide(QPainter& painter, const waybills::ExplainedSide& side, const HalfPlace& place) const;
    void PaintFoot(QPainter& painter) const;
    int RowTop(int row) const;

    QList<waybills::ExplainedSide> sides_;
    QList<HalfPlace> places_;  ///< in the panel's own coordinates
    QString keys_;
    int rows_ = 0;   ///< of the longer side, those that have a place
    int pitch_ = 0;  ///< from row to row
};
