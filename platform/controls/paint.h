// What is painted by hand beside the style sheet: its colours, by the names that the sheet's table has for
// them, and lines that are one device pixel thick at every scaling (a border of the sheet is one or two at
// 150 %).
#pragma once

#include <QColor>
#include <QLineF>
#include <QPainter>

namespace controls::paint {

inline constexpr QColor kText(0x1B, 0x27, 0x33);
inline constexpr QColor kSurfaceLow(0xF6, 0xF8, 0xFA);
inline constexpr QColor kLine(0xD5, 0xDC, 0xE3);
inline constexpr QColor kColumnLine(0xDF, 0xE5, 0xEA);
inline constexpr QColor kFootLine(0xBC, 0xC6, 0xD0);
inline constexpr QColor kHeaderText(0x3F, 0x4D, 0x5A);
inline constexpr QColor kAccent(0x0B, 0x6B, 0x83);
inline constexpr QColor kAccentDeep(0x08, 0x56, 0x6A);
inline constexpr QColor kTotal(0xC0, 0xFF, 0xFF);  // of a ledger; the fill of the focus too
inline constexpr QColor kAccentPale(0xA9, 0xD0, 0xDB);
inline constexpr QColor kBlockLine(0x8D, 0x9A, 0xA7);
inline constexpr QColor kMuted(0x52, 0x60, 0x6D);
inline constexpr QColor kSelection(0xDC, 0xEE, 0xF3);
inline constexpr QColor kShadow(0x1B, 0x27, 0x33, 5);  // one of several layers
inline constexpr QColor kDanger(0xB3, 0x26, 0x1E);
inline constexpr QColor kWarning(0x8A, 0x5A, 0x00);

void Hairline(QPainter& painter, const QColor& color, const QLineF& line);

}  // namespace controls::paint
