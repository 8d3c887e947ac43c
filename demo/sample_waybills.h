// Two months of the sample company's waybills, thought up from a fixed seed: the same at every making.
//
// Always holds: in the order in which they are entered, day after day; a waybill that is released a second
// time round (ByEdit) is sent on the day of its entry, so that it still stands last in its customer's chain.
#pragma once

#include <QDate>
#include <QString>

#include <utility>
#include <vector>

namespace sample {

enum class Release {
    None,      ///< stays 未审核
    Unmarked,  ///< ticked and unticked again: 未出货
    AtOnce,    ///< while it is entered
    ByEdit     ///< saved first, then opened again and released
};

struct Waybill {
    QDate entered;
    QDate sent;  ///< the same day, or an earlier one
    QString operatorCode;
    Release release = Release::None;
    QString customer, zone, place, channel, channelZone;  ///< as the combos take them; channel may be empty
    /// The other boxes: control and text, from the number on.
    std::vector<std::pair<QString, QString>> boxes;
};

std::vector<Waybill> PlanWaybills();

}  // namespace sample
