#include "platform/system/dated_copies.h"

#include "platform/system/files.h"
#include "platform/system/seams.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

constexpr QStringView kMoment = u"yyyy-MM-dd_HH-mm-ss";
const QString kDate = u"\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d(_\\d+)?"_s;
constexpr QLatin1StringView kUnchecked = ".unchecked"_L1;

// Without these the engine would read the copy as it was before the last commands. The third file that it
// keeps holds nothing of its own.
constexpr QLatin1StringView kPartsBeside[] = {"-wal"_L1, "-journal"_L1};

QString Beginning(const DatedCopies& copies) {
    return QFileInfo(copies.file).completeBaseName() + u'.' + copies.label + u'.';
}

QString Ending(const DatedCopies& copies) {
    const QString suffix = QFileInfo(copies.file).suffix();
    return suffix.isEmpty() ? QString() : u'.' + suffix;
}

/// A name that is free: two copies in one second differ by a number, which sorts behind.
QString NewPath(const DatedCopies& copies) {
    const QString dated = copies.folder + u'/' + Beginning(copies) + Now().toString(kMoment.toString());
    QString path = dated + Ending(copies);
    for (int number = 2; IsThere(path); ++number)
        path = dated + u'_' + QString::number(number) + Ending(copies);
    return path;
}

void Remove(const QString& copy) {
    QFile::remove(copy);
    QFile::remove(copy + kUnchecked);
    for (const QLatin1StringView part : kPartsBeside) QFile::remove(copy + part);
}

/// The side files are copied first: a copy that has its name is whole.
QString CopyAll(const DatedCopies& copies, const QString& copy) {
    for (const QLatin1StringView part : kPartsBeside) {
        if (!QFileInfo::exists(copies.file + part)) continue;
        const QString words = seams().copyFile(copies.file + part, copy + part);
        if (!words.isEmpty()) return words;
    }
    if (!copies.check) return seams().copyFile(copies.file, copy);
    QString words = seams().copyFile(copies.file, copy + kUnchecked);
    if (words.isEmpty()) words = copies.check(copy + kUnchecked);
    if (words.isEmpty()) words = ReplaceFile(copy + kUnchecked, copy);
    return words;
}

/// The names in the folder that are a copy's, or begin so and end in one of these.
QStringList Named(const DatedCopies& copies, const QString& endings = {}) {
    // Only what was named here: a file that the operator has put beside them is his.
    const QRegularExpression named(
        QRegularExpression::anchoredPattern(QRegularExpression::escape(Beginning(copies)) + kDate +
                                            QRegularExpression::escape(Ending(copies)) + endings));
    const QDir folder(copies.folder);
    QStringList found;
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name))
        if (named.match(name).hasMatch()) found += folder.filePath(name);
    return found;
}

/// What a process left that was killed at it.
void RemoveUnfinished(const DatedCopies& copies) {
    const QString endings = u"((-wal|-journal)?%1|%2(%1)?)"_s.arg(QRegularExpression::escape(kBegun),
                                                                  QRegularExpression::escape(kUnchecked));
    for (const QString& path : Named(copies, endings)) QFile::remove(path);
}

}  // namespace

DatedCopy KeepDatedCopy(const DatedCopies& copies) {
    RemoveUnfinished(copies);
    const QString copy = NewPath(copies);
    const QString failure = CopyAll(copies, copy);
    if (!failure.isEmpty()) {
        Remove(copy);
        return {.path = {}, .failure = failure};
    }
    QStringList all = DatedCopiesOf(copies);
    QStringList spare;
    if (copies.spare) {
        spare = copies.spare(all);
        spare.removeOne(copy);  // the newest one, even where the clock has gone back
    } else {
        all.removeOne(copy);
        spare = all.mid(0, qMax(qsizetype{0}, all.size() + 1 - copies.most));
    }
    for (const QString& each : spare) Remove(each);
    return {.path = copy, .failure = {}};
}

QStringList DatedCopiesOf(const DatedCopies& copies) {
    return Named(copies);
}

QDateTime DateOfCopy(const QString& path) {
    static const QRegularExpression date(
        u"\\.(\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d)(_\\d+)?(\\.[^.]*)?$"_s);
    return QDateTime::fromString(date.match(QFileInfo(path).fileName()).captured(1), kMoment.toString());
}

}  // namespace sys
