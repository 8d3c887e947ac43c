// Drawing a page, the same way on a screen, on a printer and into a PDF: what differs between them is a
// Canvas.
#pragma once

#include "platform/report/fonts.h"
#include "platform/report/page.h"

#include <QString>

#include <vector>

namespace report {

/// What a device can draw. All lengths are the device's dots.
class Canvas {
  public:
    virtual ~Canvas() = default;
    virtual void FillRect(double x, double y, double width, double height, Ink ink) = 0;
    virtual void DashedLine(double x1, double y1, double x2, double y2, double weight, Ink ink) = 0;
    /// Glyphs of one face on one baseline, each with its place and the character that it shows.
    struct Glyphs {
        const Face* face;
        double size;  ///< of the type, in dots
        double y;
        std::vector<double> x;
        std::vector<std::uint32_t> ids;
        std::u32string characters;
    };
    virtual void DrawGlyphs(const Glyphs& glyphs, Ink ink) = 0;
    virtual void DrawPicture(const QImage& image, double x, double y, double width, double height) = 0;
};

struct Device {
    double dots;  ///< to the millimetre
    bool snap;    ///< straight lines and fills keep to whole dots
};

void Paint(const Page& page, const Fonts& fonts, const Device& device, Canvas& canvas);

}  // namespace report
