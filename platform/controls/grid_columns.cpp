#include "platform/controls/grid_columns.h"

#include "platform/controls/flex_grid.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace controls {
namespace {

constexpr int kUnits = FlexGrid::UnitsPerPixel;
constexpr int kDefaultWidth = 64 * kUnits;

}  // namespace

GridColumns::GridColumns(QTableView* view, QHeaderView* header)
    : QObject(view), view_(view), header_(header) {
    connect(header, &QHeaderView::sectionResized, this, [this](int col, int, int width) {
        if (!showing_ && width > 0 && col < static_cast<int>(widths_.size())) widths_[col] = width * kUnits;
    });
}

void GridColumns::SetCount(int cols) {
    widths_.resize(cols, kDefaultWidth);
}

void GridColumns::SetWidth(int col, int width) {
    widths_[col] = width;
    if (width > 0) shared_ = false;
    Show();
}

void GridColumns::Share() {
    shared_ = true;
    Show();
}

void GridColumns::Refit() {
    if (shared_) ShareOut();
}

void GridColumns::Show() {
    header_->setSectionResizeMode(shared_ ? QHeaderView::Fixed : QHeaderView::Interactive);
    view_->setHorizontalScrollBarPolicy(shared_ ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    const QScopedValueRollback quiet(showing_, true);
    for (int col = 0; col < static_cast<int>(widths_.size()); ++col) {
        const int pixels = (widths_[col] + kUnits / 2) / kUnits;
        view_->setColumnHidden(col, pixels == 0);
        if (pixels > 0 && !shared_) view_->setColumnWidth(col, pixels);
    }
    Refit();
}

/// Whole pixels whose sum is the width exactly.
void GridColumns::ShareOut() {
    const QScopedValueRollback quiet(showing_, true);
    const int count = static_cast<int>(widths_.size());
    const int shown = count - header_->hiddenSectionCount();
    const int total = view_->viewport()->width();
    int nth = 0;
    for (int col = 0; col < count; ++col) {
        if (view_->isColumnHidden(col)) continue;
        const int pixels = total * (nth + 1) / shown - total * nth / shown;
        ++nth;
        view_->setColumnWidth(col, pixels);
        widths_[col] = std::max(1, pixels) * kUnits;
    }
}

}  // namespace controls
