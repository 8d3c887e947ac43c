#include "tariffs/world_map.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize EastSize(224, 160);
constexpr QSize WestSize(229, 182);

}  // namespace

/// Qt links the resources of a static library only if they are initialised explicitly. Q_INIT_RESOURCE must
/// be used outside any namespace.
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

WorldMap::WorldMap()
    : ImgMap{new MapPicture(u"east"_s, EastSize, this), new MapPicture(u"west"_s, WestSize, this)} {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < ImgMap.size(); ++i) {
        ImgMap[i]->setObjectName(u"ImgMap(%1)"_s.arg(i));
        ImgMap[i]->Click = [this] { Turn(); };
        row->addWidget(ImgMap[i], 0, Qt::AlignLeft | Qt::AlignTop);
    }
    row->addStretch(1);
    ImgMap[0]->setAccessibleName(u"世界地图东部"_s);
    ImgMap[1]->setAccessibleName(u"世界地图西部"_s);
    ImgMap[1]->hide();
}

void WorldMap::Turn() {
    MapPicture* shown = ImgMap[0]->isHidden() ? ImgMap[1] : ImgMap[0];
    MapPicture* hidden = shown == ImgMap[0] ? ImgMap[1] : ImgMap[0];
    shown->setCursor(Qt::WaitCursor);
    shown->hide();
    hidden->show();
    shown->setCursor(Qt::PointingHandCursor);
}
