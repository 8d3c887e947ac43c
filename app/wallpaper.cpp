#include "app/wallpaper.h"

#include "platform/controls/paint.h"

#include <QImageReader>
#include <QPainter>

namespace {

/// Pixels. No screen needs a larger picture, and a damaged file may declare any size.
constexpr int kLongestSide = 16'384;

constexpr int kHintPixels = 12;
constexpr int kHintMargin = 16;

}  // namespace

Wallpaper::Wallpaper(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("Wallpaper"));
}

void Wallpaper::LoadPicture(const QString& path) {
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    picture_ = qMax(size.width(), size.height()) <= kLongestSide ? reader.read() : QImage();
    scaled_ = QPixmap();
    update();
}

void Wallpaper::SetHint(const QString& hint) {
    hint_ = hint;
    setAccessibleDescription(hint);
    update();
}

void Wallpaper::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintPicture(painter);
    QFont small(font());
    small.setPixelSize(kHintPixels);
    painter.setFont(small);
    painter.setPen(controls::paint::kMuted);
    painter.drawText(rect().adjusted(kHintMargin, 0, 0, -kHintMargin), Qt::AlignLeft | Qt::AlignBottom,
                     hint_);
}

void Wallpaper::PaintPicture(QPainter& painter) {
    if (picture_.isNull() || width() <= 0 || height() <= 0) return;
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    const QSize covering = picture_.size().scaled(pixels, Qt::KeepAspectRatioByExpanding);
    if (scaled_.size() != covering) {
        scaled_ =
            QPixmap::fromImage(picture_.scaled(covering, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    scaled_.setDevicePixelRatio(devicePixelRatioF());
    const QSizeF shown = scaled_.deviceIndependentSize();
    // The left and the top are cropped, so that the picture's subject stays at the lower right.
    painter.drawPixmap(QPointF(width() - shown.width(), height() - shown.height()), scaled_);
}
