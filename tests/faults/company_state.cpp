#include "tests/faults/company_state.h"

#include "platform/dao/engine.h"
#include "schema/names.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

QStringList Rows(sqlite3* engine, const QByteArray& sql) {
    QStringList rows;
    const auto take = [](void* list, int columns, char** values, char**) {
        QStringList row;
        for (int i = 0; i < columns; ++i) row << (values[i] ? QString::fromUtf8(values[i]) : u"<null>"_s);
        *static_cast<QStringList*>(list) << row.join(u'|');
        return 0;
    };
    if (sqlite3_exec(engine, sql.constData(), take, &rows, nullptr) != SQLITE_OK)
        throw std::runtime_error(sql.toStdString() + ": " + sqlite3_errmsg(engine));
    return rows;
}

constexpr const char* Released = "(B01.F604 not in ('未审核','未出货'))";

/// Each gives the rows that must not be.
struct Rule {
    const char* name;
    QByteArray offenders;
};

QList<Rule> Rules() {
    return {
        {"a waybill twice", "select F1 from B01 group by F1 having count(*)>1"},
        {"a journal key twice", "select F1 from TB1 group by F1 having count(*)>1"},
        {"a waybill without its receivable",
         "select F1 from B01 where not exists(select 1 from TB1 where TB1.F1='YS'||B01.F1)"},
        // The other way round there may be none: releasing from the list posts nothing.
        {"a payable of a waybill that is not released",
         QByteArray("select F1,F604 from B01 where not ") + Released +
             " and exists(select 1 from TB1 where TB1.F1='YF'||B01.F1)"},
        {"a journal row without its waybill",
         "select F1 from TB1 where not exists(select 1 from B01 where TB1.F1 in "
         "('YS'||B01.F1,'YF'||B01.F1))"},
        {"a receivable that differs from its waybill",
         "select TB1.F1 from TB1 join B01 on TB1.F1='YS'||B01.F1 left join M03 on M03.F1=B01.F603 "
         "where not (LB=-9 and YF=F504 and TB1.F2=F101 and TB1.F3=M03.F2)"},
        {"a payable that differs from its waybill",
         "select TB1.F1 from TB1 join B01 on TB1.F1='YF'||B01.F1 left join M01 on M01.F1=B01.F202 "
         "where not (LB=9 and YF=F507 and TB1.F2=F101 and TB1.F3=M01.F2)"},
        {"a payable that is not behind its receivable",
         "select b.F1 from TB1 a join TB1 b on substr(a.F1,3)=substr(b.F1,3) where a.LB=-9 and b.LB=9 "
         "and b.SN<>a.SN+1"},
        {"a balance that does not add up",
         "select F1,QC,YF,FK,QM from TB1 where QC is null or QM is null or abs(QC+YF-FK-QM)>0.000001"},
        {"a counter below a receivable",
         "select F1,SN from TB1 where LB=-9 and cast(SN as integer)>(select Setval from SysInfo where "
         "ID=100)"},
    };
}

/// The opening balance of each row of a chain is the closing one of the row before it.
QStringList BrokenLinks(sqlite3* engine, const QString& counterparty) {
    const QByteArray name = "'" + counterparty.toUtf8() + "'";
    return Rows(engine, "select F1,QC from TB1 a where F3=" + name +
                            " and abs(QC-ifnull((select QM from TB1 b where b.F3=a.F3 and b.SN<a.SN "
                            "order by b.SN desc limit 1),0))>0.000001");
}

/// Looks at file after file as "seen" of one connection: the engine hands on the key that it has derived, and
/// copies of one file have one key. Deriving it takes longer than all the rest.
class Looker {
  public:
    sqlite3* LookAt(const QString& file) {
        if (!Attached(file)) {
            engine_ = dao::OpenEngine(file, schema::kPassword);
            Rows(engine_.get(), "pragma cipher_default_page_size=4096");
            Rows(engine_.get(), "select count(*) from sqlite_master");
            if (!Attached(file)) throw std::runtime_error("cannot be opened: " + file.toStdString());
        }
        return engine_.get();
    }

  private:
    bool Attached(const QString& file) {
        if (!engine_) return false;
        const QByteArray attach = "attach '" + file.toUtf8() + "' as seen";
        return sqlite3_exec(engine_.get(), attach.constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
    }

    dao::Engine engine_;
};

}  // namespace

QStringList StateOf(const QString& file) {
    static Looker looker;
    sqlite3* const engine = looker.LookAt(file);
    QStringList state;
    for (const QString& table : Rows(engine, "select name from seen.sqlite_master where type='table'")) {
        QStringList rows = Rows(engine, "select * from seen.[" + table.toUtf8() + ']');
        rows.sort();
        for (const QString& row : rows) state << table + u": "_s + row;
    }
    Rows(engine, "detach seen");
    return state;
}

QStringList ContradictionsIn(const QString& file, const QStringList& steady) {
    const auto engine = dao::OpenEngine(file, schema::kPassword);
    const QStringList integrity = Rows(engine.get(), "pragma integrity_check");
    if (integrity != QStringList{u"ok"_s}) return integrity;
    QStringList found;
    for (const Rule& rule : Rules())
        for (const QString& row : Rows(engine.get(), rule.offenders))
            found << QString::fromLatin1(rule.name) + u": "_s + row;
    for (const QString& counterparty : steady)
        for (const QString& row : BrokenLinks(engine.get(), counterparty))
            found << u"a chain that is not linked: "_s + counterparty + u' ' + row;
    return found;
}

QString CopyAsLeft(const QString& file, const QString& to) {
    const QString copy = to + u'/' + QFileInfo(file).fileName();
    for (const QString& side : {u""_s, u"-wal"_s}) {
        QFile::remove(copy + side);
        if (QFile::exists(file + side) && !QFile::copy(file + side, copy + side))
            throw std::runtime_error("cannot copy " + (file + side).toStdString());
    }
    return copy;
}

}  // namespace tests
