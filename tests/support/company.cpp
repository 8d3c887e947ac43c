#include "tests/support/company.h"

#include "app/session.h"
#include "demo/rows.h"
#include "schema/data_files.h"
#include "schema/names.h"

#include <QFile>

#include <stdexcept>

namespace tests {
namespace {

/// The file that all copies are taken from, whole and closed.
const QString& FreshFile() {
    static const QTemporaryDir folder;
    static const QString path = [] {
        const QString made = folder.filePath(schema::kDatabaseFile.toString());
        schema::MakeDatabase(made);
        return made;
    }();
    return path;
}

}  // namespace

Company::Company(const OpenWith& with) {
    if (!QFile::copy(with.file.isEmpty() ? FreshFile() : with.file, File()))
        throw std::runtime_error("no space for the company's file");
    db_ = dao::Database::Open(File(), schema::kConnect.toString(), with.vfs, with.prepare);
}

Company::~Company() {
    if (!inSession_) return;
    ::Db.reset();
    ::AppFolder.clear();
    ::DbFile.clear();
}

void Company::EnterSession() {
    ::Db = std::move(db_);
    ::AppFolder = Folder();
    ::DbFile = File();
    inSession_ = true;
}

dao::Database& Company::Db() {
    if (inSession_) return *::Db;
    if (!db_) throw std::logic_error("the company's database is closed");
    return *db_;
}

QString Company::Folder() const {
    return folder_.path() + u'/';
}

QString Company::File() const {
    return folder_.filePath(schema::kDatabaseFile.toString());
}

void Company::Run(std::initializer_list<QString> statements) {
    for (const QString& statement : statements) Db().Execute(statement);
}

QStringList Company::Rows(const QString& select) {
    return demo::Rows(Db(), select);
}

}  // namespace tests
