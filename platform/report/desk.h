// The pages of a document under each other, as the preview shows them.
//
// Always holds: only pages that are seen are drawn; the current page is the one that takes up the middle of
// the view.
#pragma once

#include "platform/report/document.h"
#include "platform/report/search.h"

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

#include <functional>
#include <memory>
#include <vector>

namespace report {

class Desk : public QAbstractScrollArea {
    Q_OBJECT
  public:
    enum class Fit { None, Width, Page };
    static constexpr double kLeastZoom = 0.5, kMostZoom = 4;

    explicit Desk(QWidget* parent = nullptr);

    /// The page that was shown stays the current one, as far as there is one.
    void SetDocument(std::shared_ptr<const Document> document);
    int Pages() const { return document_ ? document_->Pages() : 0; }
    /// From 0.
    int CurrentPage() const;
    void GoToPage(int page);

    double Zoom() const { return zoom_; }
    /// Between the least and the most; the middle of the view stays where it is.
    void SetZoom(double zoom);
    /// Follows the size of the view until SetZoom is called.
    void SetFit(Fit fit);
    Fit CurrentFit() const { return fit_; }

    /// The places that are marked; the current one is drawn stronger and scrolled to.
    void SetHits(std::vector<Hit> hits, int current);

    std::function<void()> Moved;           ///< another page is the current one, or another zoom
    std::function<void(int)> WheelZoomed;  ///< Ctrl and the wheel: up is 1, down -1

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    double Dots() const;
    QSize PageSize() const;
    QRect PlaceOf(int page) const;
    void ApplyFit();
    void ApplyZoom(double zoom);
    void UpdateBars();
    void DrawPage(QPainter& painter, int page, const QRect& place);
    void DrawHits(QPainter& painter, int page, const QRect& place);
    void EmitMoved();

    std::shared_ptr<const Document> document_;
    double zoom_ = 1;
    Fit fit_ = Fit::None;
    std::vector<Hit> hits_;
    int currentHit_ = -1;
    int emittedPage_ = -1;
    QCache<int, QPixmap> drawn_;
};

}  // namespace report
