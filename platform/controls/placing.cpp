#include "platform/controls/placing.h"

#include <QScreen>
#include <QStyle>

namespace controls {

void CentreOverParent(QDialog& dialog) {
    const QWidget* over = dialog.parentWidget() ? dialog.parentWidget()->window() : nullptr;
    if (!over || !over->isMaximized()) return;
    dialog.adjustSize();
    // The dialog's own frame is known after its showing only.
    const int title = dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    QRect place(0, 0, dialog.width(), dialog.height() + title);
    place.moveCenter(over->screen()->availableGeometry().center());
    dialog.move(place.topLeft());
}

}  // namespace controls
