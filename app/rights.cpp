#include "app/rights.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/product.h"
#include "app/session.h"

#include <QString>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

struct Right {
    QStringView field;
    QStringView menu;     ///< the top menu to show or hide; empty if `flag` is set
    bool* flag;           ///< the session flag to set; null if `menu` is set
    bool administrators;  ///< also granted when the administrator logs in
};

// Required by the business: when the administrator logs in after another operator, Menu_wanglai keeps the
// visibility that operator had. CanEditLedger is already true for the administrator: ApplyRights() sets it.
const Right kRights[] = {
    {u"F60", u"Menu_A", nullptr, true},        {u"F61", u"Menu_b", nullptr, true},
    {u"F62", u"Menu_C", nullptr, true},        {u"F63", u"Menu_S", nullptr, true},
    {u"F67", u"Menu_wanglai", nullptr, false}, {u"F64", {}, &CanEditReleased, true},
    {u"F65", {}, &CanSeeFigures, true},        {u"F66", {}, &CanEditLedger, false},
};

void Apply(const Right& right, bool granted) {
    if (right.flag)
        *right.flag = granted;
    else
        TheFrame().SetMenuVisible(right.menu.toString(), granted);
}

void ShowCompany() {
    auto rows = Db->OpenRecordset(u"select F1 from CompanyInfo"_s);
    const QString company = rows.Eof() ? QString() : rows.Fields(0).Text();
    rows.Close();
    if (!company.isEmpty()) TheFrame().setWindowTitle(product::kName + u"  "_s + company);
}

void ApplyRow() {
    auto row = Db->OpenRecordset(u"select F60,F61,F62,F63,F64,F65,F66,F67 FROM TE1 WHERE F1="_s +
                                 Quoted(OperatorCode));
    if (!row.Eof())
        for (const Right& right : kRights) Apply(right, row.Fields(right.field).Number() != 0);
    row.Close();
}

}  // namespace

void ApplyRights() {
    ShowCompany();
    CanEditLedger = true;
    if (!IsAdministrator()) return ApplyRow();
    for (const Right& right : kRights)
        if (right.administrators) Apply(right, true);
}
