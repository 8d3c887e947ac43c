// The helpers through which forms ask the database single questions, and the small ones over the texts that
// go into statements and come out of combos. Statements are text: text values between apostrophes (Quoted),
// numbers bare (text::GeneralText); nothing is escaped, so a value with an apostrophe breaks its statement.
//
// Always holds: a failure that took the whole command with it (DatabaseError::GroupLost) is passed on by all
// of them; no other failure leaves GetStr, GetStrQuiet, GetVal and the names, which ask by GetStr.
#pragma once

#include "platform/dao/database.h"
#include "platform/text/quoted.h"

#include <QString>

/// First field of the first row as text; "" when there is no row, the field is null or the statement fails (a
/// message box then shows the error).
QString GetStr(const QString& sql);
/// The same, silent on error.
QString GetStrQuiet(const QString& sql);
/// First field of the first row as a number; 0 when there is no row, the field is null or the statement
/// fails.
double GetVal(const QString& sql);

/// The same questions put to a given database, for the computations, which know no session.
QString GetStr(dao::Database& db, const QString& sql);
QString GetStrQuiet(dao::Database& db, const QString& sql);
double GetVal(dao::Database& db, const QString& sql);

/// Hands the text back unchanged for every language flag.
QString LangText(const QString& text);
/// A price in yuan to one decimal, by the number format "#0.0": half away from zero. Raises RuntimeError on
/// what is no number.
double Round1(double value);
/// Trims, replaces each apostrophe by ’, removes line breaks; stored back and returned.
QString CleanText(QString& text);
/// Turns a combo text (code, point, name) into the code, in the caller's variable too, and gives the F2 of
/// that row of the table; "" if there is none.
QString CodeToName(QString& text, const QString& table);
QString CodeToName(dao::Database& db, QString& text, const QString& table);

/// The F2 of the row with that code in that table, mostly its name; "" if there is none. Asks as GetStr does.
QString NameOf(const QString& table, const QString& code);
QString NameOf(dao::Database& db, const QString& table, const QString& code);

/// The trimmed text before its first point, or all of it: the code of a combo text.
QString CodePart(const QString& comboText);

/// Deletes how the charges of waybills were computed where a deletion of many has taken the waybills (table
/// B011). Raises DatabaseError.
void DeleteStepsWithoutWaybill();

/// The true number of rows; the set is at its first row again, if it has one. Raises DatabaseError.
int CountRows(dao::Recordset& rows);
