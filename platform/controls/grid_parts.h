// The small parts of a grid that have no life of their own: how a cell is drawn, and the editor over a cell.
#pragma once

#include <QLineEdit>
#include <QStyledItemDelegate>

#include <functional>

namespace controls {

/// No focus frame; words and fills of their own; a text that is cut shows whole under the pointer.
class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    void PaintInked(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                    const QColor& ink) const;
};

/// Tells how it was left and decides nothing itself.
class CellEditor : public QLineEdit {
    Q_OBJECT
  public:
    explicit CellEditor(QWidget* parent);

    std::function<void()> Entered;  ///< Enter
    std::function<void()> Dropped;  ///< Esc
    std::function<void()> Left;     ///< the focus went elsewhere in the same window
    /// A key that moves on (arrows up and down, pages, Tab): the editor is done and the grid acts on it.
    std::function<void(QKeyEvent*)> MovedOn;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent*) override {}
};

}  // namespace controls
