#include "platform/controls/look.h"
#include "platform/controls/modal_form.h"
#include "platform/system/seams.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace {

/// A message box, a dialog or a modal form that no script expects would wait for an operator for ever.
void RefuseWindows() {
    auto& seams = sys::seams();
    seams.showBox = [](const sys::BoxRequest& request) {
        ADD_FAILURE() << "unexpected box: " << request.text.toStdString() << " "
                      << request.detail.toStdString();
        return request.buttons == sys::BoxButtons::Ok ? sys::BoxAnswer::Ok : sys::BoxAnswer::No;
    };
    seams.askFile = [](const sys::FileRequest& request) {
        ADD_FAILURE() << "unexpected file dialog: " << request.title.toStdString();
        return QString();
    };
    seams.openAddress = [](const QString& address) {
        ADD_FAILURE() << "unexpected address: " << address.toStdString();
    };
    controls::ModalForm::Driver() = [](controls::ModalForm& form) {
        ADD_FAILURE() << "unexpected modal form: " << form.objectName().toStdString();
    };
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    controls::DressApplication(app);
    RefuseWindows();
    return RUN_ALL_TESTS();
}
