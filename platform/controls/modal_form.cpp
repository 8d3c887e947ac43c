#include "platform/controls/modal_form.h"

#include "platform/controls/input_order.h"
#include "platform/controls/placing.h"
#include "platform/controls/wait.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>

namespace controls {

ModalForm::ModalForm(const QString& name, const QString& caption, QWidget* parent) : QDialog(parent) {
    setObjectName(name);
    setWindowTitle(caption);
    setModal(true);
}

std::function<void(ModalForm&)>& ModalForm::Driver() {
    static std::function<void(ModalForm&)> driver;
    return driver;
}

void ModalForm::ShowModal() {
    gone_ = false;
    Load();
    sys::CloseCommand();
    sys::ThrowIfEnded();
    if (gone_) return;
    const OrdinaryPointer pointer;
    const InputOrder::OwnLoop loop(false);
    const QPointer<QWidget> beneath =
        QApplication::activeWindow() ? QApplication::activeWindow() : parentWidget();
    if (Driver())
        QMetaObject::invokeMethod(
            this,
            [this] {
                const QPointer<ModalForm> alive(this);
                sys::Guarded([this] { Driver()(*this); });
                if (alive && !gone_) Unload();
            },
            Qt::QueuedConnection);
    CentreOverParent(*this);
    exec();
    if (beneath && beneath->isVisible()) beneath->window()->activateWindow();
    sys::ThrowIfEnded();
}

void ModalForm::Unload() {
    gone_ = true;
    done(0);
}

void ModalForm::SetCloseBox(bool shown) {
    closable_ = shown;
    setWindowFlag(Qt::CustomizeWindowHint, !shown);
    setWindowFlag(Qt::WindowTitleHint, true);
    setWindowFlag(Qt::WindowCloseButtonHint, shown);
    setWindowFlag(Qt::WindowSystemMenuHint, shown);
}

void ModalForm::keyPressEvent(QKeyEvent* event) {
    // Enter never reaches a default button here; a focused button takes it itself.
    event->accept();
    if (event->key() == Qt::Key_Escape && closedByEsc_) sys::Guarded([this] { Unload(); });
}

void ModalForm::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (closable_) sys::Guarded([this] { Unload(); });
}

void ModalForm::reject() {
    if (closedByEsc_) Unload();
}

}  // namespace controls
