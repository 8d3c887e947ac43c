#include "app/operator_statement.h"

#include "app/data_access.h"
#include "platform/errors.h"

using namespace Qt::StringLiterals;

OperatorStatement& OperatorStatement::Words(const QString& words) {
    statement_ += words;
    reported_ += words;
    return *this;
}

OperatorStatement& OperatorStatement::Text(const QString& value) {
    Add(value, value);
    return *this;
}

OperatorStatement& OperatorStatement::Secret(const QString& value) {
    Add(value, u"******"_s);  // however long it is
    return *this;
}

void OperatorStatement::Add(const QString& value, const QString& reported) {
    broken_ = broken_ || value.contains(u'\'');
    statement_ += Quoted(value);
    reported_ += Quoted(reported);
}

void OperatorStatement::Execute(dao::Database& db) const {
    if (broken_) throw DatabaseError(u"语法错误：文本中有单引号“'”。"_s, reported_);
    db.Execute(statement_, reported_);
}
