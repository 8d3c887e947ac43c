// The program at one piece of work on the data file as a whole, to be killed at it.
//
//   file-work FOLDER backup|restore|reset|end FILE
//
// FILE is what the file dialog answers. Says "ready" right before the key. Ends with status 3 where it
// cannot begin.
#include "app/main_window.h"
#include "platform/controls/look.h"
#include "platform/system/seams.h"
#include "tests/faults/commands.h"

#include <QApplication>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;
using tests::AltKey;

namespace {

void InDialog(const QString& form, char16_t key, const std::function<void(QWidget&)>& drive) {
    tests::ModalScript modals;
    modals.Next(form, drive);
    AltKey(u's');
    AltKey(key);
}

void Ready() {
    std::printf("ready\n");
    std::fflush(stdout);
}

void Work(MForm& frame, const QString& what) {
    if (what == u"backup") {
        AltKey(u's');
        Ready();
        AltKey(u'4');
    } else if (what == u"restore") {
        InDialog(u"S32"_s, u'5', [](QWidget& form) {
            Ready();
            tests::Find<controls::Button>(form, u"Command1"_s).click();
        });
    } else if (what == u"reset") {
        InDialog(u"S03"_s, u'3', [](QWidget& form) {
            for (int i = 0; i < 4; ++i)
                tests::Find<controls::CheckBox>(form, u"Chk(%1)"_s.arg(i)).SetValue(1);
            Ready();
            tests::Find<controls::Button>(form, u"Cmd(0)"_s).click();
        });
    } else {
        Ready();
        frame.close();
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    controls::DressApplication(app);
    const QStringList arguments = QApplication::arguments();
    sys::seams().showBox = [](const sys::BoxRequest& request) {
        return request.buttons == sys::BoxButtons::YesNo ? sys::BoxAnswer::Yes : sys::BoxAnswer::Ok;
    };
    sys::seams().askFile = [&](const sys::FileRequest&) { return arguments.value(3); };
    const auto frame = tests::StartAndLogIn(arguments.value(1));
    if (!frame) ::_exit(3);
    frame->setUpdatesEnabled(false);  // nobody looks
    Work(*frame, arguments.value(2));
    ::_exit(0);
}
