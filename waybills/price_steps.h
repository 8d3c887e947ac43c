// How a charge or a cost came about, step by step. The computations give their steps along with their amount;
// the explanation shown to the operator, stored with the waybill and printed for the customer is made of
// nothing else.
//
// Always holds: the steps are in the order of StepKind. Those whose part is not None, added by the rule of
// the computation, are the amount: carriage and fees times the factor, then what is not multiplied. Weights
// are in kg, prices and figures in yuan, unrounded.
#pragma once

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace waybills {

/// The numbers are stored in the data file: a new kind gets a new number.
enum class StepKind {
    Source = 0,  ///< quote or channel; a step only where the computation ended there
    Weight = 1,
    Bracket = 2,
    Way = 3,  ///< of a heavy segment of a channel
    Price = 4,
    Fallback = 5,
    FirstWeight = 6,
    Steps = 7,
    Additional = 8,
    Other = 9,
    Fuel = 10,
    Result = 11
};

/// How the figure of a step enters the amount. Stored, as the kinds are.
enum class Part { None = 0, Carriage = 1, Fee = 2, Factor = 3, NotMultiplied = 4 };

/// What is particular to a step. Stored, as the kinds are.
enum class StepNote {
    None = 0,
    Document = 1,          ///< Weight
    WithinFirst = 2,       ///< Bracket, FirstWeight: not above the first weight
    Continued = 3,         ///< Bracket: first weight and steps
    Heavy = 4,             ///< Bracket
    FirstAndRest = 5,      ///< Way: the segment's flag is set; FirstWeight: its price is the small parcel's
    NoStepWeight = 6,      ///< Fallback: the plain bracket has no step weight and gives no amount either
    NotRounded = 7,        ///< Steps: a price per kilogram above the first weight
    OtherFeesExclude = 8,  ///< Steps: other fees exclude the continuation; Other: and are not added
    NoPrice = 9,           ///< Price, Steps: the price is empty or 0
    FactorDefaulted = 10   ///< Fuel: the factor is empty or 0, and 1 counts
};

struct Step {
    StepKind kind = StepKind::Source;
    Part part = Part::None;
    StepNote note = StepNote::None;
    double figure = 0;
    double from = 0;  ///< Bracket: its lower bound; FirstWeight, Steps: the first weight
    double to = 0;    ///< Bracket: its upper bound, not above `from` where it is open; Steps: the step weight
    double count = 0;  ///< Bracket: the number of a heavy segment; Steps: how many
    double of = 0;     ///< Bracket: how many heavy segments the channel has
    double price = 0;
    /// Why the computation ended at this step, in the words of its message; never stored.
    QString refusal = {};
};

using Steps = std::vector<Step>;

/// Which of the two computations.
enum class Side { Charge, Cost };
constexpr std::size_t Sides = 2;

/// The steps of one amount, and of what and when they were computed.
struct Priced {
    QString party;  ///< code of the customer or of the channel
    QString zone;   ///< code of the service zone or of the cost zone
    QString day;    ///< yyyy-MM-dd
    Steps steps;

    const Step* Find(StepKind kind) const;
    /// The unrounded amount; nullopt where the computation gave none.
    std::optional<double> Amount() const;
};

/// At the index of each side; nullopt where nothing is known.
using BothSides = std::array<std::optional<Priced>, Sides>;

/// The steps as one text without apostrophes, and back. A text that was not made by ToText, or by a later
/// release, gives no steps.
QString ToText(const Steps& steps);
Steps FromText(const QString& text);

}  // namespace waybills
