// The rows of the data file, as text.
#pragma once

#include "platform/dao/database.h"

#include <QString>
#include <QStringList>

namespace demo {

/// The rows of a SELECT, each as its fields joined by "|", a null as "<null>". Raises DatabaseError.
inline QStringList Rows(dao::Database& db, const QString& select) {
    QStringList rows;
    auto set = db.OpenRecordset(select);
    for (; !set.Eof(); set.MoveNext()) {
        QStringList fields;
        for (int i = 0; i < set.FieldCount(); ++i)
            fields << (set.Fields(i).IsNull() ? QStringLiteral("<null>") : set.Fields(i).Text());
        rows << fields.join(u'|');
    }
    set.Close();
    return rows;
}

}  // namespace demo
