// The map of the world that stands on a zone's card, one half of it in sight. Decoration: where it is clicked
// is not asked, a click anywhere turns to the other half.
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
