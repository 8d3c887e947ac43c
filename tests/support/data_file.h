// An encrypted file in a temporary folder, made with the engine's own calls, so that what the database layer
// is tested against is not made by the database layer.
#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace tests {

class DataFile {
  public:
    /// Makes the file with these statements; a table TE1 is always there. An empty password makes a plain
    /// one.
    explicit DataFile(const QStringList& statements, const QString& password = QStringLiteral("QXR7305"));

    QString Path() const { return path_; }
    QString Folder() const { return folder_.path(); }
    /// What the program hands to Open.
    QString Connect() const;

    /// Runs a statement of the engine over a connection of its own.
    void Run(const QString& statement) const;
    /// The rows of a statement of the engine, the values of a row joined by "|", null as "<null>".
    QStringList Rows(const QString& statement) const;
    /// Names of the files in the folder, sorted.
    QStringList Files() const;

  private:
    QTemporaryDir folder_;
    QString path_;
    QString password_;
};

}  // namespace tests
