// A company of its own for one test: a temporary folder with a fresh tessik.dat as it comes with the program,
// opened. The file is made once per test program and copied for each test.
#pragma once

#include "platform/dao/database.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <initializer_list>
#include <memory>

namespace tests {

/// How the file is opened, for tests of what can go wrong in it: Database::Open's last two arguments. And
/// which file is copied, where it is not the fresh one.
struct OpenWith {
    QString vfs = {};
    std::function<void(sqlite3*)> prepare = {};
    QString file = {};
};

class Company {
  public:
    explicit Company(const OpenWith& with = {});
    /// Closes the database, the session's too if it was handed over.
    ~Company();
    Company(const Company&) = delete;
    Company& operator=(const Company&) = delete;

    /// Makes the database the session's own: `Db`, `AppFolder`, `DbFile`.
    void EnterSession();

    dao::Database& Db();
    /// Ends in a separator.
    QString Folder() const;
    QString File() const;

    /// Runs statements in this order; a failing one fails by its exception.
    void Run(std::initializer_list<QString> statements);
    void Run(const QString& statement) { Run({statement}); }
    QStringList Rows(const QString& select);
    /// The rows joined by blanks: one row of one field is just that field; "" if there is none.
    QString Answer(const QString& select) { return Rows(select).join(u' '); }

  private:
    QTemporaryDir folder_;
    std::unique_ptr<dao::Database> db_;
    bool inSession_ = false;
};

}  // namespace tests
