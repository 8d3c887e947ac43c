#include "platform/controls/grid_parts.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <utility>

namespace controls {

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    // With a style sheet on the items the toolkit ignores a cell's own fill.
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QVariant fill = index.data(Qt::BackgroundRole);
    if (fill.isValid() && !selected) painter->fillRect(option.rect, fill.value<QBrush>());
    const QVariant ink = index.data(Qt::ForegroundRole);
    if (ink.isValid() && selected) {
        PaintInked(painter, option, index, ink.value<QBrush>().color());
    } else {
        QStyledItemDelegate::paint(painter, option, index);
    }
}

/// A word of its own colour keeps it in the current row too, where the sheet would give all words one colour.
void GridDelegate::PaintInked(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                              const QColor& ink) const {
    QStyleOptionViewItem own = option;
    initStyleOption(&own, index);
    const QString text = std::exchange(own.text, QString());
    const QStyle* style = own.widget ? own.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &own, painter, own.widget);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &own, own.widget) + 1;
    const QRect available =
        style->subElementRect(QStyle::SE_ItemViewItemText, &own, own.widget).adjusted(margin, 0, -margin, 0);
    painter->save();
    painter->setFont(own.font);
    painter->setPen(ink);
    painter->drawText(available, static_cast<int>(own.displayAlignment) | Qt::TextSingleLine,
                      own.fontMetrics.elidedText(text, own.textElideMode, available.width()));
    painter->restore();
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data().toString();
    const bool cut = index.isValid() && sizeHint(option, index).width() > option.rect.width();
    if (cut) {
        QToolTip::showText(event->globalPos(), text.toHtmlEscaped(), view);
    } else {
        QToolTip::hideText();
    }
    return cut;
}

}  // namespace controls
