// The page and height of each row, heading and total: only heights are found here, nothing is drawn.
#include "platform/report/document_state.h"

#include <algorithm>

namespace report {
namespace {

constexpr int kRowsBelowHeading = 2;  // are on a page with the heading of their group
constexpr int kRowsAboveTotal = 2;    // are on a page with the total that follows them

class Pager {
  public:
    explicit Pager(Document::State& state) : state_(state), layout_(*state.layout), bottom_(state.Bottom()) {}
    void Run();

  private:
    using Kind = Block::Kind;

    Context At(int row, Scope scope) const;
    double HeightOfRow(int row) const;
    double HeightOfLine(table::Line line, int row, Scope scope, Span group) const;
    double FootHeight(int level, int row) const;
    bool Ends(int level, int row) const { return state_.GroupOf(level, row).to == row + 1; }
    bool Begins(int level, int row) const { return state_.GroupOf(level, row).from == row; }
    Span Innermost(int row) const;

    void Put(Kind kind, double height, int index = 0, int level = 0);
    void BeginPage();
    void EndPage();
    /// A new page unless that much fits; what a page can't hold begins at its top. True if it did.
    bool Need(double height);
    double Capacity() const { return bottom_ - top_ - (carries_ ? carryHeight_ : 0); }

    void MeasureEnd();
    double KeepAfter(int row) const;
    double HeadsHeight(int row, int fromLevel) const;
    void PlaceRows();
    void PlaceGroupHeads(int row);
    void PlaceRow(int row);
    void PlaceTallRow(int row, double height);
    void PlaceGroupFeet(int row);
    void PlaceTotal();
    void PlaceSummary();

    Document::State& state_;
    const Layout& layout_;
    double bottom_;
    double y_ = 0;
    double top_ = 0;  ///< below the heads of the page
    bool fresh_ = true;
    bool carries_ = false;  ///< a page that ends now ends with a carried sum
    double carryHeight_ = 0;
    double total_ = 0;    ///< height of the total with the gap above it
    double summary_ = 0;  ///< height of what follows it
    int open_ = 0;        ///< groups whose heading is on an earlier page
    int openRow_ = 0;     ///< a row of theirs
    int row_ = -1;        ///< the last one that was placed
};

Context Pager::At(int row, Scope scope) const {
    Context context(state_, row, scope);
    context.page = static_cast<int>(state_.pages.size()) - 1;
    if (row >= 0 && row < state_.data.rows && state_.Levels() > 0) context.group = Innermost(row);
    return context;
}

Span Pager::Innermost(int row) const {
    return state_.Levels() > 0 ? state_.GroupOf(state_.Levels() - 1, row) : Span{0, state_.data.rows};
}

double Pager::HeightOfLine(table::Line line, int row, Scope scope, Span group) const {
    Context context = At(row, scope);
    context.group = group;
    return table::HeightOf(layout_, table::LinesOf(layout_, line, context));
}

double Pager::HeightOfRow(int row) const {
    if (layout_.table) return HeightOfLine(table::Line::Row, row, Scope::SoFar, Innermost(row));
    return LaySection(layout_, layout_.detail, At(row, Scope::SoFar), 0, 0).height;
}

double Pager::FootHeight(int level, int row) const {
    if (!layout_.table || !layout_.table->HasSubtotal()) return 0;
    return HeightOfLine(table::Line::Subtotal, row, Scope::Group, state_.GroupOf(level, row));
}

// --------------------------------------------------------------------------------------------------- the
// pages

void Pager::Put(Kind kind, double height, int index, int level) {
    state_.blocks.push_back({.kind = kind, .index = index, .level = level, .y = y_, .height = height});
    y_ += height;
}

void Pager::BeginPage() {
    state_.pages.push_back({.firstBlock = state_.blocks.size(), .rows = {row_ + 1, row_ + 1}});
    y_ = 0;
    const bool first = state_.pages.size() == 1;
    // The first page's head is on every page of a layout that has no running head.
    const bool whole = first || layout_.running.empty();
    const Section& head = whole ? layout_.head : layout_.running;
    const Context context = At(std::min(row_ + 1, state_.data.rows - 1), Scope::Report);
    Put(whole ? Kind::Head : Kind::Running, LaySection(layout_, head, context, 0, 0).height, row_ + 1);
    if (layout_.table) Put(Kind::TableHead, table::HeadHeight(layout_, context), row_ + 1);
    if (carries_ && row_ >= 0) Put(Kind::BroughtForward, carryHeight_, row_);
    for (int level = 0; level < open_; ++level)
        if (!layout_.groups[static_cast<size_t>(level)].again.isEmpty())
            Put(Kind::GroupAgain, look::kGroupGapOnTop + look::kGroupRow, openRow_, level);
    top_ = y_;
    fresh_ = true;
}

void Pager::EndPage() {
    if (carries_ && row_ >= 0) Put(Kind::CarriedOver, carryHeight_, row_);
    PageContent& page = state_.pages.back();
    page.blocks = state_.blocks.size() - page.firstBlock;
    page.rows.to = row_ + 1;
}

bool Pager::Need(double height) {
    if (fresh_ || y_ + height <= bottom_ - (carries_ ? carryHeight_ : 0) + 1e-6) return false;
    EndPage();
    BeginPage();
    return true;
}

// ------------------------------------------------------------------------------------------- rows and
// headings

void Pager::MeasureEnd() {
    const int last = state_.data.rows - 1;
    if (layout_.table && layout_.table->HasTotal())
        total_ = HeightOfLine(table::Line::Total, last, Scope::Report, {}) + look::kDouble +
                 (state_.Levels() > 0 ? look::kGroupGap : 0);
    summary_ = LaySection(layout_, layout_.summary, At(last, Scope::Report), 0, 0).height;
}

/// The height of what must follow a row on its page, if it is one of the last above a total.
double Pager::KeepAfter(int row) const {
    const Span group = Innermost(row);
    const bool reportEnds = group.to == state_.data.rows;
    const bool hasFoot = state_.Levels() > 0 && layout_.table && layout_.table->HasSubtotal();
    if (row < group.to - kRowsAboveTotal || (!hasFoot && !reportEnds)) return 0;
    double keep = 0;
    for (int next = row + 1; next < group.to; ++next) keep += HeightOfRow(next);
    for (int level = state_.Levels() - 1; level >= 0 && Ends(level, group.to - 1); --level)
        keep += FootHeight(level, group.to - 1);
    return reportEnds ? keep + total_ + summary_ : keep;
}

/// Of the groups that begin with a row, from that level on.
double Pager::HeadsHeight(int row, int fromLevel) const {
    double height = 0;
    for (int level = fromLevel; level < state_.Levels(); ++level)
        if (Begins(level, row) && !layout_.groups[static_cast<size_t>(level)].head.IsEmpty())
            height += look::kGroupGap + look::kGroupRow;
    return height;
}

void Pager::PlaceGroupHeads(int row) {
    double below = 0, together = 0;  // the rows below the heading; these and what they must be kept with
    for (int next = row; next < std::min(row + kRowsBelowHeading, Innermost(row).to); ++next) {
        below += HeightOfRow(next);
        together = std::max(together, below + KeepAfter(next));
    }
    if (HeadsHeight(row, 0) + together > Capacity()) together = below;  // no page can hold it all
    for (int level = 0; level < state_.Levels(); ++level) {
        if (!Begins(level, row)) continue;
        open_ = level;
        openRow_ = row;
        const Group& group = layout_.groups[static_cast<size_t>(level)];
        if (group.newPage && row > 0 && !fresh_) {
            EndPage();
            BeginPage();
        }
        if (!group.head.IsEmpty()) {
            Need(HeadsHeight(row, level) + together);
            Put(Kind::GroupHead, look::kGroupRow + (fresh_ ? look::kGroupGapOnTop : look::kGroupGap), row,
                level);
        }
        open_ = level + 1;
    }
}

void Pager::PlaceRow(int row) {
    const double height = HeightOfRow(row);
    double keep = KeepAfter(row);
    if (HeadsHeight(row, 0) + height + keep > Capacity()) keep = 0;  // no page can hold it together
    Need(height + keep);
    const double available = bottom_ - y_ - (carries_ ? carryHeight_ : 0);
    if (height > available + 1e-6 && layout_.table) return PlaceTallRow(row, height);
    Put(layout_.table ? Kind::Row : Kind::Detail, height, row);
    row_ = row;
    fresh_ = false;
}

/// A row that is higher than a page goes on from page to page, line by line.
void Pager::PlaceTallRow(int row, double height) {
    const double pitch = table::HeightOf(layout_, 2) - table::HeightOf(layout_, 1);
    const int lines = 1 + static_cast<int>((height - layout_.table->row) / pitch + 0.5);
    for (int line = 0; line < lines;) {
        const double available = bottom_ - y_ - (carries_ ? carryHeight_ : 0) - layout_.table->row;
        const int fit = std::clamp(1 + static_cast<int>(available / pitch), 1, lines - line);
        Put(Kind::Row, table::HeightOf(layout_, fit), row);
        state_.blocks.back().firstLine = line;
        state_.blocks.back().lines = fit;
        line += fit;
        if (line < lines) {
            EndPage();
            BeginPage();
        }
    }
    row_ = row;
    fresh_ = false;
}

void Pager::PlaceGroupFeet(int row) {
    for (int level = state_.Levels() - 1; level >= 0 && Ends(level, row); --level) {
        const double height = FootHeight(level, row);
        if (height > 0) {
            Need(height);
            Put(Kind::GroupFoot, height, row, level);
            fresh_ = false;
        }
        open_ = level;
    }
}

void Pager::PlaceRows() {
    carries_ = layout_.table && layout_.table->HasCarry();
    if (carries_) carryHeight_ = HeightOfLine(table::Line::Carry, state_.data.rows - 1, Scope::SoFar, {});
    BeginPage();
    if (!layout_.table && layout_.detail.empty()) return;
    for (int row = 0; row < state_.data.rows; ++row) {
        PlaceGroupHeads(row);
        PlaceRow(row);
        PlaceGroupFeet(row);
    }
}

void Pager::PlaceTotal() {
    carries_ = false;
    open_ = 0;
    row_ = state_.data.rows - 1;
    if (!layout_.table) return;
    if (!layout_.table->HasTotal()) return Put(Kind::Closing, 0);
    // Without the last rows it would not fit only where no page could hold them together.
    const double together = total_ + (total_ + summary_ <= Capacity() ? summary_ : 0);
    Need(together);
    if (state_.Levels() > 0) y_ += look::kGroupGap;
    Put(Kind::Total, total_ - (state_.Levels() > 0 ? look::kGroupGap : 0), row_);
    fresh_ = false;
}

void Pager::PlaceSummary() {
    if (summary_ <= Capacity()) Need(summary_);
    Context context = At(row_, Scope::Report);
    for (size_t i = 0; i < layout_.summary.size(); ++i) {
        const Band& band = layout_.summary[i];
        if (!IsShown(band, context)) continue;
        if (band.numbered) ++context.line;
        const double height = LayBand(layout_, band, context, 0, 0).height;
        Need(height);
        Put(Kind::Summary, height, static_cast<int>(i), context.line);
        fresh_ = false;
    }
}

void Pager::Run() {
    MeasureEnd();
    PlaceRows();
    PlaceTotal();
    PlaceSummary();
    EndPage();
}

}  // namespace

double Document::State::Bottom() const {
    return layout->AreaHeight() -
           LaySection(*layout, layout->foot, Context(*this, -1, Scope::Page), 0, 0).height;
}

void Paginate(Document::State& state) {
    Pager(state).Run();
}

}  // namespace report
