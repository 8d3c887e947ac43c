#include "platform/controls/grid_columns.h"

#include "platform/controls/flex_grid.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace controls {
namespace {

constexpr int kUnits = FlexGrid::UnitsPerPixel;
constexpr int kDefaultWidth = 64 * kUnits;

}  // namespace

GridColumns::GridColumns(QTableView* view, QHeaderView* header)
    : QObject(view), view_(view), header_(header) {
    header->setSectionResizeMode(QHeaderView::Interactive);
    connect(header, &QHeaderView::sectionResized, this, [this](int col, int, int width) {
        if (!showing_ && width > 0 && col < static_cast<int>(widths_.size())) Drawn(col, width);
    });
}

void GridColumns::Drawn(int col, int width) {
    widths_[col] = width * kUnits;
    byHand_[col] = true;
    view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

bool GridColumns::Shares() const {
    return shared_ && std::ranges::find(byHand_, true) == byHand_.end();
}

void GridColumns::SetCount(int cols) {
    if (cols != static_cast<int>(widths_.size())) byHand_.assign(cols, false);
    widths_.resize(cols, kDefaultWidth);
}

void GridColumns::SetWidth(int col, int width) {
    widths_[col] = width;
    byHand_[col] = false;
    if (width > 0) shared_ = false;
    Show();
}

void GridColumns::Share(std::vector<int> shares) {
    shared_ = true;
    shares_ = std::move(shares);
    Show();
}

void GridColumns::Refit() {
    if (Shares()) ShareOut();
}

void GridColumns::Show() {
    const bool shares = Shares();
    const auto policy = shares ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    // The toolkit lays the grid out anew for the same policy too.
    if (view_->horizontalScrollBarPolicy() != policy) view_->setHorizontalScrollBarPolicy(policy);
    const QScopedValueRollback quiet(showing_, true);
    for (int col = 0; col < static_cast<int>(widths_.size()); ++col) {
        const int pixels = (widths_[col] + kUnits / 2) / kUnits;
        view_->setColumnHidden(col, pixels == 0);
        if (pixels > 0 && !shares) view_->setColumnWidth(col, pixels);
    }
    Refit();
}

int GridColumns::ShareOf(int col) const {
    if (view_->isColumnHidden(col)) return 0;
    return shares_.empty() ? 1 : shares_.at(static_cast<std::size_t>(col));
}

/// Whole pixels whose sum is the width exactly.
void GridColumns::ShareOut() {
    const QScopedValueRollback quiet(showing_, true);
    const int count = static_cast<int>(widths_.size());
    int all = 0;
    for (int col = 0; col < count; ++col) all += ShareOf(col);
    const int total = view_->viewport()->width();
    int before = 0;
    for (int col = 0; col < count; ++col) {
        if (view_->isColumnHidden(col)) continue;
        const int behind = before + ShareOf(col);
        const int pixels = total * behind / all - total * before / all;
        before = behind;
        view_->setColumnWidth(col, pixels);
        widths_[col] = std::max(1, pixels) * kUnits;
    }
}

}  // namespace controls
