// How the amounts of the ageing's grid are drawn: the shares of the buckets as one bar, pale to deep, and
// what is older than the last of them in the colour of danger.
#pragma once

#include "accounts/ageing.h"
#include "platform/controls/grid_parts.h"

#include <QColor>

/// Of the squares in front of the buckets' captions and of the parts of the bar.
inline constexpr std::array<QColor, accounts::AgeBuckets> BucketColours = {
    QColor(0xC3, 0xDE, 0xE6), QColor(0x86, 0xBA, 0xC7), QColor(0x3F, 0x8F, 0xA3), QColor(0x08, 0x56, 0x6A),
    QColor(0xB3, 0x26, 0x1E)};

/// The cell's text holds the shares in per cent, divided by blanks; a cell without text has no bar.
class AgeingBar : public controls::GridDelegate {
    Q_OBJECT
  public:
    using controls::GridDelegate::GridDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

/// Amounts in the colour of danger, but in rows of totals, which have a fill.
class OldAmount : public controls::GridDelegate {
    Q_OBJECT
  public:
    using controls::GridDelegate::GridDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
