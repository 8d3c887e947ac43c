#include "platform/report/painter_canvas.h"

#include <QGlyphRun>
#include <QRawFont>

#include <cmath>
#include <map>

namespace report {
namespace {

/// The toolkit's own access to a face. It finds fonts by their family, and the numbers of the glyphs are the
/// same.
QRawFont RawFontOf(const Face& face, double size) {
    static std::map<const Face*, QRawFont> known;
    auto found = known.find(&face);
    if (found == known.end()) {
        QFont font(face.family);
        font.setBold(face.bold);
        font.setHintingPreference(QFont::PreferNoHinting);
        found = known.emplace(&face, QRawFont::fromFont(font, QFontDatabase::SimplifiedChinese)).first;
    }
    QRawFont sized = found->second;
    sized.setPixelSize(size);
    return sized;
}

class PainterCanvas : public Canvas {
  public:
    explicit PainterCanvas(QPainter& painter) : painter_(painter) {}

    void FillRect(double x, double y, double width, double height, Ink ink) override {
        painter_.fillRect(QRectF(x, y, width, height), QColor::fromRgb(ink));
    }
    void DashedLine(double x1, double y1, double x2, double y2, double weight, Ink ink) override {
        QPen pen(QColor::fromRgb(ink), weight);
        pen.setDashPattern({5, 5});
        pen.setCapStyle(Qt::FlatCap);
        painter_.setPen(pen);
        painter_.drawLine(QPointF(x1, y1), QPointF(x2, y2));
    }
    void DrawGlyphs(const Glyphs& glyphs, Ink ink) override {
        if (!glyphs.face) return;
        QList<quint32> ids;
        QList<QPointF> places;
        for (size_t i = 0; i < glyphs.ids.size(); ++i) {
            ids += glyphs.ids[i];
            places += QPointF(glyphs.x[i], glyphs.y);
        }
        QGlyphRun run;
        run.setRawFont(RawFontOf(*glyphs.face, glyphs.size));
        run.setGlyphIndexes(ids);
        run.setPositions(places);
        painter_.setPen(QColor::fromRgb(ink));
        painter_.drawGlyphRun(QPointF(), run);
    }
    void DrawPicture(const QImage& image, double x, double y, double width, double height) override {
        painter_.drawImage(QRectF(x, y, width, height), image);
    }

  private:
    QPainter& painter_;
};

}  // namespace

void PaintPage(const Document& document, int page, const Device& device, QPainter& painter) {
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    PainterCanvas canvas(painter);
    Paint(document.PageAt(page), document.TypeFaces(), device, canvas);
    painter.restore();
}

}  // namespace report
