#include "platform/report/desk.h"

#include "platform/controls/paint.h"
#include "platform/report/painter_canvas.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace report {
namespace {

constexpr double kScreenDots = 96;  // to the inch, at 100 %
constexpr int kGap = 20;            // between two pages and round them
constexpr int kShadow = 6;
constexpr int kStep = 48;                // of an arrow key
constexpr int kKeptPixels = 24'000'000;  // of drawn pages
constexpr int kLargestKept = 6'000'000;  // a page with more is drawn as far as it is seen, each time anew
constexpr QColor kDesk(0xCB, 0xD3, 0xDA);
constexpr QColor kHit(0xDC, 0xEE, 0xF3), kCurrentHit(0xC0, 0xFF, 0xFF);

}  // namespace

Desk::Desk(QWidget* parent) : QAbstractScrollArea(parent), drawn_(kKeptPixels) {
    setObjectName(QStringLiteral("Pages"));
    setAccessibleName(QStringLiteral("报表页面"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    verticalScrollBar()->setSingleStep(kStep);
    horizontalScrollBar()->setSingleStep(kStep);
}

double Desk::Dots() const {
    return kScreenDots / kMillimetresPerInch * zoom_;
}

QSize Desk::PageSize() const {
    if (!document_) return {};
    const PaperSize paper = document_->Paper();
    return {static_cast<int>(std::lround(paper.width * Dots())),
            static_cast<int>(std::lround(paper.height * Dots()))};
}

/// In the view.
QRect Desk::PlaceOf(int page) const {
    const QSize size = PageSize();
    const int available = viewport()->width() - 2 * kGap;
    const int left = size.width() <= available ? (viewport()->width() - size.width()) / 2
                                               : kGap - horizontalScrollBar()->value();
    return {{left, kGap + page * (size.height() + kGap) - verticalScrollBar()->value()}, size};
}

void Desk::SetDocument(std::shared_ptr<const Document> document) {
    const int page = CurrentPage();
    document_ = std::move(document);
    hits_.clear();
    currentHit_ = -1;
    drawn_.clear();
    ApplyFit();
    UpdateBars();
    GoToPage(page);
    emittedPage_ = -1;
    EmitMoved();
    viewport()->update();
}

int Desk::CurrentPage() const {
    if (Pages() == 0) return 0;
    const int middle = verticalScrollBar()->value() + viewport()->height() / 2 - kGap;
    return std::clamp(middle / (PageSize().height() + kGap), 0, Pages() - 1);
}

void Desk::GoToPage(int page) {
    if (Pages() == 0) return;
    page = std::clamp(page, 0, Pages() - 1);
    const int height = PageSize().height() + kGap;
    // A page that is lower than the view is placed in its middle, so that it is the current one.
    const int spare = std::max(viewport()->height() - height - kGap, 0);
    verticalScrollBar()->setValue(page * height - spare / 2);
    EmitMoved();
}

void Desk::SetZoom(double zoom) {
    fit_ = Fit::None;
    ApplyZoom(zoom);
}

void Desk::SetFit(Fit fit) {
    fit_ = fit;
    const int page = CurrentPage();
    ApplyFit();
    if (fit == Fit::Page) GoToPage(page);
    if (Moved) Moved();
}

void Desk::ApplyFit() {
    if (!document_ || fit_ == Fit::None) return;
    const PaperSize paper = document_->Paper();
    const double dots = kScreenDots / kMillimetresPerInch;
    double zoom = (viewport()->width() - 2 * kGap) / (paper.width * dots);
    if (fit_ == Fit::Page) zoom = std::min(zoom, (viewport()->height() - 2 * kGap) / (paper.height * dots));
    ApplyZoom(zoom);
}

void Desk::ApplyZoom(double zoom) {
    // A whole page may be smaller than the least that can be chosen.
    zoom = std::clamp(zoom, fit_ == Fit::None ? kLeastZoom : 0.1, kMostZoom);
    const double factor = zoom / zoom_;
    if (factor == 1) return;
    const int half = viewport()->height() / 2;
    const double middle = verticalScrollBar()->value() + half;
    zoom_ = zoom;
    drawn_.clear();
    UpdateBars();
    verticalScrollBar()->setValue(static_cast<int>(std::lround(middle * factor)) - half);
    viewport()->update();
    if (Moved) Moved();
}

void Desk::UpdateBars() {
    const QSize page = PageSize(), view = viewport()->size();
    const int height = Pages() * (page.height() + kGap) + kGap;
    verticalScrollBar()->setRange(0, std::max(height - view.height(), 0));
    verticalScrollBar()->setPageStep(view.height());
    horizontalScrollBar()->setRange(0, std::max(page.width() + 2 * kGap - view.width(), 0));
    horizontalScrollBar()->setPageStep(view.width());
}

void Desk::SetHits(std::vector<Hit> hits, int current) {
    const bool moves = current >= 0 && current != currentHit_;
    hits_ = std::move(hits);
    currentHit_ = current;
    viewport()->update();
    if (!moves) return;
    const Hit& hit = hits_[static_cast<size_t>(current)];
    const QRect page = PlaceOf(hit.page);
    const int top = page.top() + static_cast<int>(hit.place.top() * Dots());
    const int height = static_cast<int>(hit.place.height() * Dots());
    if (top < kGap || top + height > viewport()->height() - kGap)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + top - viewport()->height() / 3);
    const int left = page.left() + static_cast<int>(hit.place.left() * Dots());
    const int right = left + static_cast<int>(hit.place.width() * Dots());
    if (left < 0 || right > viewport()->width())
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + left - kGap);
}

void Desk::EmitMoved() {
    if (CurrentPage() == emittedPage_) return;
    emittedPage_ = CurrentPage();
    if (Moved) Moved();
}

// ------------------------------------------------------------------------------------------------------
// events

void Desk::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), kDesk);
    if (!document_) return;
    const int height = PageSize().height() + kGap;
    const int first = std::max((verticalScrollBar()->value() - kGap) / height, 0);
    for (int page = first; page < Pages(); ++page) {
        const QRect place = PlaceOf(page);
        if (place.top() > viewport()->height()) break;
        DrawPage(painter, page, place);
        DrawHits(painter, page, place);
    }
}

void Desk::DrawPage(QPainter& painter, int page, const QRect& place) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(27, 39, 51, 9));
    for (int k = kShadow; k > 0; --k)
        painter.drawRoundedRect(QRectF(place).adjusted(-k + 1, -k + 3, k - 1, k + 2), k, k);
    painter.setRenderHint(QPainter::Antialiasing, false);

    const double ratio = devicePixelRatioF();
    const Device device{Dots() * ratio, true};
    const QSize pixels = place.size() * ratio;
    if (qint64{pixels.width()} * pixels.height() > kLargestKept) {
        painter.save();
        painter.fillRect(place, Qt::white);
        painter.setClipRect(place);
        painter.translate(place.topLeft());
        painter.scale(1 / ratio, 1 / ratio);
        PaintPage(*document_, page, device, painter);
        painter.restore();
        return;
    }
    QPixmap* drawn = drawn_.object(page);
    if (!drawn) {
        drawn = new QPixmap(pixels);
        drawn->fill(Qt::white);
        QPainter inside(drawn);
        PaintPage(*document_, page, device, inside);
        inside.end();
        drawn->setDevicePixelRatio(ratio);
        drawn_.insert(page, drawn, pixels.width() * pixels.height());
    }
    painter.drawPixmap(place.topLeft(), *drawn);
}

void Desk::DrawHits(QPainter& painter, int page, const QRect& place) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    const auto from = std::ranges::lower_bound(hits_, page, {}, &Hit::page);
    for (auto hit = from; hit != hits_.end() && hit->page == page; ++hit) {
        const bool current = hit - hits_.begin() == currentHit_;
        const QRectF box(place.left() + hit->place.left() * Dots() - 2,
                         place.top() + hit->place.top() * Dots(), hit->place.width() * Dots() + 4,
                         hit->place.height() * Dots());
        painter.setPen(current ? QPen(controls::paint::kAccent, 1.5) : QPen(Qt::NoPen));
        painter.setBrush(current ? kCurrentHit : kHit);
        painter.drawRoundedRect(box, 2, 2);
    }
    painter.restore();
}

void Desk::resizeEvent(QResizeEvent*) {
    ApplyFit();
    UpdateBars();
    EmitMoved();
}

void Desk::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    const int turned = event->angleDelta().y();
    if (turned != 0 && WheelZoomed) WheelZoomed(turned > 0 ? 1 : -1);
    event->accept();
}

void Desk::keyPressEvent(QKeyEvent* event) {
    const auto scroll = [](QScrollBar* bar, int by) { bar->setValue(bar->value() + by); };
    switch (event->key()) {
        case Qt::Key_Up:
            return scroll(verticalScrollBar(), -kStep);
        case Qt::Key_Down:
            return scroll(verticalScrollBar(), kStep);
        case Qt::Key_Left:
            return scroll(horizontalScrollBar(), -kStep);
        case Qt::Key_Right:
            return scroll(horizontalScrollBar(), kStep);
        default:
            event->ignore();
    }
}

void Desk::scrollContentsBy(int, int) {
    viewport()->update();
    EmitMoved();
}

}  // namespace report
