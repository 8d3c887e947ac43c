#include "waybills/unreleased.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/numeric.h"
#include "platform/controls/paint.h"
#include "platform/controls/wait.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "records/filter_strip.h"
#include "reports/printing.h"
#include "reports/report_rows.h"
#include "waybills/waybill_form.h"

#include <QScopeGuard>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString ListLayout = u"prntunrel.rpt"_s;
constexpr int LongestPeriod = 4;  // digits of the days

enum Column { Number, SendDate, Customer, Consignee, Channel, Weight, Mark, Missing, Columns };
constexpr int Shares[Columns] = {14, 10, 20, 26, 14, 8, 8, 18};

// Behind the columns that are shown, the fields that say what is missing.
enum Field { ChannelRow = Missing, ChannelZone, Cost };

QString Statement(int days) {
    return u"select B01.F1,B01.F101,M03.F2,B01.F2061,M01.F2,B01.F402,B01.F604,M01.F1,B01.F2021,B01.F507 "
           u"FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1)  left join M01 on M01.F1=B01.F202 "
           u"where (B01.F604='"_s +
           waybills::NotChecked + u"' or B01.F604='"_s + waybills::NotShipped + u"') and datediff('d',"_s +
           Quoted(text::DateText(sys::Today().addDays(-days))) + u",B01.F101) >= 0 order by B01.F101"_s;
}

/// Zone and cost are figures of the card: who may not see figures does not learn which are there.
QString MissingOf(const dao::Recordset& row) {
    QStringList missing;
    if (text::Trim(row.Fields(ChannelRow).Text()).isEmpty()) missing += u"渠道"_s;
    if (CanSeeFigures) {
        if (text::Trim(row.Fields(ChannelZone).Text()).isEmpty()) missing += u"区域"_s;
        if (row.Fields(Cost).IsNull() || row.Fields(Cost).Number() == 0) missing += u"成本"_s;
    }
    return missing.join(u'、');
}

}  // namespace

Unreleased::Unreleased()
    : ChildForm(u"Unreleased"_s, u"未出货、未审核"_s),
      Txt(new controls::LineBox),
      GD(new controls::FlexGrid) {
    MakeList();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(GD, 1);
    using When = CommandRow::When;
    commands_.Fill(MenuBar(),
                   {{u"Menu_Open"_s, u"&O.打开速递单"_s, When::Always, [this] { OpenWaybill(); }},
                    {u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Always, [this] { ExportGrid(*GD); }},
                    {u"Menu_P"_s, u"&P.打印"_s, When::Always, [this] { Print(); }},
                    {u"Menu_Return"_s, u"&R.返回"_s, When::Always, [this] { Unload(); }}});
}

QWidget* Unreleased::MakeStrip() {
    auto* strip = new FilterStrip(*this);
    strip->Add(u"最近天数"_s, u"Txt(0)"_s, Txt, FilterStrip::kDateWidth);
    Txt->SetMaxLength(LongestPeriod);
    controls::SetNumeric(*Txt);
    strip->AddButton(u"刷新数据"_s)->Click = [this] { Refresh(); };
    return strip;
}

void Unreleased::MakeList() {
    const QStringList headers{u"速递单号"_s, u"寄件日期"_s, u"发件客户"_s, u"收件人"_s,
                              u"出货渠道"_s, u"收重(KG)"_s, u"出货审核"_s, u"还缺"_s};
    GD->setObjectName(u"GD"_s);
    GD->setAccessibleName(windowTitle());
    GD->setProperty("edge", u"none"_s);
    GD->SetCols(Columns);
    for (int col = 0; col < Columns; ++col) GD->SetTextMatrix(0, col, headers[col]);
    GD->ShareWidths({std::begin(Shares), std::end(Shares)});
    GD->SetColAlignment(Weight, Qt::AlignRight | Qt::AlignVCenter);
    GD->SetWordColor(Mark, waybills::NotChecked, controls::paint::kWarning);
    GD->SetWordColor(Mark, waybills::NotShipped, controls::paint::kDanger);
    GD->RowChange = [this] { ShowStatus(); };
    GD->DoubleClick = [this] { OpenWaybill(); };
    GD->KeyPressed = [this](controls::KeyPress& key) {
        if (!key.IsFirstEnter()) return;
        key.taken = true;
        OpenWaybill();
    };
}

void Unreleased::Load() {
    Txt->SetText(QString::number(days_));
}

/// A waybill that was opened from here may be released by now.
void Unreleased::Activated() {
    const int before = qMax(1, GD->Row());
    const QString chosen = GD->TextMatrix(before, Number);
    List();
    const int row = chosen.isEmpty() ? 0 : GD->RowOf(Number, chosen, before);
    if (row > 0) GD->SetRow(row);
}

int Unreleased::DaysBack() const {
    const int days = text::Trim(Txt->Text()).toInt();
    if (days > 0) return days;
    sys::Inform(u"请输入最近天数!"_s, MsgTitle);
    return 0;
}

void Unreleased::Refresh() {
    const int days = DaysBack();
    if (days == 0) return;
    days_ = days;
    List();
}

void Unreleased::List() {
    const controls::WaitPointer wait;
    auto rows = Db->OpenRecordset(Statement(days_));
    Fill(rows);
    rows.Close();
    ShowStatus();
}

void Unreleased::Fill(dao::Recordset& rows) {
    RecCount = CountRows(rows);
    GD->BeginLoad(RecCount);
    const auto loaded = qScopeGuard([this] { GD->EndLoad(); });
    for (int row = 0; row < RecCount; ++row, rows.MoveNext()) {
        for (int col = 0; col < Missing; ++col) GD->LoadCell(row, col, rows.Fields(col).Text());
        GD->LoadCell(row, Missing, MissingOf(rows));
    }
}

void Unreleased::ShowStatus() {
    TheFrame().SetPanel(MForm::PositionPanel,
                        RecCount == 0
                            ? u"未出货、未审核：无单据信息"_s
                            : u"未出货、未审核：共 %1 条记录 当前为第 %2 条"_s.arg(RecCount).arg(GD->Row()));
}

void Unreleased::OpenWaybill() {
    const QString number = GD->TextMatrix(qMax(1, GD->Row()), Number);
    if (number.isEmpty() || WarnOfEdit()) return;
    dynamic_cast<B01&>(TheFrame().ShowChild(u"B01"_s)).ShowWaybill(number);
}

/// The list as it is shown. The work table is that of the monthly table.
void Unreleased::Print() {
    if (RecCount == 0) return sys::Inform(u"无数据可打印"_s, MsgTitle);
    if (!LayoutIsThere(ListLayout, u"丢失!"_s)) return;
    const controls::WaitPointer wait;
    const reports::WorkTable work{
        .name = u"PRNTC04"_s,
        .insert = u"insert into PRNTC04 (F1,F2,F3,F4,F5,F6,F7,F8) VALUES("_s,
        .columns = {Number, SendDate, Customer, Consignee, Channel, Weight, Mark, Missing}};
    int unchecked = 0;
    reports::FillWorkTable(*Db, work, RecCount, [&](int row, int col) {
        QString cell = GD->TextMatrix(row + 1, col);
        if (col == Mark && cell == waybills::NotChecked) ++unchecked;
        return CleanText(cell);  // an apostrophe would break the insert
    });
    RunReport(ListLayout, {u"TJ='最近 %1 天，未审核 %2 票，未出货 %3 票'"_s.arg(days_).arg(unchecked).arg(
                              RecCount - unchecked)});
}
