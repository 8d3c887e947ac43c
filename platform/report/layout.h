// A layout as it was read from its file: what a report asks of the database and how its pages are built.
//
// Always holds: lengths are millimetres, type sizes and weights of lines points, inks 0xRRGGBB. Places within
// a band are counted from the left edge of the type area and the top of the band. All is checked but the
// names of fields, which are known only when the statement has run.
#pragma once

#include "platform/report/expression.h"
#include "platform/report/fonts.h"
#include "platform/report/page.h"

#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace report {

enum class Align { Left, Center, Right };

/// One thing in a band.
struct Element {
    enum class Kind { Text, Line, Box, Picture, Sign };
    Kind kind = Kind::Text;
    Place place = {};
    Template when = {};  ///< empty: always
    double x = 0, y = 0, x2 = 0, y2 = 0;
    double width = 0, height = 0;  ///< width 0 of a text: up to the edge of the type area
    Template text = {};
    double size = 0, pitch = 0;  ///< pitch: of wrapped lines, in type sizes
    bool bold = false;
    bool follows = false;  ///< x counts from the end of the text before it
    Align align = Align::Left;
    double weight = 0;
    Ink ink = 0;
    std::optional<Ink> fill = {};
    bool dashed = false;
    QImage image = {};
};

struct Band {
    double height = 0;
    Template when = {};
    bool numbered = false;  ///< #line counts it
    std::vector<Element> elements = {};
};

using Section = std::vector<Band>;

struct Column {
    double width = 0;
    Align align = Align::Left;
    double left = 0;  ///< from the column's left edge to its text
    bool soft = false;
    bool bold = false;
    bool once = false;  ///< shown once per run of equal values and again at the head of a page
    bool rule = false;  ///< a line down at its left edge
    QString group = {};
    Template head = {}, value = {}, carry = {}, subtotal = {}, total = {};
    double TextWidth() const;  ///< millimetres that are left for a text
};

struct Table {
    std::vector<Column> columns = {};
    double size = 0;         ///< of the type
    double row = 0;          ///< height of a row of one line
    Template separate = {};  ///< a stronger line where it changes
    QString carriedOver = {}, broughtForward = {};
    bool HasCarry() const;
    bool HasSubtotal() const;
    bool HasTotal() const;
    bool HasGroupHeads() const;
};

struct Group {
    Template by = {};
    Template head = {}, note = {};
    QString again = {};  ///< behind the heading on the next page
    bool newPage = false;
};

struct Layout {
    QString file;  ///< its name without the folder
    Template title = {};
    QString paper = {};
    bool landscape = false;
    PaperSize size{};
    double left = 0, top = 0, right = 0, bottom = 0;  ///< margins
    const Fonts* fonts = nullptr;
    QString family = {};

    QStringList formulas = {};  ///< as declared; compared without case
    QString statement = {};
    Place statementPlace = {};
    Template skip = {}, totalRow = {};
    struct Lookup {
        QString name;
        QString statement;
        Place place;
    };
    std::vector<Lookup> lookups = {};

    Section head = {}, running = {}, detail = {}, summary = {}, foot = {};
    std::vector<Group> groups = {};
    std::optional<Table> table = {};
    int aggregates = 0;

    double AreaWidth() const { return size.width - left - right; }
    double AreaHeight() const { return size.height - top - bottom; }
};

/// Reads a layout. Raises RuntimeError with file, line and reason.
std::shared_ptr<Layout> ReadLayout(const QString& path);
/// Visits every template of a layout.
void VisitTemplates(Layout& layout, const std::function<void(Template&)>& visitor);

/// What all tables have in common.
namespace look {
inline constexpr double kPad = 1.2;  ///< text to the edge of its column
inline constexpr double kAfterNumber =
    2.0;  ///< more before a left-aligned column that follows a right-aligned one
inline constexpr double kLinePitch = 1.3;  ///< of wrapped text, in type sizes
inline constexpr double kBaseline = 0.37;  ///< below the middle of a line, in type sizes
inline constexpr double kHeadRow = 6.6, kHeadSize = 8.5;
inline constexpr double kGroupRow = 6.4, kGroupGap = 3.2, kGroupGapOnTop = 1.2, kGroupSize = 9.5;
inline constexpr double kNoteSize = 8.5;
inline constexpr double kHair = 0.3, kThin = 0.5, kStrong = 1.0;  ///< points
inline constexpr double kDouble = 0.7;                            ///< between the lines that close a total
inline constexpr Ink kBlack = 0x000000, kSoft = 0x555555, kLine = 0xA6A6A6, kFill = 0xECECEC,
                     kSoftFill = 0xF5F5F5, kAccent = 0x08566A;
}  // namespace look

}  // namespace report
