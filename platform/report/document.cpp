#include "platform/report/document.h"

#include "platform/report/document_state.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace report {
namespace {

/// The first rows of the groups of each level; a group ends where its own value or that of one above it
/// changes.
std::vector<std::vector<int>> FindGroups(const Document::State& state) {
    const std::vector<Group>& groups = state.layout->groups;
    std::vector<std::vector<int>> starts(groups.size());
    QStringList before;
    for (int row = 0; row < state.data.rows; ++row) {
        const Context context(state, row, Scope::Report);
        QStringList keys;
        for (const Group& group : groups) keys += TextOf(ValueOf(group.by, context));
        bool begins = row == 0;
        for (size_t level = 0; level < groups.size(); ++level) {
            const auto i = static_cast<qsizetype>(level);
            begins = begins || keys[i] != before[i];
            if (begins) starts[level].push_back(row);
        }
        before = std::move(keys);
    }
    return starts;
}

/// Draws the blocks of one page.
class PageMaker {
  public:
    PageMaker(const Document::State& state, int index)
        : state_(state),
          layout_(*state.layout),
          content_(state.pages[static_cast<size_t>(index)]),
          index_(index) {}

    Page Make();

  private:
    Context At(int row, Scope scope) const;
    void Draw(const Block& block);
    void DrawGroupHead(const Block& block, bool again);
    void DrawLine(const Block& block, table::Line line, Scope scope);
    void DrawTableRow(const Block& block);
    void DrawColumnRules();
    void DrawFoot();
    void Add(PlacedBand band) { std::ranges::move(band.items, std::back_inserter(page_.items)); }
    double Y(const Block& block) const { return layout_.top + block.y; }

    const Document::State& state_;
    const Layout& layout_;
    const PageContent& content_;
    int index_;
    Page page_;
    double tableTop_ = -1, tableBottom_ = 0;
    int firstRow_ = -1;  ///< of the page, as far as it is drawn
};

Context PageMaker::At(int row, Scope scope) const {
    Context context(state_, row, scope);
    context.page = index_;
    context.pageRows = content_.rows;
    if (row >= 0 && row < state_.data.rows && state_.Levels() > 0)
        context.group = state_.GroupOf(state_.Levels() - 1, row);
    return context;
}

Page PageMaker::Make() {
    for (size_t i = 0; i < content_.blocks; ++i) Draw(state_.blocks[content_.firstBlock + i]);
    DrawColumnRules();
    DrawFoot();
    return std::move(page_);
}

void PageMaker::Draw(const Block& block) {
    const double x = layout_.left, y = Y(block);
    switch (block.kind) {
        case Block::Kind::Head:
        case Block::Kind::Running: {
            const Section& head = block.kind == Block::Kind::Head ? layout_.head : layout_.running;
            const int row = std::min(block.index, state_.data.rows - 1);
            return Add(LaySection(layout_, head, At(row, Scope::Report), x, y));
        }
        case Block::Kind::TableHead:
            tableTop_ = y;
            tableBottom_ = y + block.height;
            return table::DrawHead(layout_, At(std::min(block.index, state_.data.rows - 1), Scope::Report), x,
                                   y, page_);
        case Block::Kind::BroughtForward:
        case Block::Kind::CarriedOver:
            return DrawLine(block, table::Line::Carry, Scope::SoFar);
        case Block::Kind::GroupHead:
        case Block::Kind::GroupAgain:
            return DrawGroupHead(block, block.kind == Block::Kind::GroupAgain);
        case Block::Kind::Row:
            return DrawTableRow(block);
        case Block::Kind::Detail:
            return Add(LaySection(layout_, layout_.detail, At(block.index, Scope::SoFar), x, y));
        case Block::Kind::GroupFoot:
            return DrawLine(block, table::Line::Subtotal, Scope::Group);
        case Block::Kind::Total:
            return DrawLine(block, table::Line::Total, Scope::Report);
        case Block::Kind::Closing:
            page_.items.push_back(Rule{x, y, x + layout_.AreaWidth(), y, look::kStrong, look::kBlack});
            return;
        case Block::Kind::Summary: {
            Context context = At(state_.data.rows - 1, Scope::Report);
            context.line = block.level;
            return Add(LayBand(layout_, layout_.summary[static_cast<size_t>(block.index)], context, x, y));
        }
    }
}

void PageMaker::DrawGroupHead(const Block& block, bool again) {
    const Group& group = layout_.groups[static_cast<size_t>(block.level)];
    Context context = At(block.index, Scope::Group);
    context.group = state_.GroupOf(block.level, block.index);
    const double bottom = Y(block) + block.height, middle = bottom - look::kGroupRow / 2;
    const double left = layout_.left, right = left + layout_.AreaWidth();
    const Fonts& fonts = *layout_.fonts;
    QString note = again ? QString() : Evaluate(group.note, context);
    const double noteWidth = fonts.Width(note, look::kNoteSize, false);
    const double available =
        layout_.AreaWidth() - 2 * look::kPad - (note.isEmpty() ? 0 : noteWidth + 2 * look::kPad);
    QString head =
        fonts.Wrap(Evaluate(group.head, context), std::max(available, 10.0), look::kGroupSize, true).first();
    if (again) head += group.again;
    AddText(page_, fonts, {left + look::kPad, 0, head, look::kGroupSize, true, look::kAccent}, Align::Left,
            middle);
    AddText(page_, fonts, {right - look::kPad, 0, note, look::kNoteSize, false, look::kSoft}, Align::Right,
            middle);
    page_.items.push_back(Rule{left, bottom, right, bottom, look::kThin, look::kBlack});
}

void PageMaker::DrawLine(const Block& block, table::Line line, Scope scope) {
    Context context = At(block.index, scope);
    if (line == table::Line::Subtotal) context.group = state_.GroupOf(block.level, block.index);
    if (line == table::Line::Carry)
        context.carry = block.kind == Block::Kind::CarriedOver ? layout_.table->carriedOver
                                                               : layout_.table->broughtForward;
    const double height = block.height - (line == table::Line::Total ? look::kDouble : 0);
    table::DrawRow(layout_, line, context, {.x = layout_.left, .y = Y(block), .height = height}, page_);
    tableBottom_ = Y(block) + block.height;
}

void PageMaker::DrawTableRow(const Block& block) {
    const Context context = At(block.index, Scope::SoFar);
    table::RowDrawing drawing{.x = layout_.left,
                              .y = Y(block),
                              .height = block.height,
                              .firstLine = block.firstLine,
                              .lines = block.lines};
    const bool follows = firstRow_ >= 0 && block.index > 0;
    if (follows) {
        const Context before = At(block.index - 1, Scope::SoFar);
        const Table& table = *layout_.table;
        drawing.separated = !table.separate.IsEmpty() && TextOf(ValueOf(table.separate, context)) !=
                                                             TextOf(ValueOf(table.separate, before));
        for (const Column& column : table.columns)
            drawing.hidden.push_back(column.once &&
                                     Evaluate(column.value, context) == Evaluate(column.value, before));
    }
    table::DrawRow(layout_, table::Line::Row, context, drawing, page_);
    if (firstRow_ < 0) firstRow_ = block.index;
    tableBottom_ = Y(block) + block.height;
}

void PageMaker::DrawColumnRules() {
    if (!layout_.table || tableTop_ < 0) return;
    double x = layout_.left;
    for (const Column& column : layout_.table->columns) {
        if (column.rule) page_.items.push_back(Rule{x, tableTop_, x, tableBottom_, look::kHair, look::kSoft});
        x += column.width;
    }
}

void PageMaker::DrawFoot() {
    const double y = layout_.top + state_.Bottom();
    Add(LaySection(layout_, layout_.foot, At(content_.rows.to - 1, Scope::Page), layout_.left, y));
}

}  // namespace

Document::Document(std::unique_ptr<State> state) : state_(std::move(state)) {
}
Document::~Document() = default;

std::shared_ptr<const Document> Document::LayOut(std::shared_ptr<Layout> layout, dao::Database& db,
                                                 const Formulas& formulas, QDate printed) {
    auto state = std::make_unique<State>(layout);
    state->data = ReadData(*layout, db, formulas);
    state->printed = printed;
    state->sums.resize(static_cast<size_t>(layout->aggregates));
    state->groupStarts = FindGroups(*state);
    Paginate(*state);
    return std::shared_ptr<const Document>(new Document(std::move(state)));
}

int Document::Pages() const {
    return static_cast<int>(state_->pages.size());
}

Page Document::PageAt(int index) const {
    return PageMaker(*state_, index).Make();
}

PaperSize Document::Paper() const {
    return state_->layout->size;
}

QString Document::PaperName() const {
    return state_->layout->paper;
}

bool Document::IsLandscape() const {
    return state_->layout->landscape;
}

QString Document::Title() const {
    const QString title = Evaluate(state_->layout->title, Context(*state_, 0, Scope::Report)).simplified();
    return title.isEmpty() ? state_->layout->file : title;
}

const Fonts& Document::TypeFaces() const {
    return *state_->layout->fonts;
}

}  // namespace report
