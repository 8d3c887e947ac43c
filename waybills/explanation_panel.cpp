#include "waybills/explanation_panel.h"

#include "platform/controls/paint.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using waybills::ExplainedRow;
using waybills::ExplainedSide;
namespace paint = controls::paint;

namespace {

// Device-independent pixels, from the outer edge of the shadow inwards.
constexpr int Shadow = 8;
constexpr int Margin = 8;  // from the outline to the halves of the card
constexpr int Padding = 6;
constexpr int HeadHeight = 26;
constexpr int RuleHeight = 5;
constexpr int RowHeight = 24;
constexpr int LeastRowHeight = 17;
constexpr int FootHeight = 24;
constexpr int Pointer = 8;
constexpr int PointerWidth = 18;
constexpr int FigureWidth = 84;
constexpr int CaptionGap = 6;
constexpr int BoxGap = 2;  // from the pointer to the text box
constexpr int Fixed = Shadow + Padding + HeadHeight + RuleHeight + FootHeight + Padding + Pointer;

constexpr QColor Ink(0x1B, 0x27, 0x33);
constexpr int SmallSize = 12;
constexpr int ResultSize = 16;

QFont FontOf(const QWidget& widget, int pixels, bool bold) {
    QFont font = widget.font();
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

/// One line, cut with an ellipsis where it does not fit. Gives its width.
int Draw(QPainter& painter, const QRect& place, Qt::Alignment alignment, const QString& text) {
    const QString fitting = painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width());
    painter.drawText(place, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine, fitting);
    return painter.fontMetrics().horizontalAdvance(fitting);
}

int RowsOf(const QList<ExplainedSide>& sides) {
    qsizetype rows = 0;
    for (const ExplainedSide& side : sides) rows = std::max(rows, side.rows.size());
    return static_cast<int>(rows);
}

/// A soft edge in six steps.
void PaintShadow(QPainter& painter, const QRectF& outline) {
    painter.setPen(Qt::NoPen);
    for (int step = 1; step <= 6; ++step) {
        painter.setBrush(QColor(0, 0, 0, 4 + step));
        const qreal by = 7.5 - step;
        painter.drawRoundedRect(outline.adjusted(-by, -by + 2, by, by), 4 + by, 4 + by);
    }
}

}  // namespace

ExplanationPanel::ExplanationPanel(QWidget* parent) : QWidget(parent) {
    setObjectName(u"PriceExplanation"_s);
    setAccessibleName(u"价格说明"_s);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_NoMousePropagation);
    hide();
}

void ExplanationPanel::Explain(QList<ExplainedSide> sides, QList<HalfPlace> places, int bottom,
                               QString keys) {
    sides_ = std::move(sides);
    places_ = std::move(places);
    keys_ = std::move(keys);
    const int available = bottom - BoxGap - Fixed;
    if (available < LeastRowHeight || bottom > parentWidget()->height()) return hide();
    rows_ = std::min(RowsOf(sides_), available / LeastRowHeight);
    pitch_ = std::clamp(available / std::max(rows_, 1), LeastRowHeight, RowHeight);
    const int height = Fixed + rows_ * pitch_;
    const int left = places_.first().left - Margin - Shadow;
    const int right = places_.last().right + Margin + Shadow;
    for (HalfPlace& place : places_)
        for (int* edge : {&place.left, &place.words, &place.right, &place.tip}) *edge -= left;
    setGeometry(left, bottom - BoxGap - height, right - left, height);
    setAccessibleDescription(waybills::AsText(sides_));
    raise();
    show();
    update();
    // The focus remains elsewhere, so a screen reader has to be notified.
    QAccessibleEvent appeared(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&appeared);
}

int ExplanationPanel::LeastHeight(const QList<ExplainedSide>& sides) {
    return Fixed + RowsOf(sides) * LeastRowHeight + BoxGap;
}

int ExplanationPanel::RowTop(int row) const {
    return Shadow + Padding + HeadHeight + RuleHeight + row * pitch_;
}

void ExplanationPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outline = QRectF(rect()).adjusted(Shadow + 0.5, Shadow + 0.5, -Shadow - 0.5, -Pointer - 0.5);
    PaintShadow(painter, outline);
    QPainterPath path;
    path.addRoundedRect(outline, 4, 4);
    for (const HalfPlace& place : places_) {
        QPainterPath tip;
        const qreal base = outline.bottom() - 1;
        tip.addPolygon(QPolygonF({QPointF(place.tip - PointerWidth / 2.0, base),
                                  QPointF(place.tip, outline.bottom() + Pointer - 1),
                                  QPointF(place.tip + PointerWidth / 2.0, base)}));
        path = path.united(tip);
    }
    painter.setPen(QPen(paint::kBlockLine, 1));
    painter.setBrush(Qt::white);
    painter.drawPath(path);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (qsizetype i = 0; i < sides_.size(); ++i) PaintSide(painter, sides_[i], places_[i]);
    PaintFoot(painter);
}

void ExplanationPanel::PaintSide(QPainter& painter, const ExplainedSide& side, const HalfPlace& place) const {
    const QRect head(place.left, Shadow + Padding, place.right - place.left, HeadHeight);
    painter.setFont(FontOf(*this, ResultSize, true));
    painter.setPen(Ink);
    const int result = Draw(painter, head, Qt::AlignRight, side.result);
    painter.setFont(FontOf(*this, SmallSize, true));
    painter.setPen(paint::kAccentDeep);
    const int title = Draw(painter, head, Qt::AlignLeft, side.title);
    painter.setFont(FontOf(*this, SmallSize, false));
    painter.setPen(paint::kMuted);
    Draw(painter, head.adjusted(title + 12, 0, -result - 12, 0), Qt::AlignLeft, side.source);
    const int rule = head.bottom() + 1 + RuleHeight / 2;
    paint::Hairline(painter, paint::kLine, QLineF(place.left, rule, place.right, rule));

    const int size = font().pixelSize() > 0 ? font().pixelSize() : 13;
    // The amount is at the end.
    const int left = std::max(0, static_cast<int>(side.rows.size()) - rows_);
    for (int i = 0; i + left < side.rows.size(); ++i) {
        ExplainedRow row = side.rows[i + left];
        if (left > 0 && i == 0) row.caption = u"…"_s;
        const QRect line(place.left, RowTop(i), place.right - place.left, pitch_);
        const bool sum = row.look == ExplainedRow::Look::Sum;
        const bool warning = row.look == ExplainedRow::Look::Warning;
        painter.setFont(FontOf(*this, SmallSize, false));
        painter.setPen(paint::kMuted);
        Draw(painter, QRect(place.left, line.top(), place.words - CaptionGap - place.left, pitch_),
             Qt::AlignRight, row.caption);
        painter.setFont(FontOf(*this, size, sum));
        painter.setPen(warning ? paint::kWarning : Ink);
        const int figure = row.figure.isEmpty() ? 0 : FigureWidth;
        Draw(painter, QRect(place.words, line.top(), place.right - place.words - figure, pitch_),
             Qt::AlignLeft, row.words);
        Draw(painter, line, Qt::AlignRight, row.figure);
        if (sum)
            paint::Hairline(painter, paint::kBlockLine,
                            QLineF(place.right - FigureWidth, line.top(), place.right, line.top()));
    }
}

void ExplanationPanel::PaintFoot(QPainter& painter) const {
    const int top = RowTop(rows_) + 2;
    const HalfPlace& first = places_.first();
    const HalfPlace& last = places_.last();
    paint::Hairline(painter, paint::kLine, QLineF(first.left, top, last.right, top));
    if (places_.size() > 1) {
        const int middle = (first.right + last.left) / 2;
        paint::Hairline(painter, paint::kLine, QLineF(middle, Shadow + 12, middle, top));
    }
    painter.setFont(FontOf(*this, SmallSize, false));
    painter.setPen(paint::kMuted);
    const QRect foot(first.left, top, last.right - first.left, FootHeight);
    const int keys = Draw(painter, foot, Qt::AlignRight, keys_);
    for (qsizetype i = 0; i < sides_.size(); ++i) {
        if (i > 0 && sides_[i].foot == sides_.first().foot) continue;
        const bool beside = i + 1 < sides_.size() && sides_[i + 1].foot != sides_[i].foot;
        const int right = beside ? places_[i].right : last.right - keys - 12;
        Draw(painter, QRect(places_[i].left, top, right - places_[i].left, FootHeight), Qt::AlignLeft,
             sides_[i].foot);
    }
}

void ExplanationPanel::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (FillMenu) FillMenu(*menu);
    menu->popup(event->globalPos());
    event->accept();
}
