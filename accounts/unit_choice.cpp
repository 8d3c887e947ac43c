#include "accounts/unit_choice.h"

#include "app/data_access.h"
#include "app/session.h"

using namespace Qt::StringLiterals;

namespace accounts {
namespace {

const QString all = u"所有"_s;

}  // namespace

void FillUnits(controls::ComboBox& combo, const QString& called, bool payable) {
    combo.Clear();
    combo.AddItem(all + called);
    auto names = Db->OpenRecordset(payable ? kChannelNames : kCustomerNames);
    for (; !names.Eof(); names.MoveNext()) combo.AddItem(names.Fields(0).Text());
    names.Close();
    combo.SetListIndex(0);
}

QString ChosenUnit(const controls::ComboBox& combo) {
    QString unit = combo.Text();
    CleanText(unit);
    return unit.startsWith(all) ? QString() : unit;
}

}  // namespace accounts
