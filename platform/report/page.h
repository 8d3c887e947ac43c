// What a page shows, once it is laid out: texts at their places, rules, fills and pictures. Preview, printer
// and PDF draw the same items.
//
// Always holds: lengths are millimetres from the paper's upper left corner, type sizes and weights of lines
// are points, inks are 0xRRGGBB. Items are drawn in their order.
#pragma once

#include <QImage>
#include <QString>

#include <cstdint>
#include <variant>
#include <vector>

namespace report {

inline constexpr double kPointsPerInch = 72;
inline constexpr double kMillimetresPerInch = 25.4;
inline constexpr double kPoint = kMillimetresPerInch / kPointsPerInch;  ///< in millimetres

using Ink = std::uint32_t;

/// One line of text. y is its baseline. Never empty.
struct TextRun {
    double x, y;
    QString text;
    double size;
    bool bold;
    Ink ink;
};

/// A straight line; one that is not dashed lies across or down.
struct Rule {
    double x1, y1, x2, y2;
    double weight;
    Ink ink;
    bool dashed = false;
};

struct Fill {
    double x, y, width, height;
    Ink ink;
};

/// Shown as large as it fits into the place without a change of its proportions.
struct Picture {
    double x, y, width, height;
    QImage image;
};

using Item = std::variant<Fill, Rule, TextRun, Picture>;

struct Page {
    std::vector<Item> items;
};

struct PaperSize {
    double width, height;
};

}  // namespace report
