// One half of the map of the world that stands on a zone's card. Decoration: where it is clicked is not
// asked.
#pragma once

#include "platform/system/guard.h"

#include <QLabel>

class MapPicture : public QLabel {
    Q_OBJECT
  public:
    /// The name of the picture ("map-east") and its size in logical pixels.
    MapPicture(const QString& picture, QSize size, QWidget* parent);

    sys::Event<> Click;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QIcon picture_;
};
