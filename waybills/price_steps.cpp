#include "waybills/price_steps.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace waybills {
namespace {

// "kind part note figure from to count of price", steps separated by ";"; zeros at the end are left out.
constexpr qsizetype Words = 3;
constexpr qsizetype Numbers = 6;

/// The shortest text that gives the same double again.
QString Exact(double value) {
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString ToText(const Step& step) {
    QStringList words = {QString::number(static_cast<int>(step.kind)),
                         QString::number(static_cast<int>(step.part)),
                         QString::number(static_cast<int>(step.note))};
    for (const double value : {step.figure, step.from, step.to, step.count, step.of, step.price})
        words += Exact(value);
    while (words.size() > Words && words.last() == u"0") words.removeLast();
    return words.join(u' ');
}

std::optional<Step> StepOf(const QString& text) {
    const QStringList words = text.split(u' ');
    if (words.size() < Words || words.size() > Words + Numbers) return std::nullopt;
    bool known = true;
    const auto choice = [&](qsizetype at, auto last) {
        const int value = words[at].toInt(&known);
        known = known && value >= 0 && value <= static_cast<int>(last);
        return static_cast<decltype(last)>(known ? value : 0);
    };
    Step step;
    step.kind = choice(0, StepKind::Result);
    if (known) step.part = choice(1, Part::NotMultiplied);
    if (known) step.note = choice(2, StepNote::FactorDefaulted);
    double* const numbers[] = {&step.figure, &step.from, &step.to, &step.count, &step.of, &step.price};
    for (qsizetype i = Words; known && i < words.size(); ++i) {
        *numbers[i - Words] = words[i].toDouble(&known);
        known = known && std::isfinite(*numbers[i - Words]);
    }
    return known ? std::optional(step) : std::nullopt;
}

}  // namespace

const Step* Priced::Find(StepKind kind) const {
    const auto found = std::ranges::find(steps, kind, &Step::kind);
    return found == steps.end() ? nullptr : &*found;
}

std::optional<double> Priced::Amount() const {
    const Step* result = Find(StepKind::Result);
    return result ? std::optional(result->figure) : std::nullopt;
}

QString ToText(const Steps& steps) {
    QStringList texts;
    for (const Step& step : steps) texts += ToText(step);
    return texts.join(u';');
}

Steps FromText(const QString& text) {
    Steps steps;
    if (text.isEmpty()) return steps;
    for (const QString& part : text.split(u';')) {
        const std::optional<Step> step = StepOf(part);
        if (!step) return {};
        steps.push_back(*step);
    }
    return steps;
}

}  // namespace waybills
