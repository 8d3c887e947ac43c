#include "platform/controls/wait.h"

#include <QApplication>
#include <QEventLoop>

namespace controls {

WaitPointer::WaitPointer() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitPointer::~WaitPointer() {
    QApplication::restoreOverrideCursor();
}

OrdinaryPointer::OrdinaryPointer() : set_(QApplication::overrideCursor() != nullptr) {
    if (set_) QApplication::setOverrideCursor(Qt::ArrowCursor);
}

OrdinaryPointer::~OrdinaryPointer() {
    if (set_) QApplication::restoreOverrideCursor();
}

void ShowProgress() {
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace controls
