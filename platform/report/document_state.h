// How a document is held: its rows, and for each page what is where. For the document's own files.
#pragma once

#include "platform/report/document.h"

#include <memory>
#include <vector>

namespace report {

/// Rows from one to before another.
struct Span {
    int from = 0, to = 0;
    int Count() const { return to - from; }
};

/// What is on a page at a height, counted from the top of the type area.
struct Block {
    enum class Kind : unsigned char {
        Head,
        Running,
        TableHead,
        BroughtForward,
        GroupHead,
        GroupAgain,
        Row,
        Detail,
        GroupFoot,
        Total,
        Closing,
        Summary,
        CarriedOver,
    };
    Kind kind;
    int index = 0;  ///< of a row, or of a band of the summary
    int level = 0;  ///< of a group; of a band of the summary, the number that #line gives
    double y = 0, height = 0;
    int firstLine = 0, lines = -1;  ///< of a row that is higher than a page; -1: all
};

struct PageContent {
    size_t firstBlock = 0, blocks = 0;
    Span rows = {};
};

/// What an expression asks, at one place of the report.
class Context : public Answers {
  public:
    Context(const Document::State& state, int itsRow, Scope itsScope)
        : state_(state), row(itsRow), scope(itsScope) {}
    Value Field(int column) const override;
    Value Word(const QString& name) const override;
    Value Aggregate(const Expression& aggregate) const override;

  private:
    Span RowsOf(Scope scope) const;
    Value AtRow(const Expression& expression, int row) const;

    const Document::State& state_;

  public:
    int row;  ///< the current one; one that is not there has empty fields
    Scope scope;
    Span group = {};
    Span pageRows = {};
    int page = 0;  ///< from 0
    int line = 0;
    QString carry = {};
};

struct Document::State {
    explicit State(std::shared_ptr<Layout> itsLayout) : layout(std::move(itsLayout)) {}

    std::shared_ptr<const Layout> layout;
    Data data;
    QDate printed;
    std::vector<std::vector<int>> groupStarts;  ///< for each level, the rows that begin a group
    std::vector<Block> blocks;
    std::vector<PageContent> pages;
    /// For each aggregate the sums of the rows before a row; made when it is first asked for.
    mutable std::vector<std::vector<long double>> sums;

    Span GroupOf(int level, int row) const;
    int Levels() const { return static_cast<int>(groupStarts.size()); }
    /// From the top of the type area to where the foot begins.
    double Bottom() const;
};

/// A band at its place, moved by what has grown in it.
struct PlacedBand {
    std::vector<Item> items;
    double height = 0;
};

/// Lays a band out; x and y are the paper's. Whether it is shown at all the caller asks (IsShown).
PlacedBand LayBand(const Layout& layout, const Band& band, const Context& context, double x, double y);
bool IsShown(const Band& band, const Context& context);
/// All bands one under the other.
PlacedBand LaySection(const Layout& layout, const Section& section, Context context, double x, double y);

// The parts of a table. Heights in millimetres; y is the paper's.
namespace table {

enum class Line { Row, Carry, Subtotal, Total };

/// The text of a cell in a line.
const Template& CellOf(const Column& column, Line line);
/// Lines of text of the row's highest cell.
int LinesOf(const Layout& layout, Line line, const Context& context);
double HeightOf(const Layout& layout, int lines);
double HeadHeight(const Layout& layout, const Context& context);

void DrawHead(const Layout& layout, const Context& context, double x, double y, Page& page);

struct RowDrawing {
    double x = 0, y = 0, height = 0;
    int firstLine = 0, lines = -1;
    bool separated = false;         ///< a stronger line is drawn above it
    std::vector<bool> hidden = {};  ///< cells that repeat the one above
};
void DrawRow(const Layout& layout, Line line, const Context& context, const RowDrawing& drawing, Page& page);

}  // namespace table

/// A text that begins, ends or is centred at x; y is the middle of its line. Blanks at its end are dropped.
void AddText(Page& page, const Fonts& fonts, TextRun run, Align align, double middle);

/// Places all rows on pages.
void Paginate(Document::State& state);

}  // namespace report
