#include "platform/controls/paint.h"

namespace controls::paint {

void Hairline(QPainter& painter, const QColor& color, const QLineF& line) {
    QPen pen(color, 1);
    pen.setCosmetic(true);
    painter.setPen(pen);
    painter.drawLine(line);
}

}  // namespace controls::paint
