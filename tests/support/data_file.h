// An encrypted file in a temporary folder, made with the engine's own calls, so that what the database layer
// is tested against is not made by the database layer; and a look into any data file past that layer.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

struct sqlite3;

namespace tests {

/// One connection of the engine, closed at the end of its scope. An empty password reads a plain file.
class Connection {
  public:
    explicit Connection(const QString& path, const QString& password = QStringLiteral("QXR7305"));
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Lets go of the file.
    void Close();
    /// Whether the engine takes the statement.
    bool Takes(const QString& statement);
    /// Runs a statement; one that fails fails the test.
    void Run(const QString& statement);
    /// The rows of a statement, the values of a row joined by "|", null as "<null>".
    QStringList Rows(const QString& statement);

  private:
    sqlite3* engine_ = nullptr;
};

class DataFile {
  public:
    /// Makes the file with these statements; a table TE1 is always there.
    explicit DataFile(const QStringList& statements);

    QString Path() const { return path_; }
    QString Folder() const { return folder_.path(); }
    /// What the program hands to Open.
    QString Connect() const { return QStringLiteral(";PWD=QXR7305"); }

    /// Each over a connection of its own.
    void Run(const QString& statement) const;
    QStringList Rows(const QString& statement) const;
    /// Names of the files in the folder, sorted.
    QStringList Files() const;

  private:
    QTemporaryDir folder_;
    QString path_;
};

}  // namespace tests
