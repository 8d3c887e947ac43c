// Copies of a closed file, each with the moment of its making in its name, of which the last few are kept.
//
// The file must not be open in this process: reading it through a descriptor of one's own and closing that
// drops the locks that a database engine holds on it. Whether another process has it open is for the caller
// to find out.
//
// Always holds: a copy bears its name only when all of it is on the disk; its owner alone can read it; no
// copy goes before a newer one is there.
#pragma once

#include <QString>
#include <QStringList>

namespace sys {

/// Which copies belong together: those in one folder, of one file, with one label. For "tessik.dat" and the
/// label "x" a copy is "tessik.x.2024-03-15_10-00-00.dat".
struct DatedCopies {
    QString file;    ///< what is copied
    QString folder;  ///< where the copies lie; must exist
    QString label;   ///< tells the copies of one purpose from those of another
    int most = 1;    ///< how many are kept
};

/// Copies the file, with what a database engine left beside it when its program was killed, and removes the
/// oldest copies above the number. Gives the path of the copy, "" if it could not be made; the older copies
/// are then all there.
QString KeepDatedCopy(const DatedCopies& copies);

/// The paths of the copies that are there, by their dates, the oldest first.
QStringList DatedCopiesOf(const DatedCopies& copies);

}  // namespace sys
