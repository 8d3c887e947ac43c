#include "tariffs/map_picture.h"

#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

/// A library's pictures are carried into the program only when they are asked for; outside any namespace.
static void InitMaps() {
    Q_INIT_RESOURCE(maps);
}

MapPicture::MapPicture(const QString& picture, QSize size, QWidget* parent) : QLabel(parent) {
    InitMaps();
    picture_ = QIcon(u":/maps/"_s + picture + u".svg"_s);
    setFixedSize(size);
    setCursor(Qt::PointingHandCursor);
}

void MapPicture::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton) Click();
}

void MapPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_.pixmap(size(), devicePixelRatioF()));
}
