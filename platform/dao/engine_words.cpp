#include "platform/dao/engine_words.h"

#include <QDir>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

struct Failure {
    int code;  ///< the primary one
    QStringView text;
};

constexpr Failure kFailures[] = {
    {SQLITE_CANTOPEN, u"无法打开数据文件"},
    {SQLITE_NOTADB, u"数据文件已加密，或者不是本系统的数据文件"},
    {SQLITE_CORRUPT, u"数据文件已损坏"},
    {SQLITE_READONLY, u"数据文件是只读的，不能写入"},
    {SQLITE_PERM, u"没有访问数据文件的权限"},
    {SQLITE_BUSY, u"数据文件正被其他程序使用"},
    {SQLITE_LOCKED, u"数据文件正被其他程序使用"},
    {SQLITE_FULL, u"磁盘已满，无法写入数据文件"},
    {SQLITE_IOERR, u"读写数据文件时出错"},
};

}  // namespace

QString EngineText(int code, const char* words, const QString& path) {
    for (const Failure& failure : kFailures)
        if (failure.code == (code & 0xff))
            return failure.text.toString() + u"：\r"_s + QDir::toNativeSeparators(path);
    return QString::fromUtf8(words);
}

}  // namespace dao
