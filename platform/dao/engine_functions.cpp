#include "platform/dao/engine_functions.h"

#include "platform/dao/dialect/functions.h"
#include "platform/text/numbers.h"

#include <cmath>
#include <string>
#include <string_view>

namespace dao {
namespace {

std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? std::string_view(text, static_cast<size_t>(sqlite3_value_bytes(value)))
                : std::string_view();
}

/// Nothing may be thrown through the engine.
template <class Body>
void Shielded(sqlite3_context* context, Body body) {
    try {
        body();
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

bool AnyNull(int count, sqlite3_value** values) {
    for (int i = 0; i < count; ++i)
        if (sqlite3_value_type(values[i]) == SQLITE_NULL) return true;
    return false;
}

void EngineDatediff(sqlite3_context* context, int count, sqlite3_value** values) {
    Shielded(context, [&] {
        if (AnyNull(count, values)) return;
        const auto first = dialect::ReadMoment(TextOf(values[1]));
        const auto second = dialect::ReadMoment(TextOf(values[2]));
        if (!first || !second) return sqlite3_result_error(context, dialect::kTypeMismatch, -1);
        const auto difference = dialect::Datediff(TextOf(values[0]), *first, *second);
        if (!difference) return sqlite3_result_error(context, "无效的过程调用或参数", -1);
        sqlite3_result_int64(context, *difference);
    });
}

/// The engine writes "a like b" as like(b, a).
void EngineLike(sqlite3_context* context, int count, sqlite3_value** values) {
    Shielded(context, [&] {
        if (AnyNull(count, values)) return;
        std::string number;
        std::string_view value = TextOf(values[1]);
        if (sqlite3_value_type(values[1]) == SQLITE_FLOAT) {
            number = text::GeneralText(sqlite3_value_double(values[1])).toStdString();
            value = number;
        }
        sqlite3_result_int(context, dialect::Like(value, TextOf(values[0])) ? 1 : 0);
    });
}

/// Hands a value on, unless it is a number beyond all that can be held.
void EngineFinite(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_FLOAT && !std::isfinite(sqlite3_value_double(values[0])))
        return sqlite3_result_error(context, "溢出", -1);
    sqlite3_result_value(context, values[0]);
}

}  // namespace

int RegisterFunctions(sqlite3* engine) {
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    const struct {
        const char* name;
        int arguments;
        void (*body)(sqlite3_context*, int, sqlite3_value**);
    } functions[] = {{"datediff", 3, EngineDatediff}, {"like", 2, EngineLike}, {"finite", 1, EngineFinite}};
    for (const auto& each : functions) {
        const int code = sqlite3_create_function_v2(engine, each.name, each.arguments, kFlags, nullptr,
                                                    each.body, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) return code;
    }
    return SQLITE_OK;
}

}  // namespace dao
