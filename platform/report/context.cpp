#include "platform/report/document_state.h"
#include "platform/text/dates.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace report {

Span Document::State::GroupOf(int level, int row) const {
    const std::vector<int>& starts = groupStarts[static_cast<size_t>(level)];
    const auto next = std::ranges::upper_bound(starts, row);
    return {*std::prev(next), next == starts.end() ? data.rows : *next};
}

Value Context::Field(int column) const {
    if (row < 0 || row >= state_.data.rows) return {};
    return TextValue(state_.data.Cell(row, column));
}

Value Context::Word(const QString& name) const {
    if (name == u"row") return NumberValue(row + 1);
    if (name == u"page") return NumberValue(page + 1);
    if (name == u"pages") return NumberValue(static_cast<double>(state_.pages.size()));
    if (name == u"date") return TextValue(text::DateText(state_.printed));
    if (name == u"line") return NumberValue(line);
    if (name == u"carry") return TextValue(carry);
    return {};
}

Span Context::RowsOf(Scope wanted) const {
    switch (wanted) {
        case Scope::Group:
            return group;
        case Scope::Page:
            return pageRows;
        case Scope::SoFar:
            return {0, std::clamp(row + 1, 0, state_.data.rows)};
        default:
            return {0, state_.data.rows};
    }
}

Value Context::AtRow(const Expression& expression, int at) const {
    Context there = *this;
    there.row = at;
    return Evaluate(expression, there);
}

namespace {

/// The sums of what an expression gives for each row.
std::vector<long double> SumsOf(int rows, const std::function<double(int)>& value) {
    std::vector<long double> sums(static_cast<size_t>(rows) + 1);
    for (int row = 0; row < rows; ++row) {
        const auto i = static_cast<size_t>(row);
        sums[i + 1] = sums[i] + static_cast<long double>(value(row));
    }
    return sums;
}

}  // namespace

Value Context::Aggregate(const Expression& aggregate) const {
    const Span rows = RowsOf(aggregate.scope == Scope::Default ? scope : aggregate.scope);
    const QString& name = aggregate.name;
    if (aggregate.arguments.empty()) return NumberValue(rows.Count());
    const Expression& argument = aggregate.arguments[0];
    if (name == u"first" || name == u"last") {
        if (rows.Count() <= 0) return {};
        return AtRow(argument, name == u"first" ? rows.from : rows.to - 1);
    }
    if (argument.kind == Expression::Kind::Aggregate) {  // of the first or last row of each group
        double sum = 0;
        for (int from = rows.from; from < rows.to;) {
            const Span one = state_.Levels() > 0 ? state_.GroupOf(state_.Levels() - 1, from) : rows;
            const int at = argument.name == u"first" ? from : std::min(one.to, rows.to) - 1;
            sum += NumberOf(AtRow(argument.arguments[0], at));
            from = one.to;
        }
        return NumberValue(sum);
    }
    auto& sums = state_.sums[static_cast<size_t>(aggregate.index)];
    if (sums.empty())
        sums = SumsOf(state_.data.rows, [&](int at) {
            const Value value = AtRow(argument, at);
            return name == u"count" ? (IsTrue(value) ? 1.0 : 0.0) : NumberOf(value);
        });
    if (rows.Count() <= 0) return NumberValue(0);
    const long double sum = sums[static_cast<size_t>(rows.to)] - sums[static_cast<size_t>(rows.from)];
    if (name == u"average") return NumberValue(static_cast<double>(sum / rows.Count()));
    return NumberValue(static_cast<double>(sum));
}

}  // namespace report
