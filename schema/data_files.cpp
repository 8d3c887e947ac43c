#include "schema/data_files.h"

#include "platform/dao/engine.h"
#include "platform/errors.h"
#include "platform/system/files.h"
#include "schema/definition.h"
#include "schema/names.h"
#include "schema_texts.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLockFile>
#include <QPainter>
#include <QSvgRenderer>

#include <vector>

using namespace Qt::StringLiterals;

/// The layouts lie in a static library, so they have to be requested by name, or the linker leaves them out.
/// Outside of any namespace, as the toolkit's macro asks.
static void InitLayouts() {
    Q_INIT_RESOURCE(layouts);
}

namespace schema {
namespace {

constexpr QStringView kLayouts = u":/layouts/";

constexpr QSize kPictureSize(1920, 1080);  // pixels

/// What a run that was killed may have left, too.
void RemoveBegun(const QString& temporary) {
    QFile::remove(temporary);
    sys::RemoveEngineFiles(temporary);
}

void Rename(const QString& from, const QString& to) {
    const QString failure = sys::ReplaceFile(from, to);
    if (!failure.isEmpty()) throw RuntimeError(u"无法把临时文件改名为“%1”：%2"_s.arg(to, failure));
}

void Write(const QString& path, const QByteArray& bytes) {
    const QString failure = sys::WriteWhole(path, bytes);
    if (!failure.isEmpty()) throw RuntimeError(u"无法写入“%1”：%2"_s.arg(path, failure));
}

void WriteDatabase(const QString& path, const QString& company) {
    const dao::Engine engine = dao::OpenEngine(path, kPassword);
    sqlite3* db = engine.get();
    dao::Run(db, "pragma journal_mode = delete");
    dao::Run(db, "pragma synchronous = full");
    CreateTables(db);
    InsertFirstRows(db);
    if (!company.isEmpty()) dao::RunWithText(db, "update CompanyInfo set F1 = ?", company);
}

void WriteExportFile(const QString& path) {
    const dao::Engine engine = dao::OpenEngine(path, {});
    QByteArrayList columns;
    for (int field = 1; field <= 30; ++field) columns += "F" + QByteArray::number(field) + " TEXT";
    dao::Run(engine.get(), "pragma synchronous = full");
    dao::Run(engine.get(), "create table mysheet (" + columns.join(", ") + ")");
}

void WritePicture(const QString& path) {
    QSvgRenderer drawing{QByteArray(texts::kWallpaper)};
    if (!drawing.isValid()) throw RuntimeError(u"背景图片的原图已损坏！"_s);
    QImage picture(kPictureSize, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    // Into memory first: the picture writer itself does not take a full disk well.
    QBuffer bytes;
    if (!bytes.open(QIODevice::WriteOnly) || !picture.save(&bytes, "PNG")) {
        throw RuntimeError(u"内存不足，无法生成背景图片！"_s);
    }
    Write(path, bytes.data());
}

}  // namespace

void MakeWhole(const QString& path, const std::function<void(const QString& temporary)>& write) {
    // Two runs at once would write into the same temporary file.
    QLockFile lock(path + u".lock"_s);
    if (!lock.tryLock()) {
        throw RuntimeError(lock.error() == QLockFile::LockFailedError
                               ? u"另一个程序正在生成“%1”，请稍后再试！"_s.arg(path)
                               : u"无法在文件夹“%1”中写入！"_s.arg(QFileInfo(path).path()));
    }
    if (sys::IsThere(path)) throw RuntimeError(u"文件“%1”已经存在，不能覆盖！"_s.arg(path));
    const QString temporary = path + u".making"_s;
    RemoveBegun(temporary);
    try {
        if (!sys::CreateForOwner(temporary)) throw RuntimeError(u"无法写入“%1”！"_s.arg(temporary));
        write(temporary);
        Rename(temporary, path);
    } catch (...) {
        RemoveBegun(temporary);
        throw;
    }
}

void MakeDatabase(const QString& path, const QString& company) {
    MakeWhole(path, [&](const QString& temporary) { WriteDatabase(temporary, company); });
}

void MakeExportFile(const QString& path) {
    MakeWhole(path, WriteExportFile);
}

void MakePicture(const QString& path) {
    MakeWhole(path, WritePicture);
}

QStringList LayoutFiles() {
    InitLayouts();
    return QDir(kLayouts.toString()).entryList(QDir::Files, QDir::Name);
}

void MakeLayout(const QString& path) {
    InitLayouts();
    MakeWhole(path, [&](const QString& temporary) {
        QFile layout(kLayouts.toString() + QFileInfo(path).fileName());
        const bool read = layout.open(QIODevice::ReadOnly);
        if (!read) throw RuntimeError(u"没有报表文件“%1”！"_s.arg(QFileInfo(path).fileName()));
        Write(temporary, layout.readAll());
    });
}

QStringList MakeDataFiles(const QString& folder, const QString& company) {
    if (!QFileInfo(folder).isDir()) throw RuntimeError(u"文件夹“%1”不存在！"_s.arg(folder));
    struct DataFile {
        QString name;
        std::function<void(const QString&)> make;
    };
    std::vector<DataFile> files = {
        {kDatabaseFile.toString(), [&](const QString& path) { MakeDatabase(path, company); }},
        {kExportFile.toString(), MakeExportFile},
        {kPictureFile.toString(), MakePicture},
    };
    for (const QString& layout : LayoutFiles()) files.push_back({layout, MakeLayout});
    QStringList made;
    for (const auto& file : files) {
        const QString path = QDir(folder).filePath(file.name);
        if (sys::IsThere(path)) continue;
        file.make(path);
        made += file.name;
    }
    return made;
}

}  // namespace schema
