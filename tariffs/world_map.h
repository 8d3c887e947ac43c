// The world map on a zone's card; one half is visible. Decoration only: a click at any position shows the
// other half.
#pragma once

#include "platform/system/guard.h"

#include <QIcon>
#include <QLabel>

#include <array>

class MapPicture : public QLabel {
    Q_OBJECT
  public:
    /// The name of the picture ("east") and its size in logical pixels.
    MapPicture(const QString& picture, QSize size, QWidget* parent);

    sys::Event<> Click;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QIcon picture_;
};

class WorldMap : public QWidget {
    Q_OBJECT
  public:
    WorldMap();

  private:
    void Turn();

    std::array<MapPicture*, 2> ImgMap{};  ///< east, west
};
