#include "admin/daily_copies.h"

#include "platform/dao/file_check.h"
#include "platform/errors.h"
#include "platform/system/dated_copies.h"
#include "platform/system/files.h"
#include "platform/system/seams.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <set>
#include <utility>

using namespace Qt::StringLiterals;

namespace admin {
namespace {

constexpr std::size_t DaysKept = 14;
constexpr std::size_t MonthsKept = 12;
constexpr qint64 Reserve = 16 << 20;  // bytes that stay free on the disk

const QString Label = u"每日"_s;
const QString ListName = u"copies.json"_s;
const QString WorkName = u"working"_s;

// Keys of the list file.
const QString SecondKey = u"second"_s;
const QString CopiesKey = u"copies"_s;  // name: number of waybills
const QString WholeKey = u"whole"_s;    // the month of the last whole check

// What a copy has to agree in with the file. The first is the number of waybills.
const QStringList Figures = {u"select count(*) from B01"_s, u"select count(*) from TB1"_s,
                             u"select count(*) from M03"_s, u"select count(*) from TE1"_s,
                             u"select sum(YF) from TB1"_s};

/// An empty one if there is none or it cannot be read: then only the numbers of waybills are not known.
QJsonObject ReadList(const QString& folder) {
    QFile file(folder + ListName);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

/// Gives the system's words where it fails.
QString WriteList(const QString& folder, const QJsonObject& list) {
    return sys::WriteWhole(folder + ListName, QJsonDocument(list).toJson());
}

QString ThisMonth() {
    return sys::Today().toString(u"yyyy-MM"_s);
}

sys::DatedCopies CopiesIn(const QString& database, const QString& folder) {
    return {.file = database, .folder = QDir::cleanPath(folder), .label = Label, .spare = SpareCopies};
}

QString SpaceFault(const QString& database, const QString& folder) {
    const qint64 free = sys::seams().freeBytes(folder);
    if (free < 0 || free >= QFileInfo(database).size() + Reserve) return {};
    return u"磁盘空间不足"_s;
}

}  // namespace

QStringList SpareCopies(const QStringList& copies) {
    std::set<QDate> days;
    std::set<std::pair<int, int>> months;
    QStringList spare;
    for (auto path = copies.crbegin(); path != copies.crend(); ++path) {
        const QDate day = sys::DateOfCopy(*path).date();
        const bool ofDay = days.size() < DaysKept && days.insert(day).second;
        const bool ofMonth = months.size() < MonthsKept && months.insert({day.year(), day.month()}).second;
        if (!ofDay && !ofMonth) spare += *path;
    }
    return spare;
}

DailyCopies::DailyCopies(const QString& database, const QString& connect)
    : database_(database), connect_(connect), folder_(QFileInfo(database).absolutePath() + u"/backup/"_s) {
}

/// Gives the words of whatever failed.
QString DailyCopies::Copy(const QString& folder, bool whole, const QStringList& figures) const {
    if (const QString words = SpaceFault(database_, folder); !words.isEmpty()) return words;
    sys::DatedCopies copies = CopiesIn(database_, folder);
    copies.check = [&](const QString& path) -> QString {
        try {
            const auto depth = whole ? dao::Depth::Whole : dao::Depth::Quick;
            if (dao::CheckFile(path, connect_, depth, Figures) == figures) return {};
        } catch (const PlatformError& error) {
            return u"副本已损坏："_s + error.Text();
        }
        return u"副本与数据文件不一致"_s;
    };
    const sys::DatedCopy made = sys::KeepDatedCopy(copies);
    if (made.failure.isEmpty() && folder == folder_) Record(made.path, whole, figures.front());
    return made.failure;
}

QStringList DailyCopies::Make() const {
    QStringList faults;
    QStringList figures;
    try {
        figures = dao::ReadFile(database_, connect_, Figures);
    } catch (const PlatformError& error) {
        return {u"数据文件："_s + error.Text()};
    }
    const bool whole = !HadWholeCheck();
    QDir().mkpath(folder_);
    sys::KeepToOwner(folder_);
    if (const QString words = Copy(folder_, whole, figures); !words.isEmpty())
        faults += QDir::cleanPath(folder_) + u"："_s + words;
    const QString second = SecondFolder();
    if (second.isEmpty()) return faults;
    const QString words = QFileInfo(second).isDir() ? Copy(second, false, figures) : u"文件夹不存在"_s;
    if (!words.isEmpty()) faults += u"第二备份位置 "_s + second + u"："_s + words;
    return faults;
}

/// Whether a copy of this month has been checked whole.
bool DailyCopies::HadWholeCheck() const {
    return ReadList(folder_)[WholeKey].toString() == ThisMonth();
}

/// Adds the copy to the list file, from which go those that are gone. A list that cannot be written is no
/// fault of the copy.
void DailyCopies::Record(const QString& path, bool whole, const QString& waybills) const {
    QJsonObject list = ReadList(folder_);
    const QJsonObject before = list[CopiesKey].toObject();
    QJsonObject after;
    for (const QString& there : sys::DatedCopiesOf(CopiesIn(database_, folder_))) {
        const QString name = QFileInfo(there).fileName();
        if (before.contains(name)) after[name] = before[name];
    }
    after[QFileInfo(path).fileName()] = waybills;
    list[CopiesKey] = after;
    if (whole) list[WholeKey] = ThisMonth();
    WriteList(folder_, list);
}

std::vector<DailyCopy> DailyCopies::List() const {
    const QJsonObject known = ReadList(folder_)[CopiesKey].toObject();
    std::vector<DailyCopy> copies;
    for (const QString& path : sys::DatedCopiesOf(CopiesIn(database_, folder_))) {
        const QFileInfo file(path);
        const QString waybills = known[file.fileName()].toString();
        copies.push_back({.path = path,
                          .made = sys::DateOfCopy(path),
                          .bytes = file.size(),
                          .waybills = waybills.isEmpty() ? -1 : waybills.toLongLong()});
    }
    std::ranges::reverse(copies);
    return copies;
}

QString DailyCopies::SecondFolder() const {
    return ReadList(folder_)[SecondKey].toString();
}

QString DailyCopies::SetSecondFolder(const QString& folder) const {
    QDir().mkpath(folder_);
    QJsonObject list = ReadList(folder_);
    list[SecondKey] = folder;
    return WriteList(folder_, list);
}

void DailyCopies::Work() const {
    QDir().mkpath(folder_);
    sys::CreateForOwner(folder_ + WorkName);
}

void DailyCopies::Rest() const {
    QFile::remove(folder_ + WorkName);
}

bool DailyCopies::WasLeftAtWork() const {
    return QFile::exists(folder_ + WorkName);
}

}  // namespace admin
