#include "accounts/ageing_bar.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int BarHeight = 8;
constexpr int BarMargin = 8;
constexpr qreal LeastPart = 1.5;  // so that a small share is seen
constexpr qreal PartGap = 1;

}  // namespace

void AgeingBar::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    GridDelegate::initStyleOption(option, index);
    option->text.clear();
}

void AgeingBar::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    GridDelegate::paint(painter, option, index);
    const QStringList shares = index.data().toString().split(u' ', Qt::SkipEmptyParts);
    const QRectF bar(option.rect.left() + BarMargin, option.rect.center().y() - BarHeight / 2.0 + 0.5,
                     option.rect.width() - 2 * BarMargin, BarHeight);
    const auto parts = std::min(static_cast<std::size_t>(shares.size()), BucketColours.size());
    qreal left = bar.left();
    for (std::size_t i = 0; i < parts; ++i) {
        const double share = shares[static_cast<qsizetype>(i)].toDouble();
        if (share <= 0) continue;
        const qreal width = std::max(bar.width() * share / 100, LeastPart);
        painter->fillRect(QRectF(left, bar.top(), std::max(width - PartGap, PartGap), bar.height()),
                          BucketColours[i]);
        left += width;
    }
}

void OldAmount::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    GridDelegate::initStyleOption(option, index);
    const bool isShare = index.data().toString().endsWith(u'%');
    if (!isShare && !index.data(Qt::BackgroundRole).isValid())
        option->palette.setColor(QPalette::Text, BucketColours.back());
}
