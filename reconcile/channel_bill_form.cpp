#include "reconcile/channel_bill_form.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/controls/numeric.h"
#include "platform/controls/paint.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "records/filter_strip.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QScopeGuard>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using reconcile::Amount;
using reconcile::BillColumns;
using reconcile::DecimalText;
using reconcile::Line;
using reconcile::Outcome;

namespace {

const QString AllResults = u"所有结果"_s;
const QString NoColumn = u"无"_s;
constexpr int ShownRows = 30;  // of the bill
constexpr int ShownColumns = 30;
constexpr int LeastRows = 8;  // in sight of the upper grids

enum ResultColumn {
    Result,
    BillRow,
    BillNumber,
    Number,
    Forwarding,
    Date,
    OurWeight,
    TheirWeight,
    WeightDifference,
    OurCost,
    TheirCost,
    CostDifference,
    Remark,
    ResultColumns
};

struct Header {
    QString caption;
    int width;  // pixels
};

void Dress(controls::FlexGrid& grid, const QString& name, const QString& spoken) {
    grid.setObjectName(name);
    grid.setAccessibleName(spoken);
    grid.setProperty("edge", u"none"_s);
}

void SetHeaders(controls::FlexGrid& grid, const std::vector<Header>& headers) {
    grid.SetCols(static_cast<int>(headers.size()));
    int col = 0;
    for (const auto& [caption, width] : headers) {
        grid.SetTextMatrix(0, col, caption);
        grid.SetGridColWidth(col++, width * controls::FlexGrid::UnitsPerPixel);
    }
}

const QColor& InkOf(Outcome outcome) {
    using namespace controls::paint;
    switch (outcome) {
        case Outcome::Equal:
            return kMuted;
        case Outcome::Different:
        case Outcome::Twice:
            return kWarning;
        default:
            return kDanger;
    }
}

/// No statement takes an apostrophe, and no channel has one.
bool MayBeChannel(const QString& code) {
    return !code.isEmpty() && !code.contains(u'\'');
}

QString Shown(const Amount& amount) {
    return amount ? DecimalText(*amount) : QString();
}

QStringList CellsOf(const Line& line) {
    const Amount weight = reconcile::Difference(line.ours.weight, line.theirs.weight);
    const Amount cost = reconcile::Difference(line.ours.cost, line.theirs.cost);
    return {WordOf(line.outcome),
            line.billRow < 0 ? QString() : QString::number(line.billRow + 1),
            line.billNumber,
            line.number,
            line.forwarding,
            line.date,
            Shown(line.ours.weight),
            Shown(line.theirs.weight),
            Shown(weight),
            Shown(line.ours.cost),
            Shown(line.theirs.cost),
            Shown(cost),
            line.remark};
}

}  // namespace

ChannelBill::ChannelBill()
    : ChildForm(u"ChannelBill"_s, u"渠道帐单核对"_s),
      GDBill(new controls::FlexGrid),
      GDSum(new controls::FlexGrid),
      GD(new controls::FlexGrid) {
    for (std::size_t i = 0; i < Cmb.size(); ++i) {
        Cmb[i] = new controls::ComboBox;
        if (i != Channel) Cmb[i]->SetItemsOnly();
    }
    for (auto*& box : Txt) box = new controls::LineBox;
    for (const auto number : {FirstRow, WeightTolerance, CostTolerance}) controls::SetNumeric(*Txt[number]);
    MakeResultGrid();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeFileStrip());
    column->addWidget(MakeColumnStrip());
    column->addWidget(MakeUpperGrids());
    column->addWidget(MakeCompareStrip());
    column->addWidget(GD, 1);
    // Return goes from the columns over the tolerances to the comparison; in a grid it would stay.
    setTabOrder(Cmb[Filter], GDBill);
    setTabOrder(GDBill, GDSum);
    using When = CommandRow::When;
    commands_.Fill(MenuBar(),
                   {{u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Always, [this] { ExportGrid(*GD); }},
                    {u"Menu_R"_s, u"&R.返回"_s, When::Always, [this] { Unload(); }}});
}

QWidget* ChannelBill::MakeFileStrip() {
    auto* strip = new FilterStrip(*this);
    strip->Add(u"出货渠道"_s, u"Cmb(0)"_s, Cmb[Channel], 165);
    strip->AddPeriod(DTP);
    Txt[FileName]->SetLocked(true);
    strip->Add(u"帐单文件"_s, u"Txt(0)"_s, Txt[FileName], 160);
    auto* choose = strip->AddButton(u"浏 览"_s, u"Cmd(0)"_s);
    choose->setDefault(false);
    choose->Click = [this] { ChooseFile(); };
    Cmb[Channel]->Click = [this] { ChooseChannel(); };
    Cmb[Channel]->LostFocus = [this] { ChooseChannel(); };
    return strip;
}

QWidget* ChannelBill::MakeColumnStrip() {
    auto* strip = new FilterStrip;
    strip->Add(u"工作表"_s, u"Cmb(1)"_s, Cmb[SheetName], 100);
    strip->Add(u"核对依据"_s, u"Cmb(2)"_s, Cmb[Basis], 90);
    const QString captions[] = {u"单号列"_s, u"重量列"_s, u"费用列"_s};
    for (int i = 0; i < 3; ++i)
        strip->Add(captions[i], u"Cmb(%1)"_s.arg(NumberColumn + i),
                   Cmb[static_cast<std::size_t>(NumberColumn + i)], 114);
    strip->Add(u"数据起始行"_s, u"Txt(1)"_s, Txt[FirstRow], 84);
    for (const auto& basis : {u"运单号"_s, u"转单号"_s}) Cmb[Basis]->AddItem(basis);
    Cmb[Basis]->SetListIndex(0);
    Cmb[SheetName]->Click = [this] {
        if (const int index = Cmb[SheetName]->ListIndex(); bill_ && index != which_) Read(path_, index);
    };
    // The headings are those of the row before.
    Txt[FirstRow]->LostFocus = [this] { FillColumnCombos(); };
    return strip;
}

QWidget* ChannelBill::MakeCompareStrip() {
    auto* strip = new FilterStrip;
    strip->setProperty("edge", u"both"_s);
    strip->Add(u"重量允差(KG)"_s, u"Txt(2)"_s, Txt[WeightTolerance], 84);
    strip->Add(u"费用允差(元)"_s, u"Txt(3)"_s, Txt[CostTolerance], 84);
    CmdCompare = strip->AddButton(u"核 对"_s, u"Cmd(1)"_s);
    CmdCompare->Click = [this] { Compare(); };
    strip->Add(u"　显示"_s, u"Cmb(6)"_s, Cmb[Filter], 120);
    Cmb[Filter]->AddItem(AllResults);
    for (std::size_t i = 0; i < reconcile::kOutcomes; ++i)
        Cmb[Filter]->AddItem(WordOf(static_cast<Outcome>(i)));
    Cmb[Filter]->SetListIndex(0);
    Cmb[Filter]->Click = [this] { ShowResult(); };
    return strip;
}

QWidget* ChannelBill::MakeUpperGrids() {
    Dress(*GDBill, u"GDBill"_s, u"帐单内容"_s);
    Dress(*GDSum, u"GDSum"_s, u"核对合计"_s);
    SetHeaders(*GDSum, {{u"结果"_s, 90},
                        {u"行数"_s, 60},
                        {u"我方重量"_s, 84},
                        {u"帐单重量"_s, 84},
                        {u"我方费用"_s, 92},
                        {u"帐单费用"_s, 92},
                        {u"费用差"_s, 84}});
    for (int col = 1; col < GDSum->Cols(); ++col) GDSum->SetColAlignment(col, Qt::AlignRight);
    GDSum->ShareWidths({10, 7, 10, 10, 11, 11, 10});
    auto* both = new QWidget;
    auto* row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    row->addWidget(GDBill, 4);
    row->addWidget(GDSum, 5);
    both->setFixedHeight(GDSum->HeightOf(LeastRows));
    return both;
}

void ChannelBill::MakeResultGrid() {
    Dress(*GD, u"GD"_s, u"核对结果"_s);
    SetHeaders(*GD, {{u"结果"_s, 76},
                     {u"帐单行"_s, 60},
                     {u"帐单单号"_s, 122},
                     {u"运单号"_s, 122},
                     {u"转单号"_s, 120},
                     {u"日期"_s, 92},
                     {u"我方重量"_s, 76},
                     {u"帐单重量"_s, 76},
                     {u"重量差"_s, 70},
                     {u"我方费用"_s, 92},
                     {u"帐单费用"_s, 92},
                     {u"费用差"_s, 92},
                     {u"说明"_s, 264}});
    for (int col = OurWeight; col <= CostDifference; ++col) GD->SetColAlignment(col, Qt::AlignRight);
    GD->SetColAlignment(BillRow, Qt::AlignRight);
    for (std::size_t i = 0; i < reconcile::kOutcomes; ++i) {
        const auto outcome = static_cast<Outcome>(i);
        GD->SetWordColor(Result, WordOf(outcome), InkOf(outcome));
        GDSum->SetWordColor(Result, WordOf(outcome), InkOf(outcome));
    }
    GD->RowChange = [this] { ShowStatus(); };
}

QWidget* ChannelBill::FirstFocus() const {
    return Cmb[Channel];
}

void ChannelBill::Load() {
    const QDate today = sys::Today();
    const QDate first = today.addDays(1 - today.day()).addMonths(-1);
    DTP[0]->SetValue(first);  // bills come after the month's end
    DTP[1]->SetValue(first.addMonths(1).addDays(-1));
    Txt[FirstRow]->SetText(u"2"_s);
    for (const auto box : {WeightTolerance, CostTolerance}) Txt[box]->SetText(DecimalText(0));
    auto rows = Db->OpenRecordset(u"select F1,F2 from M01 order by F1"_s);
    for (; !rows.Eof(); rows.MoveNext())
        Cmb[Channel]->AddItem(rows.Fields(0).Text() + u'.' + rows.Fields(1).Text());
    rows.Close();
    FillColumnCombos();
    ShowBill();
    ShowSums();
}

// ---------------------------------------------------------------- the bill

void ChannelBill::ChooseFile() {
    const QString path = sys::AskFile({.kind = sys::FileRequest::Kind::Open,
                                       .title = u"选择渠道帐单"_s,
                                       .proposed = {},
                                       .pattern = u"帐单 (*.xls *.xlsx *.csv *.txt)"_s});
    if (path.isEmpty() || !Read(path, 0)) return;
    // Where the columns are known nothing is left to be chosen; guessed ones want a look.
    if (kept_ && Cmb[NumberColumn]->currentIndex() > 0)
        CmdCompare->SetFocus();
    else
        Cmb[NumberColumn]->SetFocus();
}

bool ChannelBill::Read(const QString& path, int which) {
    QString refusal;
    {
        const QString caption = windowTitle();
        const auto restored = qScopeGuard([&] { setWindowTitle(caption); });
        const controls::WaitPointer wait;
        try {
            bill_ = sheet::Read(path, which, [this](int rows) {
                setWindowTitle(u"正在读取第 %1 行"_s.arg(rows));
                controls::ShowProgress();
            });
            path_ = path;
            which_ = which;
        } catch (const RuntimeError& error) {
            refusal = error.Text();
        }
    }
    if (!refusal.isEmpty()) {
        if (bill_ && bill_->names.size() > which_) Cmb[SheetName]->setCurrentIndex(which_);
        sys::Inform(refusal, MsgTitle);
        return false;
    }
    Txt[FileName]->SetText(QFileInfo(path).fileName());
    Txt[FileName]->setToolTip(path);
    Cmb[SheetName]->Clear();
    for (const QString& name : bill_->names) Cmb[SheetName]->AddItem(name);
    Cmb[SheetName]->setCurrentIndex(bill_->names.isEmpty() ? -1 : which_);
    EmptyResult();
    ChooseColumns();
    ShowBill();
    ShowStatus();
    return true;
}

void ChannelBill::ChooseChannel() {
    if (channel_ == ChannelCode()) return;
    channel_ = ChannelCode();
    EmptyResult();
    ChooseColumns();
    ShowStatus();
}

/// What is kept for the channel, or else what the headings say.
void ChannelBill::ChooseColumns() {
    if (!bill_) return;
    const QString code = ChannelCode();
    const BillColumns columns =
        MayBeChannel(code) ? reconcile::ColumnsFor(*Db, code, *bill_) : reconcile::Guess(*bill_);
    kept_ = columns.kept;
    Txt[FirstRow]->SetText(QString::number(columns.firstRow + 1));
    FillColumnCombos();
    Cmb[Basis]->setCurrentIndex(columns.byForwarding ? 1 : 0);
    Cmb[NumberColumn]->setCurrentIndex(columns.number + 1);
    Cmb[WeightColumn]->setCurrentIndex(columns.weight + 1);
    Cmb[CostColumn]->setCurrentIndex(columns.cost + 1);
    Txt[WeightTolerance]->SetText(DecimalText(columns.weightTolerance));
    Txt[CostTolerance]->SetText(DecimalText(columns.costTolerance));
}

/// The chosen columns stay chosen.
void ChannelBill::FillColumnCombos() {
    int columns = 0;
    if (bill_)
        for (const QStringList& row : bill_->rows) columns = std::max(columns, static_cast<int>(row.size()));
    const int firstRow = std::max(0, ChosenFirstRow());
    for (const auto combo : {NumberColumn, WeightColumn, CostColumn}) {
        const int chosen = std::max(0, Cmb[combo]->currentIndex());
        Cmb[combo]->Clear();
        Cmb[combo]->AddItem(NoColumn);
        for (int col = 0; col < columns; ++col)
            Cmb[combo]->AddItem(
                (sheet::ColumnName(col) + u' ' + reconcile::HeadingOf(*bill_, firstRow, col)).trimmed());
        Cmb[combo]->setCurrentIndex(std::min(chosen, columns));
    }
}

void ChannelBill::ShowBill() {
    const int rows = bill_ ? std::min(ShownRows, static_cast<int>(bill_->rows.size())) : 0;
    int columns = 0;
    for (int row = 0; row < rows; ++row)
        columns = std::max(columns, static_cast<int>(bill_->rows[static_cast<std::size_t>(row)].size()));
    columns = std::min(columns, ShownColumns);
    std::vector<Header> headers = {{u"行"_s, 40}};
    for (int col = 0; col < columns; ++col) headers.push_back({sheet::ColumnName(col), 110});
    GDBill->Clear();
    SetHeaders(*GDBill, headers);
    GDBill->BeginLoad(rows);
    for (int row = 0; row < rows; ++row) {
        GDBill->LoadCell(row, 0, QString::number(row + 1));
        for (int col = 0; col < columns; ++col) GDBill->LoadCell(row, col + 1, bill_->At(row, col));
    }
    GDBill->EndLoad();
}

// ---------------------------------------------------------------- the comparison

QString ChannelBill::ChannelCode() const {
    return CodePart(Cmb[Channel]->Text());
}

/// From 0; -1 for a text that is no row.
int ChannelBill::ChosenFirstRow() const {
    bool good = false;
    const int row = text::Trim(Txt[FirstRow]->Text()).toInt(&good);
    return good && row >= 1 && row <= sheet::kMostRows ? row - 1 : -1;
}

std::optional<BillColumns> ChannelBill::Chosen() const {
    const auto refuse = [](const QString& why) {
        sys::Inform(why, MsgTitle);
        return std::nullopt;
    };
    if (ChannelCode().isEmpty()) return refuse(u"请选择渠道!"_s);
    if (!MayBeChannel(ChannelCode()) || NameOf(u"M01"_s, ChannelCode()).isEmpty())
        return refuse(u"您输入的渠道编码无效！"_s);
    if (!bill_) return refuse(u"请选择帐单文件!"_s);
    if (DTP[0]->Value() > DTP[1]->Value()) return refuse(u"起始日期晚于截止日期!"_s);
    const Amount weight = reconcile::ReadDecimal(Txt[WeightTolerance]->Text());
    const Amount cost = reconcile::ReadDecimal(Txt[CostTolerance]->Text());
    if (!weight || *weight < 0) return refuse(u"重量允差应为不小于 0 的数字!"_s);
    if (!cost || *cost < 0) return refuse(u"费用允差应为不小于 0 的数字!"_s);
    const BillColumns columns{.byForwarding = Cmb[Basis]->currentIndex() == 1,
                              .number = Cmb[NumberColumn]->currentIndex() - 1,
                              .weight = Cmb[WeightColumn]->currentIndex() - 1,
                              .cost = Cmb[CostColumn]->currentIndex() - 1,
                              .firstRow = ChosenFirstRow(),
                              .weightTolerance = *weight,
                              .costTolerance = *cost};
    if (columns.firstRow < 0 || columns.firstRow >= static_cast<int>(bill_->rows.size()))
        return refuse(u"数据起始行应为 1 到 %1 的整数!"_s.arg(bill_->rows.size()));
    if (columns.number < 0) return refuse(u"请选择单号列!"_s);
    if (columns.weight < 0 && columns.cost < 0) return refuse(u"请选择重量列或费用列!"_s);
    return columns;
}

void ChannelBill::Compare() {
    const auto columns = Chosen();
    if (!columns) return;
    const QString caption = windowTitle();
    const auto restored = qScopeGuard([&] { setWindowTitle(caption); });
    const controls::WaitPointer wait;
    setWindowTitle(u"正在核对"_s);
    controls::ShowProgress();
    const auto ours = reconcile::WaybillsOf(*Db, ChannelCode(), DTP[0]->Value(), DTP[1]->Value());
    result_ = reconcile::Compare(*bill_, *columns, ours);
    reconcile::RemarkElsewhere(*Db, *result_, columns->byForwarding);
    reconcile::Keep(*Db, ChannelCode(), *columns, *bill_);
    ShowSums();
    ShowResult();
}

void ChannelBill::EmptyResult() {
    result_.reset();
    ShowSums();
    ShowResult();
}

void ChannelBill::ShowResult() {
    std::vector<const Line*> shown;
    const QString wanted = Cmb[Filter]->Text();
    if (result_)
        for (const Line& line : result_->lines)
            if (wanted == AllResults || wanted == WordOf(line.outcome)) shown.push_back(&line);
    GD->BeginLoad(static_cast<int>(shown.size()));
    for (std::size_t row = 0; row < shown.size(); ++row) {
        const QStringList cells = CellsOf(*shown[row]);
        for (int col = 0; col < ResultColumns; ++col) GD->LoadCell(static_cast<int>(row), col, cells[col]);
    }
    GD->EndLoad();
    ShowStatus();
}

void ChannelBill::ShowSums() {
    const auto all = result_ ? result_->SumsOf() : std::array<reconcile::Sums, reconcile::kOutcomes>{};
    reconcile::Sums total;
    GDSum->BeginLoad(static_cast<int>(reconcile::kOutcomes) + 1);
    // Of a column that is not compared the bill has no amounts.
    const bool weight = !result_ || result_->weight, cost = !result_ || result_->cost;
    const auto load = [&](int row, const QString& word, const reconcile::Sums& sums) {
        const QStringList cells = {word,
                                   QString::number(sums.lines),
                                   Shown(sums.ourWeight.Value()),
                                   weight ? Shown(sums.theirWeight.Value()) : QString(),
                                   Shown(sums.ourCost.Value()),
                                   cost ? Shown(sums.theirCost.Value()) : QString(),
                                   cost ? Shown(sums.costDifference.Value()) : QString()};
        for (int col = 0; col < cells.size(); ++col) GDSum->LoadCell(row, col, cells[col]);
    };
    int row = 0;
    for (const reconcile::Sums& sums : all) {
        load(row, WordOf(static_cast<Outcome>(row)), sums);
        total += sums;
        ++row;
    }
    load(row, u"合计"_s, total);
    GDSum->EndLoad();
    GDSum->SetRowStyle(row + 1, 0, controls::paint::kTotal, true);
}

void ChannelBill::ShowStatus() {
    if (TheFrame().Front() != this) return;  // a combo loses the focus to another form
    QString status = u"请选择渠道和帐单文件之后核对"_s;
    if (result_) {
        const bool empty = GD->TextMatrix(1, Result).isEmpty();
        status =
            u"核对结果：共 %1 行 当前为第 %2 行"_s.arg(empty ? 0 : GD->Rows() - 1).arg(empty ? 0 : GD->Row());
        if (result_->passedOver > 0) status += u" 帐单中略过 %1 行合计和空行"_s.arg(result_->passedOver);
        if (result_->unnumbered > 0) status += u" 没有单号的 %1 行不计入合计"_s.arg(result_->unnumbered);
    } else if (bill_) {
        status = u"帐单：共 %1 行"_s.arg(bill_->rows.size());
        if (bill_->names.size() > 1)
            status += u" 共 %1 个工作表，当前为“%2”"_s.arg(QString::number(bill_->names.size()),
                                                           bill_->names.value(which_));
        if (bill_->hidden > 0) status += u" 另有 %1 个隐藏的工作表"_s.arg(bill_->hidden);
        if (bill_->reports > 0) status += u" 有 %1 个单元格无法读取"_s.arg(bill_->reports);
    }
    TheFrame().SetPanel(MForm::PositionPanel, status);
}
