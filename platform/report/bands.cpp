#include "platform/report/document_state.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace report {
namespace {

constexpr QStringView kHanging = u"）】》」，。；：";  // fill the left half of their square
constexpr double kHang = 0.42;                         // by how much such a mark hangs over, in type sizes
constexpr double kSignGap = 1.5, kSignDrop = 2.4;      // from a caption to its line, across and down

QString WithoutBlanksAtEnd(QString text) {
    while (text.endsWith(u' ')) text.chop(1);
    return text;
}

/// Text elements with their lines, and how far the lines after the first move down what is below.
class Growth {
  public:
    void Add(double y, double line, double extra) {
        if (extra > 0) grown_.push_back({y + line, extra});
    }
    /// How far down a thing at that height moves. Of texts that grow side by side the longest counts.
    double At(double y) const {
        double shift = 0;
        for (const Grown& one : grown_)
            if (y >= one.below) shift = std::max(shift, one.extra + At(one.below - 1));
        return shift;
    }

  private:
    struct Grown {
        double below, extra;
    };
    std::vector<Grown> grown_;
};

class BandLayout {
  public:
    BandLayout(const Layout& layout, const Context& context, double x, double y)
        : layout_(layout), context_(context), x_(x), y_(y) {}

    PlacedBand Lay(const Band& band);

  private:
    struct Laid {
        const Element* element;
        double x;
        QStringList lines;
    };
    void Measure(const Element& element);
    void Place(const Laid& laid);
    void PlaceText(const Laid& laid);
    void PlaceSign(const Laid& laid);
    void PlaceBox(const Element& element);
    double Y(double y) const { return y_ + y + growth_.At(y); }
    double WidthFor(const Element& element, double x) const;

    const Layout& layout_;
    const Context& context_;
    double x_, y_;
    Growth growth_;
    std::vector<Laid> laid_;
    Page page_;
    double lowest_ = 0;
    double end_ = 0;  ///< where the text that was measured last ends
};

double BandLayout::WidthFor(const Element& element, double x) const {
    if (element.width > 0) return element.width;
    const double area = layout_.AreaWidth();
    switch (element.align) {
        case Align::Left:
            return std::max(area - x, 5.0);
        case Align::Right:
            return std::max(x, 5.0);
        case Align::Center:
            return std::max(2 * std::min(x, area - x), 5.0);
    }
    return area;
}

void BandLayout::Measure(const Element& element) {
    Laid laid{&element, element.follows ? end_ + element.x : element.x, {}};
    double bottom = std::max({element.y + element.height, element.y2, element.y});
    if (element.kind == Element::Kind::Text) {
        const QString text = Evaluate(element.text, context_);
        if (text.isEmpty()) return;
        const double pitch = element.size * kPoint * element.pitch;
        laid.lines = layout_.fonts->Wrap(text, WidthFor(element, laid.x), element.size, element.bold);
        end_ = laid.x + layout_.fonts->Width(laid.lines.front(), element.size, element.bold);
        growth_.Add(element.y, pitch * 0.9, pitch * static_cast<double>(laid.lines.size() - 1));
        bottom = element.y + pitch / 2;
    } else if (element.kind == Element::Kind::Sign) {
        laid.lines += Evaluate(element.text, context_);
    }
    lowest_ = std::max(lowest_, bottom);
    laid_.push_back(std::move(laid));
}

PlacedBand BandLayout::Lay(const Band& band) {
    for (const Element& element : band.elements)
        if (element.when.IsEmpty() || IsTrue(ValueOf(element.when, context_))) Measure(element);
    for (const Laid& laid : laid_) Place(laid);
    const double height = band.height > 0 ? band.height : lowest_;
    return {std::move(page_.items), height + growth_.At(std::max(height, 1e6))};
}

void BandLayout::Place(const Laid& laid) {
    const Element& e = *laid.element;
    switch (e.kind) {
        case Element::Kind::Text:
            return PlaceText(laid);
        case Element::Kind::Sign:
            return PlaceSign(laid);
        case Element::Kind::Line:
            page_.items.push_back(Rule{x_ + e.x, Y(e.y), x_ + e.x2, Y(e.y2), e.weight, e.ink, e.dashed});
            return;
        case Element::Kind::Box:
            return PlaceBox(e);
        case Element::Kind::Picture:
            page_.items.push_back(Picture{x_ + e.x, Y(e.y), e.width, e.height, e.image});
            return;
    }
}

void BandLayout::PlaceText(const Laid& laid) {
    const Element& e = *laid.element;
    double middle = Y(e.y);
    for (const QString& line : laid.lines) {
        AddText(page_, *layout_.fonts, {x_ + laid.x, 0, line, e.size, e.bold, e.ink}, e.align, middle);
        middle += e.size * kPoint * e.pitch;
    }
}

void BandLayout::PlaceSign(const Laid& laid) {
    const Element& e = *laid.element;
    const QString& caption = laid.lines[0];
    AddText(page_, *layout_.fonts, {x_ + laid.x, 0, caption, e.size, e.bold, e.ink}, Align::Left, Y(e.y));
    const double from = x_ + e.x + layout_.fonts->Width(caption, e.size, e.bold) + kSignGap;
    const double y = Y(e.y) + kSignDrop, to = x_ + e.x + e.width;
    if (from < to) page_.items.push_back(Rule{from, y, to, y, look::kHair, look::kSoft});
}

void BandLayout::PlaceBox(const Element& e) {
    const double left = x_ + e.x, right = left + e.width, top = Y(e.y), bottom = Y(e.y + e.height);
    if (e.fill) page_.items.push_back(Fill{left, top, e.width, bottom - top, *e.fill});
    if (e.weight <= 0) return;
    for (const double y : {top, bottom}) page_.items.push_back(Rule{left, y, right, y, e.weight, e.ink});
    for (const double x : {left, right}) page_.items.push_back(Rule{x, top, x, bottom, e.weight, e.ink});
}

}  // namespace

void AddText(Page& page, const Fonts& fonts, TextRun run, Align align, double middle) {
    run.text = WithoutBlanksAtEnd(run.text);
    if (run.text.isEmpty()) return;
    if (align != Align::Left) {
        double width = fonts.Width(run.text, run.size, run.bold);
        const bool hangs = align == Align::Right && kHanging.contains(run.text.back());
        if (hangs) width -= kHang * run.size * kPoint;
        run.x -= align == Align::Right ? width : width / 2;
    }
    run.y = middle + look::kBaseline * run.size * kPoint;
    page.items.push_back(std::move(run));
}

bool IsShown(const Band& band, const Context& context) {
    return band.when.IsEmpty() || IsTrue(ValueOf(band.when, context));
}

PlacedBand LayBand(const Layout& layout, const Band& band, const Context& context, double x, double y) {
    return BandLayout(layout, context, x, y).Lay(band);
}

PlacedBand LaySection(const Layout& layout, const Section& section, Context context, double x, double y) {
    PlacedBand all;
    for (const Band& band : section) {
        if (!IsShown(band, context)) continue;
        if (band.numbered) ++context.line;
        PlacedBand one = LayBand(layout, band, context, x, y + all.height);
        all.height += one.height;
        std::ranges::move(one.items, std::back_inserter(all.items));
    }
    return all;
}

}  // namespace report
