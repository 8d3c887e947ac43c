// Copies of a closed file, each with the moment of its making in its name, of which some are kept.
//
// The file must not be open in this process: reading it through a descriptor of one's own and closing that
// drops the locks that a database engine holds on it. Whether another process has it open is for the caller
// to find out.
//
// Always holds: a copy bears its name only when all of it is on the disk and has passed its check; its owner
// alone can read it; no copy goes before a newer one is there.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>

namespace sys {

/// Which copies belong together: those in one folder, of one file, with one label. For "tessik.dat" and the
/// label "x" a copy is "tessik.x.2024-03-15_10-00-00.dat".
struct DatedCopies {
    QString file;    ///< what is copied
    QString folder;  ///< where the copies lie; must exist
    QString label;   ///< distinguishes the copies of one purpose from those of another
    int most = 1;    ///< how many are kept, where `spare` says nothing else
    /// Looks at a copy before it gets its name; gives words when it is not as it should be.
    std::function<QString(const QString& path)> check = {};
    /// Which of these, by their dates, the oldest first, may go. The newest made is never among them.
    std::function<QStringList(const QStringList& copies)> spare = {};
};

/// Exactly one of the two is "".
struct DatedCopy {
    QString path;
    QString failure;  ///< the words of the system or of the check
};

/// Copies the file, with what a database engine left beside it when its program was killed, and removes the
/// copies that are spare. Where it fails the older copies are all there.
DatedCopy KeepDatedCopy(const DatedCopies& copies);

/// The paths of the copies that are there, by their dates, the oldest first.
QStringList DatedCopiesOf(const DatedCopies& copies);
/// When a copy was made, by its name. Invalid for any other file.
QDateTime DateOfCopy(const QString& path);

}  // namespace sys
