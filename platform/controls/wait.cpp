#include "platform/controls/wait.h"

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>

namespace controls {
namespace {

/// Takes all input while it is the application's event filter.
class InputTaker : public QObject {
  public:
    InputTaker() { qApp->installEventFilter(this); }
    bool Escaped() const { return escaped_; }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
            case QEvent::ShortcutOverride:
                event->accept();  // else the key would run a command
                return true;
            case QEvent::KeyPress:
                escaped_ = escaped_ || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
                return true;
            case QEvent::Close:
                event->ignore();
                return true;
            case QEvent::KeyRelease:
            case QEvent::Shortcut:
            case QEvent::InputMethod:
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::Wheel:
            case QEvent::TouchBegin:
            case QEvent::TouchUpdate:
            case QEvent::TouchEnd:
            case QEvent::ContextMenu:
            case QEvent::DragEnter:
            case QEvent::Drop:
                return true;
            default:
                return false;
        }
    }

  private:
    bool escaped_ = false;
};

}  // namespace

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

bool EscWasPressed() {
    const InputTaker taker;
    QApplication::processEvents();
    return taker.Escaped();
}

}  // namespace controls
