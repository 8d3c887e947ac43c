#include "demo/screen.h"

#include "platform/controls/look.h"
#include "platform/errors.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace demo {
namespace {

// Sizes and colours of the look.
constexpr int kBar = 32;        // title bar of the main window
constexpr int kDialogBar = 30;  // title bar of a window above the main window
constexpr QRgb kBarColor = 0xFFE1E5EE;
constexpr QRgb kLineColor = 0xFFD5DCE3;
constexpr QRgb kTextColor = 0xFF1B2733;
constexpr QRgb kBorderColor = 0xFF8A949E;

/// A pen of one device pixel at every scale factor.
QPen Thin(QRgb color) {
    QPen pen(QColor::fromRgb(color), 1);
    pen.setCosmetic(true);
    return pen;
}

/// The buttons of a title bar, the rightmost first: close, then size, then minimize.
void DrawMarks(QPainter& painter, const QRectF& bar, int count) {
    painter.setPen(QPen(QColor::fromRgb(kTextColor), 1));
    QPointF at(bar.right() - 20, bar.center().y());
    for (int mark = 0; mark < count; ++mark, at.rx() -= 40) {
        const QRectF box(at.x() - 5, at.y() - 5, 10, 10);
        if (mark == 0) {
            painter.drawLine(box.topLeft(), box.bottomRight());
            painter.drawLine(box.bottomLeft(), box.topRight());
        } else if (mark == 1) {
            painter.drawRect(box);
        } else {
            painter.drawLine(QPointF(box.left(), at.y()), QPointF(box.right(), at.y()));
        }
    }
}

void DrawBar(QPainter& painter, const QRectF& bar, const QWidget& window, bool main) {
    painter.fillRect(bar, QColor::fromRgb(kBarColor));
    painter.setPen(Thin(kLineColor));
    painter.drawLine(bar.bottomLeft(), bar.bottomRight());
    qreal left = bar.left() + 12;
    if (main) {
        controls::LookIcon(u"app"_s).paint(&painter, QRect(12, 8, 16, 16));
        left += 24;
    }
    painter.setPen(QColor::fromRgb(kTextColor));
    painter.setFont(QApplication::font());
    painter.drawText(bar.adjusted(left - bar.left(), 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     window.windowTitle());
    const bool closes = window.windowFlags() & Qt::WindowCloseButtonHint;
    DrawMarks(painter, bar, main ? 3 : closes ? 1 : 0);
}

int Depth(const QWidget* window) {
    int depth = window->windowType() == Qt::Popup ? 100 : 0;
    for (; window; window = window->parentWidget()) ++depth;
    return depth;
}

/// The visible windows above the main window, the lowest first.
QWidgetList Over(const QWidget* frame) {
    QWidgetList over;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window != frame && window->isVisible()) over << window;
    std::ranges::sort(over, {}, Depth);
    return over;
}

}  // namespace

Screen::Screen(QSize size, const QString& folder, const QString& suffix)
    : size_(size), folder_(folder), suffix_(suffix) {
}

void Screen::Fill(QWidget& frame) {
    frame_ = &frame;
    frame.setWindowState(Qt::WindowNoState);
    frame.setGeometry(0, kBar, size_.width(), size_.height() - kBar);
}

QImage Screen::Take() const {
    const qreal scale = frame_->devicePixelRatioF();
    QImage picture((QSizeF(size_) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::TextAntialiasing);
    DrawBar(painter, QRectF(0, 0, size_.width(), kBar), *frame_, true);
    painter.drawPixmap(QPointF(0, kBar), frame_->grab());
    const QPoint origin = frame_->geometry().topLeft() - QPoint(0, kBar);
    for (QWidget* window : Over(frame_)) {
        const QRectF place = window->geometry().translated(-origin);
        painter.drawPixmap(place.topLeft(), window->grab());
        if (window->windowType() != Qt::Dialog) continue;
        const QRectF bar(place.left(), place.top() - kDialogBar, place.width(), kDialogBar);
        DrawBar(painter, bar, *window, false);
        painter.setPen(Thin(kBorderColor));
        painter.drawRect(bar.united(place));
    }
    return picture;
}

void Screen::Begin(const QString& chapter, const QString& words) {
    chapter_ = chapter;
    words_ = words;
}

void Screen::Keep(const QString& name, const QString& caption) {
    if (frame_) Keep(name, caption, Take());
}

void Screen::Keep(const QString& name, const QString& caption, const QImage& picture) {
    const auto number = u"%1"_s.arg(static_cast<int>(kept_.size()) + 1, 2, 10, QChar(u'0'));
    const QString file = number + u'-' + name + suffix_ + u".png"_s;
    // The smallest file that the toolkit can write.
    if (!picture.save(folder_ + u'/' + file, "PNG", 0)) throw RuntimeError(u"无法写入图片 "_s + file);
    kept_.push_back({file, caption, chapter_, words_});
}

}  // namespace demo
