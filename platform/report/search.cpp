#include "platform/report/search.h"

namespace report {
namespace {

constexpr double kHeight = 1.35, kAbove = 1.0;  // of a mark, and from its top to the baseline, in type sizes

}  // namespace

std::vector<Hit> FindOnPage(const Document& document, int page, const QString& text) {
    std::vector<Hit> hits;
    if (text.isEmpty()) return hits;
    const Fonts& fonts = document.TypeFaces();
    for (const Item& item : document.PageAt(page).items) {
        const auto* run = std::get_if<TextRun>(&item);
        if (!run) continue;
        const QStringView line(run->text);
        for (qsizetype at = line.indexOf(text, 0, Qt::CaseInsensitive); at >= 0;
             at = line.indexOf(text, at + text.size(), Qt::CaseInsensitive)) {
            const double size = run->size * kPoint;
            const double before = fonts.Width(line.first(at), run->size, run->bold);
            const double width = fonts.Width(line.sliced(at, text.size()), run->size, run->bold);
            hits.push_back({page, {run->x + before, run->y - kAbove * size, width, kHeight * size}});
        }
    }
    return hits;
}

}  // namespace report
