#include "platform/report/paint.h"

#include <algorithm>
#include <cmath>

namespace report {
namespace {

class Painter {
  public:
    Painter(const Fonts& fonts, const Device& device, Canvas& canvas)
        : fonts_(fonts), device_(device), canvas_(canvas) {}

    void operator()(const Fill& fill);
    void operator()(const Rule& rule);
    void operator()(const TextRun& run);
    void operator()(const Picture& picture);

  private:
    double Dots(double millimetres) const { return millimetres * device_.dots; }
    double Whole(double millimetres) const {
        return device_.snap ? std::round(Dots(millimetres)) : Dots(millimetres);
    }

    const Fonts& fonts_;
    const Device& device_;
    Canvas& canvas_;
};

void Painter::operator()(const Fill& fill) {
    const double x = Whole(fill.x), y = Whole(fill.y);
    canvas_.FillRect(x, y, Whole(fill.x + fill.width) - x, Whole(fill.y + fill.height) - y, fill.ink);
}

void Painter::operator()(const Rule& rule) {
    // A line never gets thinner than a dot.
    double weight = device_.snap ? std::max(Dots(rule.weight * kPoint), 1.0) : Dots(rule.weight * kPoint);
    if (device_.snap) weight = std::round(weight);
    const double x1 = Whole(std::min(rule.x1, rule.x2)), x2 = Whole(std::max(rule.x1, rule.x2));
    const double y1 = Whole(std::min(rule.y1, rule.y2)), y2 = Whole(std::max(rule.y1, rule.y2));
    if (rule.dashed) return canvas_.DashedLine(x1, y1, x2, y2, weight, rule.ink);
    const double half = device_.snap ? std::floor(weight / 2) : weight / 2;
    // Corners close: a line reaches half its weight beyond its ends on one side.
    if (y1 == y2)
        canvas_.FillRect(x1, y1 - half, x2 - x1, weight, rule.ink);
    else
        canvas_.FillRect(x1 - half, y1 - half, weight, y2 - y1 + weight, rule.ink);
}

void Painter::operator()(const TextRun& run) {
    const double size = Dots(run.size * kPoint);
    double x = Dots(run.x);
    Canvas::Glyphs glyphs{.face = nullptr, .size = size, .y = Dots(run.y)};
    const auto flush = [&] {
        if (!glyphs.ids.empty()) canvas_.DrawGlyphs(glyphs, run.ink);
        glyphs.x.clear();
        glyphs.ids.clear();
        glyphs.characters.clear();
    };
    for (qsizetype at = 0; at < run.text.size();) {
        const char32_t character = NextCharacter(run.text, at);
        const Glyph& glyph = fonts_.GlyphOf(character, run.bold);
        if (glyph.face != glyphs.face) {
            flush();
            glyphs.face = glyph.face;
        }
        glyphs.x.push_back(x);
        glyphs.ids.push_back(glyph.id);
        glyphs.characters.push_back(character);
        x += static_cast<double>(glyph.advance) * size;
    }
    flush();
}

void Painter::operator()(const Picture& picture) {
    const QSize pixels = picture.image.size();
    const double scale = std::min(picture.width / pixels.width(), picture.height / pixels.height());
    const double width = pixels.width() * scale, height = pixels.height() * scale;
    canvas_.DrawPicture(picture.image, Dots(picture.x + (picture.width - width) / 2),
                        Dots(picture.y + (picture.height - height) / 2), Dots(width), Dots(height));
}

}  // namespace

void Paint(const Page& page, const Fonts& fonts, const Device& device, Canvas& canvas) {
    Painter painter(fonts, device, canvas);
    for (const Item& item : page.items) std::visit(painter, item);
}

}  // namespace report
