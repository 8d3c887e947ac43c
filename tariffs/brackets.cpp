#include "tariffs/brackets.h"

#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;

namespace tariffs {

const QString StandardStatement =
    u"select F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19,P888 from MS1"_s;
const QString ChannelBracketColumns = u"D0,D1,S0,S1,JFD,J0,J1,J2,J3,J4,J5,J6,J7,J8,J9"_s;

namespace {

constexpr int DesignedTail = 5;  // "0.5Kg"

float Weight(const Standard& standard, int field, double ifNull) {
    return text::ToSingle(standard.at(static_cast<std::size_t>(field)).value_or(ifNull));
}

/// "0.5Kg". Rounds the seven digits of the single, not its value as a double: 0.35 becomes 0.4 here, as in
/// the form where it is set.
QString ChargedWeight(const Standard& standard, int bracket) {
    const float weight = Weight(standard, bracket, WeightIfNull);
    return text::FormatFixed(text::Val(text::GeneralText(weight)), 1) + u"Kg"_s;
}

/// From a segment's lower bound to one kilogram below the next one's; the last segment has no upper bound.
QString Segment(const Standard& standard, int bracket, const QString& joiner) {
    const QString from = text::GeneralText(Weight(standard, bracket, 0));
    if (bracket == Brackets - 1) return from + u"Kg以上"_s;
    return from + joiner + text::GeneralText(Weight(standard, bracket + 1, 0) - 1) + u"Kg"_s;
}

}  // namespace

std::optional<Standard> ReadStandard(dao::Database& db) {
    auto row = db.OpenRecordset(StandardStatement);
    if (row.Eof()) return std::nullopt;
    Standard standard;
    for (int i = 0; i < StandardFields; ++i) {
        const dao::Field field = row.Fields(i);
        if (!field.IsNull()) standard[i] = field.Number();
    }
    row.Close();
    return standard;
}

QString ListPriceCaption(const Standard& standard, int bracket, const QString& designed) {
    if (bracket < FirstHeavy) return designed.chopped(DesignedTail) + ChargedWeight(standard, bracket);
    return Segment(standard, bracket, u"Kg~~"_s);
}

QStringList QuoteCaptions(const Standard& standard) {
    QStringList captions;
    for (int bracket = 0; bracket < FirstHeavy; ++bracket)
        captions += (bracket % 2 == 0 ? u"首"_s : u"续"_s) + ChargedWeight(standard, bracket);
    for (int bracket = FirstHeavy; bracket < Brackets; ++bracket)
        captions += Segment(standard, bracket, u"-"_s);
    return captions;
}

}  // namespace tariffs
