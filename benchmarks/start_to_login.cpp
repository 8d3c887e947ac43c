// The program as its main() starts it, on the company in the folder of its argument, up to the moment in
// which the login takes keys. Then it says so and goes.
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
    QCoreApplication::processEvents();  // what is still to be painted
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
