#include "tariffs/quote_captions.h"

#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;

namespace tariffs {
namespace {

constexpr std::size_t FirstHeavy = 4;
constexpr double WeightIfNull = 0.5;

}  // namespace

std::optional<Standard> ReadStandard(dao::Database& db) {
    auto row = db.OpenRecordset(
        u"select F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19,P888 from MS1"_s);
    if (row.Eof()) return std::nullopt;
    Standard standard;
    for (int i = 0; i < Brackets; ++i) {
        const dao::Field field = row.Fields(i);
        if (!field.IsNull()) standard[static_cast<std::size_t>(i)] = field.Number();
    }
    row.Close();
    return standard;
}

QStringList QuoteCaptions(const Standard& standard) {
    QStringList captions;
    for (std::size_t i = 0; i < FirstHeavy; ++i) {
        const float weight = text::ToSingle(standard[i].value_or(WeightIfNull));
        captions +=
            (i % 2 == 0 ? u"首"_s : u"续"_s) + text::FormatFixed(static_cast<double>(weight), 1) + u"Kg"_s;
    }
    for (std::size_t i = FirstHeavy; i < Brackets; ++i) {
        const QString from = text::GeneralText(text::ToSingle(standard[i].value_or(0)));
        if (i + 1 == Brackets) {
            captions += from + u"Kg以上"_s;
            break;
        }
        const float next = text::ToSingle(standard[i + 1].value_or(0));
        captions += from + u'-' + text::GeneralText(next - 1) + u"Kg"_s;
    }
    return captions;
}

}  // namespace tariffs
