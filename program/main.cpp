#include "app/product.h"
#include "app/session.h"
#include "platform/controls/look.h"
#include "platform/system/guard.h"
#include "platform/system/stop_signals.h"
#include "program/wiring.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    app.setApplicationName(product::kName);
    controls::DressApplication(app);
    app.setWindowIcon(controls::LookIcon(QStringLiteral("app")));
    const sys::StopSignals stop;
    std::unique_ptr<MForm> frame;
    sys::Guarded([&] { frame = StartUp(Wire(QCoreApplication::applicationDirPath())); });
    const int status = app.exec();
    Db.reset();  // while everything that it hangs on is still there
    return status;
}
