#include "tariffs/zone_drop_down.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/text/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Width = 576;
constexpr int ShownRows = 10;  // before it scrolls

enum Column { CodeColumn, NameColumn };

}  // namespace

ZoneDropDown::ZoneDropDown(QWidget* form, const QWidget* box) : FlexGrid(form), box_(box) {
    setObjectName(u"GdDownList"_s);
    setAccessibleName(u"区域"_s);
    SetFramed(true);
    SetCols(3);
    Fit(ShownRows);
    hide();
}

int ZoneDropDown::Fill(const QString& beginning) {
    const QStringList headers{u"区域编码"_s, u"区域名称"_s, u"英文名称"_s};
    auto zones = Db->OpenRecordset(u"select M02.F1,M02.F2,M02.F4 from M02  WHERE M02.F1 LIKE "_s +
                                   Quoted(beginning + u'*') + u" order by M02.F1"_s);
    const int found = CountRows(zones);
    Clear();
    for (int col = 0; col < headers.size(); ++col) SetTextMatrix(0, col, headers[col]);
    ShareWidths();
    BeginLoad(found);
    for (int row = 0; row < found; ++row, zones.MoveNext())
        for (int col = 0; col < headers.size(); ++col) LoadCell(row, col, zones.Fields(col).Text());
    EndLoad();
    Fit(found);
    zones.Close();
    return found;
}

void ZoneDropDown::Open() {
    Place();
    show();
    raise();
    SetFocus();
}

/// As high as its rows; an empty one keeps the blank row of an empty grid.
void ZoneDropDown::Fit(int rows) {
    resize(Width, HeightOf(std::clamp(rows, 1, ShownRows)));
}

/// Under its text box, or above it where the panel is folded at the foot of the form.
void ZoneDropDown::Place() {
    const QWidget* form = parentWidget();
    const QPoint below = box_->mapTo(form, QPoint(0, box_->height() + 2));
    const QPoint above = box_->mapTo(form, QPoint(0, -2 - height()));
    const bool fits = below.y() + height() <= form->height();
    move(fits || above.y() < 0 ? below : above);
}

QString ZoneDropDown::Code() const {
    return text::Trim(TextMatrix(Row(), CodeColumn));
}

QString ZoneDropDown::Name() const {
    return text::Trim(TextMatrix(Row(), NameColumn));
}
