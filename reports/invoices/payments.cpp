#include "reports/invoices/payments.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "records/export.h"
#include "records/filter_strip.h"
#include "reports/invoices/invoice_parts.h"
#include "reports/invoices/payment_entry.h"

#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Columns of the list and fields of its statement.
enum Column { Customer, Name, Note, NoteAmount, PaidOn, Paid, Left, Columns };

const QStringList& Headers() {
    static const QStringList headers{u"客户编号"_s, u"客户名称"_s, u"发货单编号"_s, u"发货单金额"_s,
                                     u"付款日期"_s, u"付款金额"_s, u"结余金额"_s};
    return headers;
}

const QString Statement = u"select TD2.F1,TA2.F2,TD2.F2,TD1.F9,TD2.F3,TD2.F4,TD2.F5 "_s +
                          u"from (TD2 left join TA2 on TD2.F1=TA2.F1) left join  TD1 ON TD2.F2=TD1.F1 "_s;

struct SortRow {
    QString caption;
    QString order;
};

const std::array<SortRow, 4>& Sorts() {
    static const std::array<SortRow, 4> sorts{{{u"&1.按付款日期"_s, u"order by TD2.F3"_s},
                                               {u"&2.按客户编号"_s, u"order by TD2.F1"_s},
                                               {u"&3.按付款金额"_s, u"order by TD2.F4"_s},
                                               {u"&4.按发货单编号"_s, u"order by TD2.F2"_s}}};
    return sorts;
}

QString CellOf(const dao::Recordset& rows, int col) {
    const dao::Field field = rows.Fields(col);
    if (col == PaidOn) return invoices::Day(field);
    return col == NoteAmount || col == Paid || col == Left ? invoices::Money(field) : field.Text();
}

}  // namespace

D2::D2() : ChildForm(u"D2"_s, u"客户付款记录"_s), GD(new controls::FlexGrid) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new FilterStrip(*this));
    column->addWidget(GD, 1);
    GD->setObjectName(u"GD"_s);
    GD->setAccessibleName(windowTitle());
    GD->setProperty("edge", u"none"_s);
    GD->SetCols(Columns);
    for (const Column number : {NoteAmount, Paid, Left}) GD->SetColAlignment(number, Qt::AlignRight);
    GD->RowChange = [this] { RowChanged(); };
    SetCommands();
}

void D2::SetCommands() {
    using When = CommandRow::When;
    std::vector<CommandRow> sorts;
    for (std::size_t i = 0; i < Sorts().size(); ++i)
        sorts.push_back({u"Menu_S(%1)"_s.arg(i), Sorts()[i].caption, When::Always,
                         [this, i] { Sort(static_cast<int>(i)); }});
    commands_.Fill(
        MenuBar(),
        {
            {u"Menu_Add"_s, u"&A.付款登记"_s, When::Always,
             [this] {
                 D201 form(window());
                 form.List = this;
                 form.ShowModal();
             }},
            {.name = u"Menu_Sort"_s, .caption = u"&S.排序"_s, .when = When::Always, .items = sorts},
            {u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Always, [this] { ExportGrid(*GD); }},
            {u"Menu_Return"_s, u"&R.返回"_s, When::Always, [this] { Unload(); }},
        });
    for (QAction* item : commands_.Action(u"Menu_Sort"_s).menu()->actions()) item->setCheckable(true);
}

/// In the order of registration, until a sort is chosen.
void D2::Load() {
    LoadGrid({});
}

void D2::Sort(int index) {
    const auto items = commands_.Action(u"Menu_Sort"_s).menu()->actions();
    for (int i = 0; i < items.size(); ++i) items[i]->setChecked(i == index);
    LoadGrid(Sorts()[static_cast<std::size_t>(index)].order);
}

void D2::DressGrid() {
    GD->Clear();
    GD->SetRows(2);
    for (int col = 0; col < Columns; ++col) GD->SetTextMatrix(0, col, Headers()[col]);
    GD->ShareWidths();
}

void D2::LoadGrid(const QString& order) {
    DressGrid();
    auto rows = Db->OpenRecordset(Statement + order);
    RecCount = CountRows(rows);
    GD->BeginLoad(RecCount);
    for (int row = 0; !rows.Eof(); ++row, rows.MoveNext())
        for (int col = 0; col < Columns; ++col) GD->LoadCell(row, col, CellOf(rows, col));
    GD->EndLoad();
    rows.Close();
    CurRow = 1;
    ShowRow();
}

void D2::AddPayment(const QStringList& cells) {
    GD->AddItem(cells.join(u'\t'));
    if (RecCount == 0) GD->RemoveItem(1);
    ++RecCount;
    CurRow = GD->Rows() - 1;
    ShowRow();
}

void D2::RowChanged() {
    CurRow = GD->Row();
    ShowRow();
}

void D2::ShowRow() {
    GD->SetRow(CurRow);
    GD->SetRowSel(CurRow);
    GD->SetCol(0);
    GD->SetColSel(Columns - 1);
    ShowStatus();
}

void D2::ShowStatus() {
    TheFrame().SetPanel(MForm::PositionPanel,
                        RecCount == 0 ? u"无信息"_s
                                      : u"客户付款记录：共 "_s + QString::number(RecCount) +
                                            u" 条记录 当前为第 "_s + QString::number(CurRow) + u" 条"_s);
}
