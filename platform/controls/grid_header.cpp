#include "platform/controls/grid_header.h"

#include "platform/controls/grid_model.h"
#include "platform/controls/paint.h"

namespace controls {

using namespace paint;

namespace {

constexpr int kOneRow = 28;
constexpr int kRow = 24;     // for each of several rows
constexpr int kPadding = 1;  // captions of narrow columns need the width
constexpr int kTextPixels = 12;
constexpr int kMark = 8;       // the square in front of a caption
constexpr int kMarkLeft = 10;  // from the edge of the column

class CellFinder {
  public:
    CellFinder(const GridModel& model, const std::vector<bool>& hidden) : model_(model), hidden_(hidden) {
        taken_.assign(static_cast<std::size_t>(model.FixedRows() * model.Cols()), false);
    }

    bool Free(int row, int col) const { return !Hidden(col) && !taken_[At(row, col)]; }
    bool Hidden(int col) const { return hidden_[static_cast<std::size_t>(col)]; }

    HeaderCell Take(int row, int col, bool merge) {
        HeaderCell cell{row, col, row, col};
        if (merge && !model_.Text(row, col).isEmpty()) {
            const bool last = row == model_.FixedRows() - 1;
            if (!last || model_.FixedRows() == 1) GrowRight(cell);
            GrowDown(cell);
        }
        for (int r = cell.row; r <= cell.lastRow; ++r)
            for (int c = cell.col; c <= cell.lastCol; ++c) taken_[At(r, c)] = true;
        return cell;
    }

  private:
    std::size_t At(int row, int col) const { return static_cast<std::size_t>(row * model_.Cols() + col); }

    void GrowRight(HeaderCell& cell) const {
        const QString& text = model_.Text(cell.row, cell.col);
        for (int c = cell.col + 1; c < model_.Cols(); ++c) {
            if (Hidden(c)) continue;
            if (taken_[At(cell.row, c)] || model_.Text(cell.row, c) != text) return;
            cell.lastCol = c;
        }
    }

    void GrowDown(HeaderCell& cell) const {
        const QString& text = model_.Text(cell.row, cell.col);
        for (int r = cell.row + 1; r < model_.FixedRows(); ++r) {
            for (int c = cell.col; c <= cell.lastCol; ++c)
                if (!Hidden(c) && model_.Text(r, c) != text) return;
            cell.lastRow = r;
        }
    }

    const GridModel& model_;
    const std::vector<bool>& hidden_;
    std::vector<bool> taken_;
};

}  // namespace

std::vector<HeaderCell> HeaderCells(const GridModel& model, bool merge, const std::vector<bool>& hidden) {
    CellFinder finder(model, hidden);
    std::vector<HeaderCell> cells;
    for (int row = 0; row < model.FixedRows(); ++row)
        for (int col = 0; col < model.Cols(); ++col)
            if (finder.Free(row, col)) cells.push_back(finder.Take(row, col, merge));
    return cells;
}

GridHeader::GridHeader(const GridModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), model_(model) {
    setSectionsClickable(false);
    setSectionsMovable(false);
    setHighlightSections(false);
    setMinimumSectionSize(8);
    setDefaultAlignment(Qt::AlignCenter);
    Fit();
}

void GridHeader::SetMerge(bool merge) {
    merge_ = merge;
    viewport()->update();
}

void GridHeader::Fit() {
    const int rows = model_.FixedRows();
    setFixedHeight(rows == 1 ? kOneRow : rows * kRow);
    setVisible(rows > 0);
}

void GridHeader::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const QRect area = viewport()->rect();
    painter.fillRect(area, kSurfaceLow);
    const int rows = model_.FixedRows();
    if (rows == 0 || count() != model_.Cols()) return;
    QFont small = font();
    small.setPixelSize(kTextPixels);
    painter.setFont(small);

    std::vector<bool> hidden(static_cast<std::size_t>(model_.Cols()));
    for (int col = 0; col < model_.Cols(); ++col)
        hidden[static_cast<std::size_t>(col)] = isSectionHidden(col);
    const int high = height() / rows;
    for (const HeaderCell& cell : HeaderCells(model_, merge_, hidden)) {
        const int left = sectionViewportPosition(cell.col);
        const int right = sectionViewportPosition(cell.lastCol) + sectionSize(cell.lastCol);
        const QRect rect(left, cell.row * high, right - left, (cell.lastRow - cell.row + 1) * high);
        if (!rect.intersects(area)) continue;
        const bool group = rows > 1 && cell.lastRow < rows - 1;
        // A group's title stays visible while its columns are scrolled.
        const QRect inner = rect.intersected(area).adjusted(kPadding, 0, -kPadding - 1, -1);
        QRect textRect = cell.col == cell.lastCol ? rect.adjusted(kPadding, 0, -kPadding - 1, -1) : inner;
        const QVariant mark = model_.headerData(cell.col, Qt::Horizontal, Qt::DecorationRole);
        if (mark.isValid()) {
            painter.fillRect(rect.left() + kMarkLeft, rect.center().y() - kMark / 2, kMark, kMark,
                             mark.value<QColor>());
            textRect.setLeft(rect.left() + kMarkLeft + kMark);
        }
        painter.setPen(group ? kAccentDeep : kHeaderText);
        const QString text = model_.Text(cell.row, cell.col);
        painter.drawText(textRect, Qt::AlignCenter | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, textRect.width()));
        Hairline(painter, kColumnLine, QLineF(rect.right(), rect.top(), rect.right(), rect.bottom()));
        if (group)
            Hairline(painter, kColumnLine, QLineF(rect.left(), rect.bottom(), rect.right(), rect.bottom()));
    }
    Hairline(painter, kFootLine, QLineF(area.left(), area.bottom(), area.right(), area.bottom()));
}

}  // namespace controls
