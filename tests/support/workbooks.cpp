#include "tests/support/workbooks.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

QStringList Texts(const QJsonValue& array) {
    QStringList texts;
    for (const QJsonValue& text : array.toArray()) texts += text.toString();
    return texts;
}

/// What the second reader has to write for these rows: empty cells at the end are no cells for it.
QString ExpectedCsv(const QList<QStringList>& rows) {
    QString text;
    for (QStringList cells : rows) {
        while (!cells.isEmpty() && cells.back().isEmpty()) cells.removeLast();
        text += cells.join(u'\x1f') + u'\n';
    }
    return text + u'\f';
}

}  // namespace

QList<Workbook> ReadWorkbooks(const QStringList& paths) {
    QProcess reader;
    reader.start(u"/usr/bin/python3"_s, QStringList{QStringLiteral(READ_WORKBOOK)} + paths);
    reader.waitForFinished(120'000);
    const auto found = QJsonDocument::fromJson(reader.readAllStandardOutput()).array();
    if (found.size() != paths.size()) {
        ADD_FAILURE() << "not readable: " << reader.readAllStandardError().toStdString();
        return QList<Workbook>(paths.size());
    }
    QList<Workbook> books;
    for (const QJsonValue& file : found) {
        const QJsonValue sheet = file[u"sheet"_s];
        Workbook book{.biff = sheet[u"biff"_s].toInt(),
                      .codePage = sheet[u"page"_s].toInt(),
                      .sheets = Texts(sheet[u"sheets"_s]),
                      .rows = {},
                      .longestRecord = file[u"longest"_s].toInt()};
        for (const QJsonValue& row : sheet[u"rows"_s].toArray()) book.rows += Texts(row);
        const QJsonValue csv = file[u"csv"_s];
        book.readByBoth = csv.isString() && csv.toString() == ExpectedCsv(book.rows);
        EXPECT_TRUE(book.readByBoth || csv.isNull()) << "xls2csv reads something else";
        books += book;
    }
    return books;
}

Workbook ReadWorkbook(const QString& path) {
    return ReadWorkbooks({path}).front();
}

}  // namespace tests
