// Two months of the sample company's waybills, generated from a fixed seed, so that every run gives the same.
//
// Always holds: the waybills are in the order of entry, day by day. A waybill that is saved first and
// released by an edit (ByEdit) has the day of its entry as its sending date, so that it remains the last in
// its customer's chain.
#pragma once

#include <QDate>
#include <QString>

#include <utility>
#include <vector>

namespace sample {

enum class Release {
    None,      ///< remains 未审核
    Unmarked,  ///< ticked and unticked: 未出货
    AtOnce,    ///< while it is entered
    ByEdit     ///< saved first, then opened again and released
};

struct Waybill {
    QDate entered;
    QDate sent;  ///< the same day or an earlier one
    QString operatorCode;
    Release release = Release::None;
    QString customer, zone, place, channel, channelZone;  ///< as the combos accept them; channel may be empty
    /// The other text boxes: control and text, from the number on.
    std::vector<std::pair<QString, QString>> boxes;
};

std::vector<Waybill> PlanWaybills();

}  // namespace sample
