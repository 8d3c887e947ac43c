// demo FOLDER [SUFFIX [WIDTHxHEIGHT [PAUSE]]]: plays a day's work of the sample company in FOLDER/sample on
// the real program and leaves in FOLDER the copy that was worked on, pictures of every form (their names end
// in SUFFIX), a page that shows them in order (index + SUFFIX + .html) and a summary. Ends with 0 when
// everything was as it has to be, 1 when something was not, 2 when it was called wrongly.
#include "app/product.h"
#include "app/session.h"
#include "demo/day.h"
#include "demo/day_entries.h"
#include "demo/index_page.h"
#include "demo/platform_messages.h"
#include "demo/summary.h"
#include "platform/controls/look.h"
#include "platform/errors.h"
#include "platform/system/guard.h"
#include "platform/system/seams.h"
#include "program/wiring.h"
#include "schema/data_files.h"
#include "schema/names.h"

#include <QApplication>
#include <QDir>
#include <QSaveFile>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

struct Arguments {
    QString folder;
    QString suffix;
    QSize size{1366, 768};
    int pause = 0;
};

std::optional<Arguments> Read(const QStringList& given) {
    if (given.size() < 2 || given.size() > 5) return std::nullopt;
    Arguments arguments{.folder = given[1], .suffix = given.value(2)};
    if (given.size() > 3) {
        const QStringList sides = given[3].split(u'x');
        arguments.size = QSize(sides[0].toInt(), sides.value(1).toInt());
    }
    arguments.pause = given.value(4).toInt();
    if (!arguments.size.isValid() || arguments.size.isEmpty() || arguments.pause < 0) return std::nullopt;
    return arguments;
}

QString FileOf(const QString& company) {
    return company + u'/' + schema::kDatabaseFile.toString();
}

/// A copy of the sample company; one that is there already is not touched.
QString CopyCompany(const QString& folder) {
    const QString company = folder + u"/company"_s;
    if (!QDir().mkpath(company)) throw RuntimeError(u"无法建立文件夹 "_s + company);
    if (QFile::exists(FileOf(company)))
        throw RuntimeError(u"文件夹“%1”中已有数据文件，演示需要一个新的文件夹！"_s.arg(company));
    const QString sample = FileOf(folder + u"/sample"_s);
    if (!QFile::copy(sample, FileOf(company))) throw RuntimeError(u"无法复制 "_s + sample);
    schema::MakeDataFiles(company);  // the others
    return company;
}

void Write(const QString& path, const QString& text) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit())
        throw RuntimeError(u"无法写入 "_s + path);
}

/// The pictures are to come out the same every time.
void Steady(QApplication& app) {
    app.setCursorFlashTime(0);
    sys::seams().now = [] { return QDateTime(demo::kToday, QTime(9, 15)); };
    sys::seams().localeName = [] { return u"zh_CN"_s; };
}

/// The program on the company's folder, from its start to the closing of the main window. Where it ends by
/// itself, as after a backup, it is started again.
void PlayOn(const QString& company, demo::Screen& screen, const Arguments& arguments) {
    demo::Operator op(screen, arguments.pause);
    sys::seams().leave = [&op](int status) {
        op.NoteEnd();
        // Leaves the loops of the windows that are open as well, without asking them to close.
        QMetaObject::invokeMethod(
            qApp, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
        throw sys::ProgramEnded{status};
    };
    demo::PlayDay(op, QDir(arguments.folder).absolutePath());
    op.Start();
    StartUpParts parts = Wire(company);
    const auto login = parts.showLogin;
    parts.showLogin = [&](QWidget* frame) {
        screen.Fill(*frame);
        login(frame);
    };
    do {
        sys::ClearEnd();
        std::unique_ptr<MForm> frame;
        sys::Guarded([&] { frame = StartUp(parts); });
        QApplication::exec();
    } while (sys::HasEnded());
    if (!op.Done()) op.Fail(u"主窗口已关闭，还有步骤未完成"_s);
}

int Play(QApplication& app, const Arguments& arguments) {
    const QString company = CopyCompany(arguments.folder);
    Steady(app);
    demo::Screen screen(arguments.size, arguments.folder, arguments.suffix);
    PlayOn(company, screen, arguments);
    const QString summary = demo::Summary(FileOf(company), screen.Pictures());
    Write(arguments.folder + u"/summary.txt"_s, summary);
    const QString page = arguments.folder + u"/index"_s + arguments.suffix + u".html"_s;
    Write(page, demo::IndexPage(screen.Pictures(), summary));
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    demo::SilencePlatform();
    QApplication app(argc, argv);
    app.setApplicationName(product::kName);
    controls::DressApplication(app);
    app.setWindowIcon(controls::LookIcon(u"app"_s));
    const auto arguments = Read(QApplication::arguments());
    if (!arguments) {
        std::fprintf(stderr, "用法：demo 文件夹 [后缀 [宽x高 [停顿毫秒]]]\n");
        return 2;
    }
    try {
        return Play(app, *arguments);
    } catch (const PlatformError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
