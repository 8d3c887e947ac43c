#include "platform/controls/grid_parts.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

namespace controls {

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
    const QVariant ink = index.data(Qt::ForegroundRole);
    if (ink.isValid()) option->palette.setBrush(QPalette::HighlightedText, ink.value<QBrush>());
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    // With a style sheet on the items the toolkit ignores a cell's own fill.
    const QVariant fill = index.data(Qt::BackgroundRole);
    if (fill.isValid() && !option.state.testFlag(QStyle::State_Selected))
        painter->fillRect(option.rect, fill.value<QBrush>());
    QStyledItemDelegate::paint(painter, option, index);
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

CellEditor::CellEditor(QWidget* parent) : QLineEdit(parent) {
    setProperty("kind", QStringLiteral("cell"));
    hide();
}

bool CellEditor::event(QEvent* event) {
    // Tab is taken before the toolkit looks for the next control, which from inside the grid would be
    // anything.
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            key->accept();
            if (MovedOn) MovedOn(key);
            return true;
        }
    }
    return QLineEdit::event(event);
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            event->accept();
            if (Entered) Entered();
            return;
        case Qt::Key_Escape:
            event->accept();
            if (Dropped) Dropped();
            return;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            event->accept();
            if (MovedOn) MovedOn(event);
            return;
        default:
            QLineEdit::keyPressEvent(event);
    }
}

void CellEditor::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    switch (event->reason()) {
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason:
        case Qt::ActiveWindowFocusReason:
            return;
        default:
            if (Left) Left();
    }
}

}  // namespace controls
