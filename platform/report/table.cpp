#include "platform/report/document_state.h"

#include <algorithm>
#include <cmath>

namespace report::table {
namespace {

constexpr double kGroupLineInset = 0.8;  // of the line under the common word of columns

double PitchOf(double size) {
    return size * kPoint * look::kLinePitch;
}

double TextX(const Column& column, double x) {
    switch (column.align) {
        case Align::Left:
            return x + column.left;
        case Align::Right:
            return x + column.width - look::kPad;
        case Align::Center:
            return x + column.width / 2;
    }
    return x;
}

QStringList HeadLines(const Layout& layout, const Column& column, const Context& context) {
    return layout.fonts->Wrap(Evaluate(column.head, context), column.TextWidth(), look::kHeadSize, true);
}

void Across(Page& page, double x, double y, double width, double weight, Ink ink) {
    page.items.push_back(Rule{x, y, x + width, y, weight, ink});
}

}  // namespace

const Template& CellOf(const Column& column, Line line) {
    switch (line) {
        case Line::Row:
            return column.value;
        case Line::Carry:
            return column.carry;
        case Line::Subtotal:
            return column.subtotal;
        case Line::Total:
            return column.total;
    }
    return column.value;
}

namespace {

bool IsBold(const Column& column, Line line) {
    return line == Line::Subtotal || line == Line::Total || (line == Line::Row && column.bold);
}

}  // namespace

int LinesOf(const Layout& layout, Line line, const Context& context) {
    qsizetype most = 1;
    for (const Column& column : layout.table->columns) {
        const Template& cell = CellOf(column, line);
        if (cell.IsEmpty()) continue;
        const QString text = Evaluate(cell, context);
        most = std::max(
            most,
            layout.fonts->Wrap(text, column.TextWidth(), layout.table->size, IsBold(column, line)).size());
    }
    return static_cast<int>(most);
}

double HeightOf(const Layout& layout, int lines) {
    return layout.table->row + PitchOf(layout.table->size) * (lines - 1);
}

double HeadHeight(const Layout& layout, const Context& context) {
    qsizetype most = 1;
    for (const Column& column : layout.table->columns)
        most = std::max(most, HeadLines(layout, column, context).size());
    const double low = look::kHeadRow + PitchOf(look::kHeadSize) * static_cast<double>(most - 1);
    return low + (layout.table->HasGroupHeads() ? look::kHeadRow : 0);
}

void DrawHead(const Layout& layout, const Context& context, double left, double y, Page& page) {
    const std::vector<Column>& columns = layout.table->columns;
    const double height = HeadHeight(layout, context), width = layout.AreaWidth();
    page.items.push_back(Fill{left, y, width, height, look::kFill});
    Across(page, left, y, width, look::kStrong, look::kBlack);
    double x = left;
    for (size_t i = 0; i < columns.size();) {
        const QString& group = columns[i].group;
        size_t end = i + 1;
        double together = columns[i].width;
        while (!group.isEmpty() && end < columns.size() && columns[end].group == group)
            together += columns[end++].width;
        const double top = y + (group.isEmpty() ? 0 : look::kHeadRow);
        if (!group.isEmpty()) {
            AddText(page, *layout.fonts, {x + together / 2, 0, group, look::kHeadSize, true, look::kBlack},
                    Align::Center, y + look::kHeadRow / 2);
            Across(page, x + kGroupLineInset, top, together - 2 * kGroupLineInset, look::kHair, look::kSoft);
        }
        for (; i < end; ++i) {
            const QStringList lines = HeadLines(layout, columns[i], context);
            const double pitch = PitchOf(look::kHeadSize);
            double middle = top + (y + height - top) / 2 - pitch * static_cast<double>(lines.size() - 1) / 2;
            for (const QString& line : lines) {
                AddText(page, *layout.fonts,
                        {TextX(columns[i], x), 0, line, look::kHeadSize, true, look::kBlack},
                        columns[i].align, middle);
                middle += pitch;
            }
            x += columns[i].width;
        }
    }
    Across(page, left, y + height, width, look::kThin, look::kBlack);
}

namespace {

void DrawAbove(Line line, const RowDrawing& d, double width, Page& page) {
    if (line == Line::Subtotal) {
        page.items.push_back(Fill{d.x, d.y, width, d.height, look::kSoftFill});
        Across(page, d.x, d.y, width, look::kThin, look::kBlack);
    } else if (line == Line::Total) {
        Across(page, d.x, d.y, width, look::kStrong, look::kBlack);
    } else if (d.separated) {
        Across(page, d.x, d.y, width, look::kThin, look::kBlack);
    }
}

void DrawBelow(Line line, const RowDrawing& d, double width, Page& page) {
    const double y = d.y + d.height;
    if (line == Line::Total) {
        Across(page, d.x, y, width, look::kThin, look::kBlack);
        Across(page, d.x, y + look::kDouble, width, look::kThin, look::kBlack);
    } else if (line == Line::Subtotal) {
        Across(page, d.x, y, width, look::kThin, look::kBlack);
    } else {
        Across(page, d.x, y, width, look::kHair, look::kLine);
    }
}

}  // namespace

void DrawRow(const Layout& layout, Line line, const Context& context, const RowDrawing& d, Page& page) {
    const Table& table = *layout.table;
    const double width = layout.AreaWidth();
    DrawAbove(line, d, width, page);
    double x = d.x;
    for (size_t i = 0; i < table.columns.size(); ++i) {
        const Column& column = table.columns[i];
        const Template& cell = CellOf(column, line);
        const bool hidden = i < d.hidden.size() && d.hidden[i];
        if (!cell.IsEmpty() && !hidden) {
            const bool bold = IsBold(column, line);
            const bool soft = line == Line::Carry || (column.soft && !bold);
            QStringList lines =
                layout.fonts->Wrap(Evaluate(cell, context), column.TextWidth(), table.size, bold);
            if (d.lines >= 0) lines = lines.mid(d.firstLine, d.lines);
            double middle = d.y + table.row / 2;  // text begins on the first line of the row
            for (const QString& one : lines) {
                AddText(page, *layout.fonts,
                        {TextX(column, x), 0, one, table.size, bold, soft ? look::kSoft : look::kBlack},
                        column.align, middle);
                middle += PitchOf(table.size);
            }
        }
        x += column.width;
    }
    DrawBelow(line, d, width, page);
}

}  // namespace report::table
