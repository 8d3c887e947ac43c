#include "benchmarks/sent.h"

#include "benchmarks/bench.h"

#include <charconv>
#include <string_view>

namespace benchmarks {
namespace {

struct Catch {
    std::vector<Sent> statements;
    const void* last = nullptr;
};

/// The numbers in place of the text's question marks. Our writers bind nothing else.
std::vector<double> ValuesIn(std::string_view expanded, std::string_view text) {
    std::vector<double> values;
    const char* at = expanded.data();
    const char* const end = at + expanded.size();
    for (const char character : text) {
        if (character == '?')
            at = std::from_chars(at, end, values.emplace_back()).ptr;
        else
            ++at;
    }
    return values;
}

int Take(unsigned, void* context, void* prepared, void* words) {
    // A statement of a trigger comes as a comment, behind the statement that fires it.
    if (qstrncmp(static_cast<const char*>(words), "--", 2) == 0) return 0;
    auto& caught = *static_cast<Catch*>(context);
    auto* statement = static_cast<sqlite3_stmt*>(prepared);
    const bool writesRows = sqlite3_bind_parameter_count(statement) > 0;
    if (writesRows && qstrnicmp(sqlite3_sql(statement), "insert", 6) == 0) {
        // The values of an insert go beside it; the bare engine gets them in its text.
        char* whole = sqlite3_expanded_sql(statement);
        caught.statements.push_back({whole, {}});
        sqlite3_free(whole);
        caught.last = nullptr;
        return 0;
    }
    const char* text = sqlite3_sql(statement);
    const bool again = caught.last == prepared && caught.statements.back().text == text;
    if (!again) caught.statements.push_back({text, {}});
    caught.last = prepared;
    if (!writesRows) return 0;
    char* expanded = sqlite3_expanded_sql(statement);
    caught.statements.back().values.push_back(ValuesIn(expanded, text));
    sqlite3_free(expanded);
    return 0;
}

void ReadRows(BareStatement& statement) {
    while (statement.Step()) {
        for (int i = 0; i < statement.Columns(); ++i) {
            if (statement.IsText(i))
                Keep(statement.Text(i).constData());
            else
                Keep(statement.Number(i));
        }
    }
}

}  // namespace

std::vector<Sent> Caught(sqlite3* engine, const std::function<void()>& command) {
    Catch caught;
    sqlite3_trace_v2(engine, SQLITE_TRACE_STMT, Take, &caught);
    command();
    sqlite3_trace_v2(engine, 0, nullptr, nullptr);
    return caught.statements;
}

void RunAgain(BareEngine& engine, const std::vector<Sent>& statements) {
    for (const Sent& sent : statements) {
        BareStatement statement(engine.Handle(), sent.text);
        if (sent.values.empty()) ReadRows(statement);
        for (const auto& values : sent.values) {
            int place = 0;
            for (const double value : values) statement.Bind(++place, value);
            ReadRows(statement);
            statement.Reset();
        }
    }
}

}  // namespace benchmarks
