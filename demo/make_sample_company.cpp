// make-sample-company FOLDER: creates the sample company in a folder; an existing one is not changed. The
// exit code is 0 if the company exists afterwards, 1 if it could not be created, 2 for wrong arguments.
#include "demo/platform_messages.h"
#include "demo/sample_clerk.h"
#include "platform/controls/look.h"
#include "schema/names.h"

#include <QApplication>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    // The forms are not meant to be seen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    demo::SilencePlatform();
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    controls::DressApplication(app);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "用法：make-sample-company 文件夹\n");
        return 2;
    }
    const QString file = arguments[1] + u'/' + schema::kDatabaseFile.toString();
    if (QFile::exists(file)) {
        std::printf("%s：已存在，未改动\n", qUtf8Printable(file));
        return 0;
    }
    try {
        sample::MakeSampleCompany(arguments[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "生成样例公司失败：%s\n", error.what());
        return 1;
    }
    std::printf("%s：已生成样例公司\n", qUtf8Printable(file));
    return 0;
}
