#include "schema/history.h"

#include "platform/dao/engine.h"
#include "platform/errors.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace schema {
namespace {

const QByteArray kGroup = "N,At,Operator,Command";
constexpr int kFirstVersion = 3;  // of a file with a history

/// The first column of every row.
QByteArrayList Column(sqlite3* db, const QByteArray& select, int column) {
    QByteArrayList values;
    struct Taker {
        QByteArrayList& values;
        int column;
    } taker{values, column};
    const auto take = [](void* context, int, char** fields, char**) {
        auto& to = *static_cast<Taker*>(context);
        to.values += QByteArray(fields[to.column]);
        return 0;
    };
    if (sqlite3_exec(db, select.constData(), take, &taker, nullptr) != SQLITE_OK)
        throw RuntimeError(u"数据库引擎返回：%1"_s.arg(QString::fromUtf8(sqlite3_errmsg(db))));
    return values;
}

struct TableColumns {
    QByteArrayList names, types;
};

TableColumns ColumnsOf(sqlite3* db, const QByteArray& table) {
    const QByteArray question = "pragma table_info(" + table + ")";
    return {Column(db, question, 1), Column(db, question, 2)};
}

QByteArray Declared(const QByteArray& name, const QByteArray& type) {
    return name + ' ' + type + (type == "TEXT" ? " COLLATE NOCASE" : "");
}

/// A trigger's statement that keeps these columns of the row that is called old or new.
QByteArray Keep(const KeptTable& table, char op, const QByteArray& row, const QByteArrayList& columns) {
    QByteArray names, values;
    for (const QByteArray& column : columns) {
        names += ',' + column;
        values += ',' + row + '.' + column;
    }
    return "insert into " + table.Mirror() + " (" + kGroup + ",Op,R" + names + ") select " + kGroup + ",'" +
           op + "'," + row + ".rowid" + values + " from HNow";
}

QByteArray KeyHasChanged(const KeptTable& table) {
    QByteArrayList changes;
    for (const QByteArray& column : table.key) changes += "new." + column + " is not old." + column;
    return changes.join(" or ");
}

/// The statements that lead from the mirror that the file has to the one that it should have.
QByteArrayList MirrorStatements(sqlite3* db, const KeptTable& table) {
    const TableColumns kept = ColumnsOf(db, table.name);
    const QByteArrayList present = ColumnsOf(db, table.Mirror()).names;
    QByteArrayList missing;
    for (qsizetype i = 0; i < kept.names.size(); ++i)
        if (!table.secret.contains(kept.names[i]) && !present.contains(kept.names[i]))
            missing += Declared(kept.names[i], kept.types[i]);
    QByteArrayList statements;
    if (present.isEmpty()) {
        statements += "create table " + table.Mirror() +
                      " (N INTEGER, At TEXT COLLATE NOCASE, Operator TEXT COLLATE NOCASE, Command TEXT "
                      "COLLATE NOCASE, Op TEXT COLLATE NOCASE, R INTEGER, " +
                      missing.join(", ") + ')';
        if (!table.key.isEmpty())
            statements += "create index " + table.Mirror() + '_' + table.key.join('_') + " on " +
                          table.Mirror() + " (" + table.key.join(", ") + ") where Op<>'I'";
        return statements;
    }
    for (const QByteArray& column : missing)
        statements += "alter table " + table.Mirror() + " add column " + column;
    return statements;
}

QByteArrayList TriggersToRenew(sqlite3* db, const KeptTable& table) {
    const QByteArrayList wanted = TriggerStatements(table, KeptColumns(db, table));
    const QByteArray of = " from sqlite_master where type='trigger' and name in ('" +
                          table.Triggers().join("','") + "') order by rowid";
    if (Column(db, "select sql" + of, 0) == wanted) return {};
    QByteArrayList statements;
    for (const QByteArray& present : Column(db, "select name" + of, 0))
        statements += "drop trigger " + present;
    return statements + wanted;
}

/// The numbers go on behind those that the mirrors hold.
QByteArray GroupRowSql() {
    QByteArrayList last = {"0"};
    for (const KeptTable& table : KeptTables())
        last += "ifnull((select N from " + table.Mirror() + " order by rowid desc limit 1),0)";
    return "insert into HNow (N) select max(" + last.join(',') + ')';
}

}  // namespace

QByteArrayList KeptTable::Triggers() const {
    return {Mirror() + "_insert", Mirror() + "_delete", Mirror() + "_update"};
}

const std::vector<KeptTable>& KeptTables() {
    static const std::vector<KeptTable> tables = {
        {.name = "B01"},
        // The steps of a waybill's amounts come back with the waybill. That a save has stored some where
        // there were none before counts only for an edit.
        {.name = "B011",
         .insertsIf = "(select N from H_B01 where F1=new.F1 and Op<>'I' order by rowid desc limit 1)="
                      "(select N from HNow)"},
        // The balances and the place follow from the other rows; the passes over a chain rewrite them.
        {.name = "TB1", .computed = {"QC", "QM", "SN"}},
        {.name = "M01"},
        {.name = "M011"},
        {.name = "M0111", .key = {"F0", "F1"}},
        {.name = "M02"},
        {.name = "M021", .key = {"F0", "F1"}},
        {.name = "M03"},
        {.name = "M031", .key = {"F0", "F1"}},
        {.name = "M030"},
        {.name = "M04"},
        {.name = "M05"},
        {.name = "M06"},
        {.name = "MS1", .key = {}},
        // F67 remembers the last origin at every save of a waybill.
        {.name = "TE1", .secret = {"F3"}, .computed = {"F67"}},
    };
    return tables;
}

const KeptTable* FindKept(const QByteArray& table) {
    for (const KeptTable& kept : KeptTables())
        if (kept.name.compare(table, Qt::CaseInsensitive) == 0) return &kept;
    return nullptr;
}

QByteArrayList KeptColumns(sqlite3* db, const KeptTable& table) {
    QByteArrayList columns = ColumnsOf(db, table.name).names;
    columns.removeIf([&](const QByteArray& column) { return table.secret.contains(column); });
    return columns;
}

QByteArrayList TriggerStatements(const KeptTable& table, const QByteArrayList& columns) {
    const QByteArrayList names = table.Triggers();
    // A new password is an overwritten row as well, though neither password is kept.
    QByteArrayList counted = columns + table.secret;
    counted.removeIf([&](const QByteArray& column) { return table.computed.contains(column); });
    const auto trigger = [&](const QByteArray& name, const QByteArray& event, const QByteArrayList& body) {
        return "CREATE TRIGGER " + name + " after " + event + " on " + table.name + " begin " +
               body.join("; ") + "; end";
    };
    QByteArrayList overwritten = {Keep(table, 'U', "old", columns)};
    if (!table.key.isEmpty())
        overwritten += Keep(table, 'K', "new", table.key) + " where " + KeyHasChanged(table);
    QByteArray inserted = Keep(table, 'I', "new", table.key);
    if (!table.insertsIf.isEmpty()) inserted += " where " + table.insertsIf;
    return {trigger(names[0], "insert", {inserted}),
            trigger(names[1], "delete", {Keep(table, 'D', "old", columns)}),
            trigger(names[2], "update of " + counted.join(','), overwritten)};
}

QByteArray HNowSql() {
    return "create table if not exists HNow (N INTEGER check(typeof(N) not in ('text', 'blob')), At TEXT "
           "COLLATE NOCASE, "
           "Operator TEXT COLLATE NOCASE, Command TEXT COLLATE NOCASE, Failed INTEGER check(typeof(Failed) "
           "not in ('text', 'blob')))";
}

QByteArray HClockSql() {
    return "create table if not exists HClock (N INTEGER check(typeof(N) not in ('text', 'blob')), Ahead "
           "INTEGER check(typeof(Ahead) not in ('text', 'blob')))";
}

void CompleteHistory(sqlite3* db) {
    const bool present = dao::Number(db, "select count(*) from sqlite_master where name='HNow'") != 0;
    // An older file gets the table by its upgrade.
    if (!present && (dao::Number(db, "pragma user_version") < kFirstVersion ||
                     dao::Number(db, "select count(*) from sqlite_master where name='B01'") == 0))
        return;
    QByteArrayList statements;
    if (!present) statements += HNowSql();
    if (dao::Number(db, "select count(*) from sqlite_master where name='HClock'") == 0)
        statements += HClockSql();
    for (const KeptTable& table : KeptTables())
        statements += MirrorStatements(db, table) + TriggersToRenew(db, table);
    if (!present || dao::Number(db, "select count(*) from HNow") == 0) statements += GroupRowSql();
    if (statements.isEmpty()) return;
    const auto run = [&] {
        for (const QByteArray& statement : statements) dao::Run(db, statement);
    };
    if (sqlite3_get_autocommit(db) == 0)
        run();
    else
        dao::InTransaction(db, "begin immediate", run);
}

}  // namespace schema
