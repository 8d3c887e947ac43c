// The copies that the program makes by itself: one of each day, in the folder "backup" beside the data file
// and, where one is chosen, in a second folder.
//
// Nothing here shows anything. The data file must be closed, here and everywhere else, while copies are made.
//
// Always holds: a copy has been opened with its password, checked and found to hold what the data file holds
// before it gets its name and before an older one may go.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

namespace admin {

struct DailyCopy {
    QString path;
    QDateTime made;
    qint64 bytes = 0;
    qint64 waybills = -1;  ///< -1: the list file does not know
};

class DailyCopies {
  public:
    /// The data file, and what it is opened with (";PWD=...").
    DailyCopies(const QString& database, const QString& connect);

    /// Makes the copy of today, in the place of an earlier one of today, and the same in the second folder.
    /// Gives a line for each thing that went wrong.
    QStringList Make() const;

    /// The copies in the first folder, the newest first, from the list file: none of them is opened.
    std::vector<DailyCopy> List() const;

    /// "" if none is chosen.
    QString SecondFolder() const;
    /// "" chooses none. Gives the system's words where that cannot be kept.
    QString SetSecondFolder(const QString& folder) const;

    /// From a login on until Rest the file is being worked with. A program that did not end in order leaves
    /// it so.
    void Work() const;
    void Rest() const;
    bool WasLeftAtWork() const;

  private:
    QString Copy(const QString& folder, bool whole, const QStringList& figures) const;
    void Record(const QString& path, bool whole, const QString& waybills) const;
    bool HadWholeCheck() const;

    QString database_;
    QString connect_;
    QString folder_;  ///< ends in a separator
};

/// Which of these copies, the oldest first, may go: kept are the last of each of fourteen days, and the last
/// of each of twelve months.
QStringList SpareCopies(const QStringList& copies);

}  // namespace admin
