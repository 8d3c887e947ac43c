#include "reports/invoices/sales.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/paint.h"
#include "platform/controls/wait.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "records/filter_strip.h"
#include "reports/invoices/invoice_parts.h"
#include "reports/printing.h"

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int CustomerWidth = 260;

const QString allCustomers = u"所有客户"_s;
const QString total = u"合  计"_s;  // the last line is never inserted, so it may say so

/// Columns of the list and fields of its statement.
enum Column { Customer, Name, Note, Date, Amount, Paid, Open, Columns };

const QStringList& Headers() {
    static const QStringList headers{u"客户编号"_s, u"客户名称"_s, u"发货单号码"_s, u"发货单日期"_s,
                                     u"金额(元)"_s, u"付款(元)"_s, u"欠款(元)"_s};
    return headers;
}

const QString Statement =
    u"SELECT TD1.F3,TA2.F2,TD1.F1,TD1.F2,TD1.F9,TD1.F91,TD1.F9-TD1.F91 AS SL FROM TD1 LEFT JOIN TA2 ON TD1.F3=TA2.F1 "_s;
const QString Order = u"order by TD1.F3,TD1.F2,TD1.F1"_s;

/// The amounts as the list shows them, so that what is printed adds up.
class Sums {
  public:
    void Add(const QStringList& line) {
        for (std::size_t i = 0; i < sums_.size(); ++i)
            sums_[i] += text::Val(line[Amount + static_cast<int>(i)]);
    }
    QStringList Line(const QString& word = {}) const {
        QStringList line{word, {}, {}, {}};
        for (const double sum : sums_) line += text::GeneralText(sum);
        return line;
    }

  private:
    std::array<double, Columns - Amount> sums_{};
};

/// A null counts as 0, or the insert of its line would fail.
QStringList LineOf(const dao::Recordset& rows) {
    QStringList line;
    for (const Column col : {Customer, Name, Note}) line += rows.Fields(col).Text();
    line += invoices::Day(rows.Fields(Date));
    for (const Column col : {Amount, Paid, Open}) line += text::GeneralText(rows.Fields(col).Number());
    return line;
}

QString FieldOf(const QString& field, const QString& customer) {
    return GetStr(u"select "_s + field + u" from TA2 where F1="_s + Quoted(customer));
}

}  // namespace

D3::D3() : ChildForm(u"D3"_s, u"销售统计报表"_s), GD(new controls::FlexGrid) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(GD, 1);
    GD->setObjectName(u"GD"_s);
    GD->setAccessibleName(windowTitle());
    GD->setProperty("edge", u"none"_s);
    GD->SetCols(Columns);
    for (int col = Amount; col < Columns; ++col) GD->SetColAlignment(col, Qt::AlignRight);
    GD->RowChange = [this] { ShowStatus(); };
    SetCommands();
}

void D3::SetCommands() {
    using When = CommandRow::When;
    commands_.Fill(MenuBar(),
                   {{u"Menu_print"_s, u"&P.打印报表"_s, When::Always, [this] { Menu_print(); }},
                    {u"Menu_print2"_s, u"&M.打印客户月结单"_s, When::Always, [this] { Menu_print2(); }},
                    {u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Always, [this] { ExportGrid(*GD); }},
                    {u"Menu_Return"_s, u"&R.返回"_s, When::Always, [this] { Unload(); }}});
}

QWidget* D3::MakeStrip() {
    auto* strip = new FilterStrip(*this);
    CmbKH = new controls::ComboBox;
    strip->Add(u"客户"_s, u"CmbKH"_s, CmbKH, CustomerWidth);
    strip->AddPeriod(DTP);
    Cmd = strip->AddButton(u"生成报表"_s);
    Cmd->Click = [this] { Generate(); };
    return strip;
}

/// From the first of the month.
void D3::Load() {
    const QDate today = sys::Today();
    DTP[0]->SetValue(today.addDays(1 - today.day()));
    DTP[1]->SetValue(today);
    CmbKH->AddItem(allCustomers);
    invoices::AddCustomers(*CmbKH);
    CmbKH->SetListIndex(0);
    Build({});
}

/// The list is read before it is narrowed down.
void D3::Activated() {
    if (!std::exchange(shown_, true)) GD->SetFocus();
    ShowStatus();
}

// ---------------------------------------------------------------- the list

void D3::Generate() {
    QString condition;
    if (CmbKH->Text() != allCustomers) {
        const QString code = CodePart(CmbKH->Text());
        if (NameOf(u"TA2"_s, code).isEmpty()) {
            sys::Inform(u"客户编号输入错误!"_s, MsgTitle);
            return CmbKH->SetFocus();
        }
        condition = u" and TD1.F3 ="_s + Quoted(code) + u' ';
    }
    Build(condition);
}

void D3::Build(const QString& condition) {
    const controls::WaitPointer wait;
    for (std::size_t i = 0; i < DTP.size(); ++i) period_[i] = text::DateText(DTP[i]->Value());
    auto rows = Db->OpenRecordset(Statement + u"where datediff('d',"_s + Quoted(period_[0]) +
                                  u",TD1.F2)>=0 and datediff('d',"_s + Quoted(period_[1]) +
                                  u",TD1.F2)<=0 "_s + condition + Order);
    std::vector<QStringList> lines;
    Sums all;
    notes_.clear();
    const auto add = [&](const QStringList& line, bool note) {
        lines.push_back(line);
        notes_.push_back(note);
    };
    while (!rows.Eof()) {
        const QString customer = rows.Fields(Customer).Text();
        Sums sums;
        for (; !rows.Eof() && rows.Fields(Customer).Text() == customer; rows.MoveNext()) {
            add(LineOf(rows), true);
            sums.Add(lines.back());
        }
        add(sums.Line(), false);
        all.Add(lines.back());
    }
    if (!lines.empty()) add(all.Line(total), false);
    rows.Close();
    ShowLines(lines);
}

void D3::DressGrid() {
    GD->Clear();
    GD->SetRows(2);
    for (int col = 0; col < Columns; ++col) GD->SetTextMatrix(0, col, Headers()[col]);
    GD->ShareWidths();
}

void D3::ShowLines(const std::vector<QStringList>& lines) {
    DressGrid();
    const int count = static_cast<int>(lines.size());
    GD->BeginLoad(count);
    for (int line = 0; line < count; ++line)
        for (int col = 0; col < Columns; ++col)
            GD->LoadCell(line, col, lines[static_cast<std::size_t>(line)][col]);
    GD->EndLoad();
    for (int row = 1; row <= count; ++row) {
        if (IsNote(row)) continue;
        for (int col = row == count ? Customer : Amount; col < Columns; ++col) {
            GD->SetCellColor(row, col, controls::paint::kTotal);
            GD->SetCellBold(row, col, true);
        }
    }
    ShowStatus();
}

bool D3::IsNote(int row) const {
    return row >= 1 && row <= static_cast<int>(notes_.size()) && notes_[static_cast<std::size_t>(row - 1)];
}

int D3::CountNotes(int lastRow) const {
    int count = 0;
    for (int row = 1; row <= lastRow; ++row) count += IsNote(row);
    return count;
}

int D3::CustomerRow() const {
    int row = std::max(GD->Row(), 1);
    while (row > 1 && !IsNote(row)) --row;
    return row;
}

/// Notes are counted, sums are not.
void D3::ShowStatus() {
    TheFrame().SetPanel(MForm::PositionPanel,
                        notes_.empty()
                            ? u"无信息"_s
                            : u"销售统计报表：共 "_s + QString::number(CountNotes(GD->Rows() - 1)) +
                                  u" 条记录 当前为第 "_s + QString::number(CountNotes(GD->Row())) + u" 条"_s);
}

// ---------------------------------------------------------------- the papers

QString D3::InsertOf(int row) const {
    QStringList values;
    for (int col = 0; col < Columns; ++col)
        values += col < Amount ? Quoted(GD->TextMatrix(row, col)) : GD->TextMatrix(row, col);
    return u"Insert into PRTB2 (F0,F1,F3,F2,F6,F7,F8) VALUES("_s + values.join(u',') + u')';
}

QString D3::Period() const {
    return Formula(u"rq"_s, u"日期由  "_s + period_[0] + u"  至  "_s + period_[1]);
}

/// The sums go along; the layout passes over them and adds up itself.
void D3::Menu_print() {
    const QString layout = u"prntd3.rpt"_s;
    if (notes_.empty()) return sys::Inform(u"无数据！"_s, MsgTitle);
    const controls::WaitPointer wait;
    if (!LayoutIsThere(layout, u"丢失！"_s)) return;
    Db->Execute(u"delete from PRTB2"_s);
    for (int row = 1; row < GD->Rows() - 1; ++row) Db->Execute(InsertOf(row));
    RunReport(layout, {Formula(u"myName"_s, GetStr(u"select F1 from CompanyInfo"_s)),
                       Formula(u"Cpt"_s, u"销售帐款统计报表"_s), Period(), Formula(u"kh"_s, u"客户"_s),
                       Formula(u"khmc"_s, u"名称"_s), Formula(u"fpdh"_s, u"发货单号"_s),
                       Formula(u"fprq"_s, u"发货日期"_s), Formula(u"ymhkd"_s, u"金额(元)"_s),
                       Formula(u"fkhkd"_s, u"付款(元)"_s), Formula(u"jyhkd"_s, u"欠款(元)"_s),
                       Formula(u"gong"_s, u"共："_s)});
}

/// What is settled stays off it.
void D3::Menu_print2() {
    const QString layout = u"prntd4.rpt"_s;
    if (notes_.empty()) return sys::Inform(u"无数据可打印！"_s, MsgTitle);
    const controls::WaitPointer wait;
    if (!LayoutIsThere(layout, u"丢失！"_s)) return;
    const QString code = GD->TextMatrix(CustomerRow(), Customer), name = GD->TextMatrix(CustomerRow(), Name);
    Db->Execute(u"delete from PRTB2"_s);
    for (int row = 1; row < GD->Rows() - 1; ++row)
        if (GD->TextMatrix(row, Customer) == code && text::Val(GD->TextMatrix(row, Open)) > 0)
            Db->Execute(InsertOf(row));
    RunReport(
        layout,
        {Formula(u"Cpt"_s, u"客户月结单"_s), Formula(u"myName"_s, GetStr(u"select F1 from CompanyInfo"_s)),
         Period(), Formula(u"khbm"_s, u"客户编码： "_s + code + u"   "_s + name),
         Formula(u"addr"_s, u"地址    ： "_s + FieldOf(u"F3"_s, code)),
         Formula(u"tel"_s, u"电话    ： "_s + FieldOf(u"F4"_s, code)),
         Formula(u"fax"_s, u"传真    ： "_s + FieldOf(u"F5"_s, code)), Formula(u"zly"_s, u"只打印剩余帐项"_s),
         Formula(u"yjrq"_s, u"月结日期："_s), Formula(u"yjrqjz"_s, u"预缴日期截至："_s),
         Formula(u"fpdh"_s, u"发货单号"_s), Formula(u"fprq"_s, u"发货日期："_s),
         Formula(u"ymhkd"_s, u"金额(元)"_s), Formula(u"fkhkd"_s, u"付款(元)"_s),
         Formula(u"jyhkd"_s, u"欠款(元)"_s), Formula(u"gong"_s, u"共："_s)});
}
