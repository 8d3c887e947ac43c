#include "app/start_up.h"

#include "app/data_access.h"
#include "app/data_file.h"
#include "app/history_groups.h"
#include "app/product.h"
#include "app/session.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "schema/history.h"
#include "schema/names.h"
#include "schema/upgrade.h"

#include <new>

using namespace Qt::StringLiterals;

namespace {

struct Language {
    QStringView locale;
    std::int16_t flag;
};

constexpr Language kLanguages[] = {{u"zh_TW", 2}, {u"en_US", 0}, {u"zh_CN", 1}};

void FindLanguage() {
    LangFlag = 0;
    const QString locale = sys::seams().localeName();
    for (const Language& language : kLanguages)
        if (locale == language.locale) LangFlag = language.flag;
}

std::unique_ptr<dao::Database> Opened(const StartUpParts& parts,
                                      const std::function<void(sqlite3*)>& prepare) {
    return dao::Database::Open(DbFile, schema::kConnect.toString(), parts.vfs, prepare);
}

void OpenData(const StartUpParts& parts) {
    AppFolder = parts.folder;
    if (!AppFolder.endsWith(u'/')) AppFolder += u'/';
    DbFile = AppFolder + schema::kDatabaseFile.toString();
    // Opened once for the question and the work: deriving the key is the longest single piece of the start.
    bool older = false;
    Db = Opened(parts, [&](sqlite3* engine) {
        older = schema::UpgradeIsDue(engine);
        if (!older) schema::CompleteHistory(engine);  // a tool may have removed a trigger
    });
    if (!older) return;
    Db->Close();
    Db.reset();
    if (const QString why = KeepDataFile(); !why.isEmpty())
        throw RuntimeError(u"数据文件需要升级，但升级前无法在“%1”中保留它的副本！\r"_s.arg(AppFolder) + why);
    Db = Opened(parts, [](sqlite3* engine) { schema::Upgrade(engine); });
}

void Run(const StartUpParts& parts, std::unique_ptr<MForm>& frame) {
    NumFormat = u"#0.00"_s;
    EditInProgress = false;
    FindLanguage();
    MsgTitle = LangText(u"提示"_s);
    AskWhenBusy();
    NoteGroups();
    OpenData(parts);
    if (parts.opened) parts.opened();
    CanSeeFigures = true;
    frame = std::make_unique<MForm>(parts.registry);
    SetTheFrame(frame.get());
    frame->Load();
    frame->showMaximized();
    parts.showLogin(frame.get());
}

[[noreturn]] void Fail(const StartUpParts& parts, QWidget* over, const QString& words) {
    sys::Warn(u"程序启动错误!系统返回如下信息：\r\r"_s + words, product::kMaker);
    parts.showRestore(over);
    sys::EndProgram(1);
}

}  // namespace

std::unique_ptr<MForm> StartUp(const StartUpParts& parts) {
    std::unique_ptr<MForm> frame;
    try {
        Run(parts, frame);
    } catch (const PlatformError& error) {
        Fail(parts, frame.get(), error.Text());
    } catch (const std::bad_alloc&) {
        Fail(parts, frame.get(), u"内存溢出"_s);
    } catch (const std::exception& error) {
        Fail(parts, frame.get(), QString::fromUtf8(error.what()));
    }
    return frame;
}
