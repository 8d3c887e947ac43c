#include "platform/dao/dialect/translate.h"

#include "platform/dao/dialect/translations.h"

namespace dao::dialect {

Translation Translate(std::string_view text, const Tables& tables, bool forDynaset) {
    Statement statement(text);
    RefuseSelectInto(statement);
    DoubleQuotesToText(statement);
    TrueAndFalse(statement);
    DatediffToRange(statement, tables);
    LikeToRange(statement, tables);
    DatesInWrites(statement, tables);
    FiniteWrites(statement);
    OrderByRow(statement);
    TopToLimit(statement);
    std::string table;
    if (forDynaset) table = AddRowNumber(statement);
    auto values = TakeValues(statement);
    return {statement.Kind(), statement.Render(), std::move(table), std::move(values)};
}

}  // namespace dao::dialect
