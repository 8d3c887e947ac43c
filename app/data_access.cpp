#include "app/data_access.h"

#include "app/session.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;

namespace {

QString FirstText(dao::Database& db, const QString& sql) {
    auto rows = db.OpenRecordset(sql);
    QString result;
    if (!(rows.Eof() && rows.Bof())) result = rows.Fields(0).Text();
    rows.Close();
    return result;
}

double FirstNumber(dao::Database& db, const QString& sql) {
    auto rows = db.OpenRecordset(sql);
    double result = 0;
    if (!(rows.Eof() && rows.Bof())) result = rows.Fields(0).Number();
    rows.Close();
    return result;
}

/// An error that has taken the whole command with it ends that command; no asker may go on with an empty
/// answer.
void PassOnLoss(const PlatformError& error) {
    const auto* failure = dynamic_cast<const DatabaseError*>(&error);
    if (failure && failure->GroupLost()) throw;
}

void TellFailure(const QString& helper, const PlatformError& error) {
    PassOnLoss(error);
    // The question may stand inside a save, which goes on behind the box: nothing of it is kept meanwhile.
    sys::MsgBox({.text = helper + u"执行错误!系统返回如下信息："_s + u'\r' + error.Text(),
                 .title = MsgTitle,
                 .keepsGroup = true});
}

}  // namespace

QString GetStr(dao::Database& db, const QString& sql) {
    try {
        return FirstText(db, sql);
    } catch (const PlatformError& error) {
        TellFailure(u"GetStr"_s, error);
        return {};
    }
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
    try {
        return FirstNumber(db, sql);
    } catch (const PlatformError& error) {
        TellFailure(u"GetVal"_s, error);
        return 0;
    }
}

QString GetStr(const QString& sql) {
    try {
        return FirstText(*Db, sql);
    } catch (const PlatformError& error) {
        TellFailure(u"GetStr"_s, error);
        return {};
    }
}

QString GetStrQuiet(const QString& sql) {
    return Db ? GetStrQuiet(*Db, sql) : QString();
}

double GetVal(const QString& sql) {
    try {
        return FirstNumber(*Db, sql);
    } catch (const PlatformError& error) {
        TellFailure(u"GetVal"_s, error);
        return 0;
    }
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

QString CodeToName(dao::Database& db, QString& text, const QString& table) {
    CleanText(text);
    if (text.isEmpty()) return {};
    const qsizetype point = text.indexOf(u'.');
    if (point >= 0) text.truncate(point);
    return GetStr(db, u"select F2 from "_s + table + u" where F1='"_s + text + u"'"_s);
}

QString CodeToName(QString& text, const QString& table) {
    return CodeToName(*Db, text, table);
}

QString CodePart(const QString& comboText) {
    const QString trimmed = text::Trim(comboText);
    const qsizetype point = trimmed.indexOf(u'.');
    return point < 0 ? trimmed : trimmed.left(point);
}
