#include "tests/faults/company_state.h"

#include "tests/support/data_file.h"

#include <QFile>
#include <QFileInfo>

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

const QString Released = u"(B01.F604 not in ('未审核','未出货'))"_s;

/// Each gives the rows that must not be.
struct Rule {
    QString name, offenders;
};

QList<Rule> Rules() {
    return {
        {u"a waybill twice"_s, u"select F1 from B01 group by F1 having count(*)>1"_s},
        {u"a journal key twice"_s, u"select F1 from TB1 group by F1 having count(*)>1"_s},
        {u"a waybill without its receivable"_s,
         u"select F1 from B01 where not exists(select 1 from TB1 where TB1.F1='YS'||B01.F1)"_s},
        // The other way round there may be none: releasing from the list posts nothing.
        {u"a payable of a waybill that is not released"_s,
         u"select F1,F604 from B01 where not "_s + Released +
             u" and exists(select 1 from TB1 where TB1.F1='YF'||B01.F1)"_s},
        {u"a journal row without its waybill"_s,
         u"select F1 from TB1 where LB in (-9,9) and not exists(select 1 from B01 where TB1.F1 in "
         "('YS'||B01.F1,'YF'||B01.F1))"_s},
        {u"a receivable that differs from its waybill"_s,
         u"select TB1.F1 from TB1 join B01 on TB1.F1='YS'||B01.F1 left join M03 on M03.F1=B01.F603 "
         "where not (LB=-9 and YF=F504 and TB1.F2=F101 and TB1.F3=M03.F2)"_s},
        {u"a payable that differs from its waybill"_s,
         u"select TB1.F1 from TB1 join B01 on TB1.F1='YF'||B01.F1 left join M01 on M01.F1=B01.F202 "
         "where not (LB=9 and YF=F507 and TB1.F2=F101 and TB1.F3=M01.F2)"_s},
        {u"a payable that is not behind its receivable"_s,
         u"select b.F1 from TB1 a join TB1 b on substr(a.F1,3)=substr(b.F1,3) where a.LB=-9 and b.LB=9 "
         "and b.SN<>a.SN+1"_s},
        {u"steps of a waybill that is not there"_s,
         u"select F1 from B011 where not exists(select 1 from B01 where B01.F1=B011.F1)"_s},
        {u"the steps of a waybill twice"_s, u"select F1 from B011 group by F1 having count(*)>1"_s},
        {u"a balance that does not add up"_s,
         u"select F1,QC,YF,FK,QM from TB1 where QC is null or QM is null or abs(QC+YF-FK-QM)>0.000001"_s},
        {u"a counter below a receivable"_s,
         u"select F1,SN from TB1 where LB=-9 and cast(SN as integer)>(select Setval from SysInfo where "
         "ID=100)"_s},
    };
}

/// The opening balance of each row of a chain is the closing one of the row before it.
QStringList BrokenLinks(Connection& file, const QString& counterparty) {
    return file.Rows(
        u"select F1,QC from TB1 a where F3='%1' and abs(QC-ifnull((select QM from TB1 b where b.F3=a.F3 "
        "and b.SN<a.SN order by b.SN desc limit 1),0))>0.000001"_s.arg(counterparty));
}

/// A connection that looks at file after file as "seen": the engine hands on the key that it has derived, and
/// copies of one file have one key. Deriving it takes longer than all the rest.
Connection& LookAt(const QString& file) {
    static std::unique_ptr<Connection> looker;
    const QString attach = u"attach '%1' as seen"_s.arg(file);
    if (looker && looker->Takes(attach)) return *looker;
    looker = std::make_unique<Connection>(file);
    looker->Run(u"pragma cipher_default_page_size=4096"_s);
    looker->Run(u"select count(*) from sqlite_master"_s);
    looker->Run(attach);
    return *looker;
}

}  // namespace

QStringList StateOf(const QString& file) {
    Connection& engine = LookAt(file);
    QStringList state;
    for (
        const QString& table : engine.Rows(
            u"select name from seen.sqlite_master where type='table' and name not in ('HNow','HClock') and substr(name,1,2)<>'H_'"_s)) {
        QStringList rows = engine.Rows(u"select * from seen.[%1]"_s.arg(table));
        rows.sort();
        for (const QString& row : rows) state << table + u": "_s + row;
    }
    engine.Run(u"detach seen"_s);
    return state;
}

QStringList ContradictionsIn(const QString& path, const QStringList& steady) {
    Connection file(path);
    QStringList found = file.Rows(u"pragma integrity_check"_s);
    found.removeAll(u"ok"_s);
    for (const Rule& rule : Rules())
        for (const QString& row : file.Rows(rule.offenders)) found << rule.name + u": "_s + row;
    for (const QString& counterparty : steady)
        for (const QString& row : BrokenLinks(file, counterparty))
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
