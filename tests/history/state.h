// What the kept tables hold, without what passes over a chain compute, passwords and the last origin.
#pragma once

#include "app/session.h"
#include "demo/rows.h"
#include "schema/history.h"

#include <QStringList>

namespace tests {

/// The columns that a mirror has and that are not computed.
inline QStringList ComparedColumns(const schema::KeptTable& table) {
    QStringList columns;
    auto rows = Db->ReadEngine(QStringLiteral("pragma table_info(") + QString::fromLatin1(table.name) + u')');
    for (; !rows.Eof(); rows.MoveNext()) columns += rows.Fields(1).Text();
    for (const QByteArray& left : table.secret + table.computed) columns.removeAll(QString::fromLatin1(left));
    return columns;
}

/// The moment of a journal row's last write is left out where `moments` is false.
inline QStringList KeptState(bool moments = true) {
    QStringList state;
    for (const schema::KeptTable& table : schema::KeptTables()) {
        const QString name = QString::fromLatin1(table.name);
        QStringList columns = ComparedColumns(table);
        if (!moments) columns.removeAll(QStringLiteral("H8"));
        const QString list = columns.join(u',');
        for (const QString& row :
             demo::Rows(*Db, QStringLiteral("select %1 from %2 order by %1").arg(list, name)))
            state += name + u' ' + row;
    }
    return state;
}

}  // namespace tests
