// Starts the program as its main() does, on the company in the folder of its argument. When the login accepts
// keys, it prints the form's name and exits.
#include "app/product.h"
#include "platform/controls/look.h"
#include "platform/controls/modal_form.h"
#include "platform/system/guard.h"
#include "program/wiring.h"

#include <QApplication>
#include <QWindow>

#include <cstdio>
#include <cstdlib>

namespace {

void SayWhenReady(controls::ModalForm& form) {
    const auto takesKeys = [&] {
        return form.isActiveWindow() && form.windowHandle()->isExposed() && form.focusWidget();
    };
    while (!takesKeys()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();  // processes the pending paint events
    std::puts(qPrintable(form.objectName()));
    std::fflush(stdout);
    std::_Exit(0);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    app.setApplicationName(product::kName);
    controls::DressApplication(app);
    app.setWindowIcon(controls::LookIcon(QStringLiteral("app")));
    controls::ModalForm::Driver() = SayWhenReady;
    std::unique_ptr<MForm> frame;
    sys::Guarded([&] { frame = StartUp(Wire(app.arguments().at(1))); });
    return 1;
}
