#include "app/data_access.h"

#include "app/session.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;

namespace {

/// The first field of the first row; an empty value when there is no row.
template <class Value>
Value First(dao::Database& db, const QString& sql, Value (dao::Field::*read)() const) {
    auto rows = db.OpenRecordset(sql);
    Value first{};
    if (!rows.Eof()) first = (rows.Fields(0).*read)();
    rows.Close();
    return first;
}

QString FirstText(dao::Database& db, const QString& sql) {
    return First(db, sql, &dao::Field::Text);
}

double FirstNumber(dao::Database& db, const QString& sql) {
    return First(db, sql, &dao::Field::Number);
}

/// Rethrows the current error if it rolled back the commit group of the running command: the caller must not
/// continue with an empty value.
void PassOnLoss(const PlatformError& error) {
    const auto* failure = dynamic_cast<const DatabaseError*>(&error);
    if (failure && failure->GroupLost()) throw;
}

void ReportFailure(const QString& helper, const PlatformError& error) {
    PassOnLoss(error);
    // A save may call this and continues afterwards: what it wrote so far is not committed while the message
    // box is open.
    sys::MsgBox({.text = helper + u"执行错误!系统返回如下信息："_s + u'\r' + error.Text(),
                 .title = MsgTitle,
                 .keepsGroup = true});
}

/// The result of the query; after an error, an empty value, and a message box shows the helper and the error.
template <class Question>
auto AskOrReport(const QString& helper, const Question& question) -> decltype(question()) {
    try {
        return question();
    } catch (const PlatformError& error) {
        ReportFailure(helper, error);
        return {};
    }
}

}  // namespace

QString GetStr(dao::Database& db, const QString& sql) {
    return AskOrReport(u"GetStr"_s, [&] { return FirstText(db, sql); });
}

QString GetStrQuiet(dao::Database& db, const QString& sql) {
    try {
        return FirstText(db, sql);
    } catch (const PlatformError& error) {
        PassOnLoss(error);
        return {};
    }
}

double GetVal(dao::Database& db, const QString& sql) {
    return AskOrReport(u"GetVal"_s, [&] { return FirstNumber(db, sql); });
}

// After a backup or restore there is no session database; these report that like any other error.

QString GetStr(const QString& sql) {
    return AskOrReport(u"GetStr"_s, [&] { return FirstText(*Db, sql); });
}

QString GetStrQuiet(const QString& sql) {
    return Db ? GetStrQuiet(*Db, sql) : QString();
}

double GetVal(const QString& sql) {
    return AskOrReport(u"GetVal"_s, [&] { return FirstNumber(*Db, sql); });
}

void DeleteStepsWithoutWaybill() {
    Db->Execute(u"delete from B011 where not exists (select F1 from B01 where B01.F1=B011.F1)"_s);
}

int CountRows(dao::Recordset& rows) {
    if (rows.Eof()) return 0;
    rows.MoveLast();
    rows.MoveFirst();
    return rows.RecordCount();
}

QString LangText(const QString& text) {
    return text;
}

double Round1(double value) {
    return text::Val(text::FormatFixed(value, 1));
}

QString CleanText(QString& text) {
    text = text::Trim(text);
    text.replace(u'\'', u'’');
    text.remove(u'\r');
    text.remove(u'\n');
    return text;
}

QString NameOf(dao::Database& db, const QString& table, const QString& code) {
    return GetStr(db, u"select F2 from "_s + table + u" where F1="_s + Quoted(code));
}

QString CodeToName(dao::Database& db, QString& text, const QString& table) {
    CleanText(text);
    if (text.isEmpty()) return {};
    const qsizetype point = text.indexOf(u'.');
    if (point >= 0) text.truncate(point);
    return NameOf(db, table, text);
}

QString CodeToName(QString& text, const QString& table) {
    return CodeToName(*Db, text, table);
}

QString NameOf(const QString& table, const QString& code) {
    return NameOf(*Db, table, code);
}

QString CodePart(const QString& comboText) {
    const QString trimmed = text::Trim(comboText);
    const qsizetype point = trimmed.indexOf(u'.');
    return point < 0 ? trimmed : trimmed.left(point);
}
