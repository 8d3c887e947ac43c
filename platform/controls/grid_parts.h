// How a cell of a grid is drawn.
#pragma once

#include <QStyledItemDelegate>

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

}  // namespace controls
