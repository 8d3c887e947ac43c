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
    const QString dated = copies.folder + u'/' + Beginning(copies) + Now().toString(u"yyyy-MM-dd_HH-mm-ss"_s);
    QString path = dated + Ending(copies);
    for (int number = 2; IsThere(path); ++number)
        path = dated + u'_' + QString::number(number) + Ending(copies);
    return path;
}

void Remove(const QString& copy) {
    QFile::remove(copy);
    for (const QLatin1StringView part : kPartsBeside) QFile::remove(copy + part);
}

/// What stands beside the file comes first: a copy that has its name is whole.
bool CopyAll(const QString& file, const QString& copy) {
    for (const QLatin1StringView part : kPartsBeside)
        if (QFileInfo::exists(file + part) && !seams().copyFile(file + part, copy + part)) return false;
    return seams().copyFile(file, copy);
}

}  // namespace

QString KeepDatedCopy(const DatedCopies& copies) {
    const QString copy = NewPath(copies);
    if (!CopyAll(copies.file, copy)) {
        Remove(copy);
        return {};
    }
    QStringList others = DatedCopiesOf(copies);
    others.removeOne(copy);  // the newest one, even where the clock has gone back
    while (others.size() >= copies.most && !others.isEmpty()) Remove(others.takeFirst());
    return copy;
}

QStringList DatedCopiesOf(const DatedCopies& copies) {
    // Only what was named here: a file that the operator has put beside them is his.
    const QRegularExpression named(QRegularExpression::anchoredPattern(
        QRegularExpression::escape(Beginning(copies)) +
        u"\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d(_\\d+)?"_s + QRegularExpression::escape(Ending(copies))));
    const QDir folder(copies.folder);
    QStringList found;
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name))
        if (named.match(name).hasMatch()) found += folder.filePath(name);
    return found;
}

}  // namespace sys
