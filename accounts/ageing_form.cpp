#include "accounts/ageing_form.h"

#include "accounts/ageing_bar.h"
#include "accounts/ledger_form.h"
#include "accounts/unit_choice.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/numeric.h"
#include "platform/controls/paint.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "records/filter_strip.h"

#include <QAction>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;
using namespace accounts;

namespace {

enum Column {
    Name,
    Balance,
    FirstBucket,
    LastBucket = FirstBucket + static_cast<int>(AgeBuckets) - 1,
    Prepaid,
    Difference,
    Bar,
    Oldest,
    Overdue,
    Telephone,
    Columns
};

/// Of the grid's width, in pixels at 1366.
const std::vector<int> Shares = {170, 110, 96, 96, 96, 96, 96, 90, 80, 150, 92, 104, 110};

constexpr int SideWidth = 90;
constexpr int DaysWidth = 92;
constexpr int UnitWidth = 180;
constexpr int MostDays = 9999;

const QString Receivables = u"应收"_s;
const QString Payables = u"应付"_s;

QString BucketCaption(std::size_t bucket) {
    if (bucket == AgeBuckets - 1) return QString::number(LastDayOfBucket.back()) + u"天以上"_s;
    const int first = bucket == 0 ? 0 : LastDayOfBucket[bucket - 1] + 1;
    return u"%1-%2天"_s.arg(first).arg(LastDayOfBucket[bucket]);
}

QString Share(Cents part, Cents whole) {
    return text::FormatFixed(static_cast<double>(part) * 100 / static_cast<double>(whole), 1);
}

/// As the bar takes them.
QString BucketShares(const AgeingLine& line) {
    const Cents open = line.Open();
    QStringList shares;
    if (open > 0)
        for (const Cents bucket : line.buckets) shares += Share(bucket, open);
    return shares.join(u' ');
}

/// The amounts of a line in their columns.
std::array<std::pair<int, Cents>, AgeBuckets + 4> AmountsOf(const AgeingLine& line) {
    std::array<std::pair<int, Cents>, AgeBuckets + 4> amounts;
    for (std::size_t i = 0; i < AgeBuckets; ++i)
        amounts[i] = {FirstBucket + static_cast<int>(i), line.buckets[i]};
    amounts[AgeBuckets] = {Balance, line.balance};
    amounts[AgeBuckets + 1] = {Prepaid, line.prepaid};
    amounts[AgeBuckets + 2] = {Difference, line.difference};
    amounts[AgeBuckets + 3] = {Overdue, line.overdue};
    return amounts;
}

}  // namespace

Ageing::Ageing()
    : ChildForm(u"Ageing"_s, u"帐龄分析"_s),
      CmbSide(new controls::ComboBox),
      Cmb(new controls::ComboBox),
      DTP(new controls::DTPicker),
      Txt(new controls::LineBox),
      Chk(new controls::CheckBox(u"只看逾期"_s)),
      GD(new controls::FlexGrid) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(GD, 1);
    MakeGrid();
    SetCommands();
}

// ---------------------------------------------------------------- building

QWidget* Ageing::MakeStrip() {
    auto* strip = new FilterStrip(*this);
    CmbSide->SetItemsOnly();
    strip->Add(u"方向"_s, u"Cmb(0)"_s, CmbSide, SideWidth);
    strip->Add(u"关系单位"_s, u"Cmb(1)"_s, Cmb, UnitWidth);
    strip->Add(u"截止"_s, u"DTP"_s, DTP, FilterStrip::kDateWidth);
    Txt->SetMaxLength(4);
    controls::SetNumeric(*Txt);
    strip->Add(u"逾期天数"_s, u"Txt(0)"_s, Txt, DaysWidth);
    strip->AddCheck(u"Chk(0)"_s, Chk);
    Cmd = strip->AddButton(u"生成报表"_s);
    CmbSide->Click = [this] { FillUnits(*Cmb, u"关系单位"_s, Payable()); };
    Chk->Click = [this] { ShowLines(); };
    Cmd->Click = [this] { Generate(); };
    return strip;
}

void Ageing::MakeGrid() {
    GD->setObjectName(u"GD"_s);
    GD->setAccessibleName(windowTitle());
    GD->setProperty("edge", u"none"_s);
    GD->SetCols(Columns);
    for (const auto& [col, amount] : AmountsOf({})) GD->SetColAlignment(col, Qt::AlignRight);
    GD->SetColAlignment(Oldest, Qt::AlignHCenter);
    GD->setItemDelegateForColumn(Bar, new AgeingBar(GD));
    GD->setItemDelegateForColumn(LastBucket, new OldAmount(GD));
    for (std::size_t i = 0; i < AgeBuckets; ++i)
        GD->model()->setHeaderData(FirstBucket + static_cast<int>(i), Qt::Horizontal, BucketColours[i],
                                   Qt::DecorationRole);
    GD->RowChange = [this] { ShowStatus(); };
    GD->DoubleClick = [this] { OpenLedger(); };
    GD->KeyPressed = [this](controls::KeyPress& key) {
        if (!key.IsFirstEnter()) return;
        key.taken = true;
        OpenLedger();
    };
}

void Ageing::SetCommands() {
    using When = CommandRow::When;
    const std::vector<CommandRow> prints = {
        {u"Menu_Print(0)"_s, u"&1.帐龄分析表"_s, When::Always, [this] { PrintTable(); }},
        {u"Menu_Print(1)"_s, u"&2.逾期名单"_s, When::Always, [this] { PrintOverdueList(); }},
        {u"Menu_Print(2)"_s, u"&3.催款单"_s, When::Always, [this] { PrintReminderToOne(); }},
    };
    commands_.Fill(MenuBar(),
                   {{u"Menu_TE"_s, u"&T.导出"_s, When::Always, [this] { ExportGrid(*GD); }},
                    {.name = u"Menu_print"_s, .caption = u"&P.打印"_s, .when = When::Always, .items = prints},
                    {u"Menu_Return"_s, u"&R.返回"_s, When::Always, [this] { Unload(); }}});
}

void Ageing::Load() {
    CmbSide->AddItem(Receivables);
    CmbSide->AddItem(Payables);
    DTP->SetValue(sys::Today());
    Txt->SetText(QString::number(scope_.overdueAfter));
    CmbSide->SetListIndex(0);
    if (TakeScope()) Build();
}

/// The list is read before it is narrowed down.
void Ageing::Activated() {
    if (!std::exchange(activated_, true)) GD->SetFocus();
    ShowStatus();
}

bool Ageing::Payable() const {
    return CmbSide->Text() == Payables;
}

// ---------------------------------------------------------------- the lines

bool Ageing::TakeScope() {
    bool read = false;
    const int days = text::Trim(Txt->Text()).toInt(&read);
    if (!read || days < 0 || days > MostDays) {
        sys::Inform(u"逾期天数应为 0 到 %1 的整数!"_s.arg(MostDays), MsgTitle);
        Txt->SetFocus();
        return false;
    }
    scope_ = {
        .LB = Payable() ? 10 : -10, .day = DTP->Value(), .unit = ChosenUnit(*Cmb), .overdueAfter = days};
    return true;
}

void Ageing::Generate() {
    if (TakeScope()) Build();
}

void Ageing::Build() {
    all_.clear();
    QString failure;
    try {
        const controls::WaitPointer wait;
        contacts_.emplace(*Db);
        all_ = Age(*Db, scope_);
        SumOf(all_);  // whatever is shown of them can be summed up then
    } catch (const RuntimeError& error) {
        all_.clear();
        failure = error.Text();
    }
    ShowLines();
    if (!failure.isEmpty()) sys::Inform(failure, MsgTitle);
}

void Ageing::DressGrid() {
    GD->Clear();
    GD->SetRows(2);
    const std::pair<int, QString> headers[] = {
        {Name, u"关系单位"_s},
        {Balance, u"余额"_s},
        {Prepaid, scope_.LB > 0 ? u"预付"_s : u"预收"_s},
        {Difference, u"差额"_s},
        {Bar, u"帐龄构成"_s},
        {Oldest, u"最早欠款日"_s},
        {Overdue, u"逾期%1天以上"_s.arg(scope_.overdueAfter)},
        {Telephone, u"电话"_s},
    };
    for (const auto& [col, header] : headers) GD->SetTextMatrix(0, col, header);
    for (std::size_t i = 0; i < AgeBuckets; ++i)
        GD->SetTextMatrix(0, FirstBucket + static_cast<int>(i), BucketCaption(i));
    GD->ShareWidths(Shares);
}

void Ageing::ShowLines() {
    shown_ = all_;
    if (Chk->Value() == 1) std::erase_if(shown_, [](const AgeingLine& line) { return line.overdue == 0; });
    DressGrid();
    const int count = static_cast<int>(shown_.size());
    GD->BeginLoad(count == 0 ? 0 : count + 2);
    int row = 0;
    for (const AgeingLine& line : shown_) LoadLine(row++, line, line.unit);
    if (count > 0) {
        const AgeingLine sum = SumOf(shown_);
        LoadLine(count, sum, u" 合  计 "_s);
        LoadShares(count + 1, sum);
    }
    // Nothing is repainted before the end of the load.
    for (row = 1; row <= count; ++row) GD->SetCellBold(row, Balance, true);
    if (count > 0) GD->SetRowStyle(count + 1, Name, controls::paint::kTotal, true);
    GD->EndLoad();
    ShowStatus();
}

void Ageing::LoadLine(int row, const AgeingLine& line, const QString& unit) {
    GD->LoadCell(row, Name, unit);
    for (const auto& [col, amount] : AmountsOf(line)) GD->LoadCell(row, col, AmountText(amount));
    GD->LoadCell(row, Balance, CentsText(line.balance));
    GD->LoadCell(row, Bar, BucketShares(line));
    GD->LoadCell(row, Oldest, text::DateText(line.oldest));
    if (scope_.LB < 0) GD->LoadCell(row, Telephone, contacts_->Of(unit).telephone);
}

/// Of the sum of all balances; nothing where that is not above 0.
void Ageing::LoadShares(int row, const AgeingLine& sum) {
    GD->LoadCell(row, Name, u" 占  比 "_s);
    if (sum.balance <= 0) return;
    for (const auto& [col, amount] : AmountsOf(sum))
        if (amount != 0) GD->LoadCell(row, col, Share(amount, sum.balance) + u'%');
}

/// The sums and the shares are no records.
void Ageing::ShowStatus() {
    const auto count = static_cast<int>(shown_.size());
    TheFrame().SetPanel(MForm::PositionPanel,
                        count == 0 ? u"无信息"_s
                                   : u"帐龄分析：共 "_s + QString::number(count) + u" 条记录 当前为第 "_s +
                                         QString::number(std::min(GD->Row(), count)) + u" 条"_s);
}

const AgeingLine* Ageing::Current() const {
    const int row = GD->Row() - 1;
    return row < 0 || row >= static_cast<int>(shown_.size()) ? nullptr
                                                             : &shown_[static_cast<std::size_t>(row)];
}

/// By the frame's own entry, which unloads a ledger of the other side first. Over the days of the open
/// charges up to that of the analysis.
void Ageing::OpenLedger() {
    const AgeingLine* line = Current();
    if (!line || line->unit.isEmpty() || WarnOfEdit()) return;
    TheFrame().MenuItem(scope_.LB > 0 ? u"Menu_yfmx"_s : u"Menu_ysmx"_s)->trigger();
    auto* ledger = dynamic_cast<KuanMx*>(TheFrame().Front());
    if (!ledger || ledger->LB != scope_.LB) return;
    const QDate monthBegin = scope_.day.addDays(1 - scope_.day.day());
    ledger->ShowUnit(line->unit, line->oldest.isValid() ? line->oldest : monthBegin, scope_.day);
}

// ---------------------------------------------------------------- the prints

AgeingPrint Ageing::WhatToPrint() const {
    return {.scope = scope_, .lines = shown_, .contacts = *contacts_, .overdueOnly = Chk->Value() == 1};
}

void Ageing::PrintTable() {
    PrintAgeing(WhatToPrint());
}

void Ageing::PrintOverdueList() {
    PrintOverdue(WhatToPrint());
}

/// The rows may have changed since the list was built, so that the counterparty is aged anew.
void Ageing::PrintReminderToOne() {
    if (scope_.LB > 0) return sys::Inform(u"催款单只用于应收帐款!"_s, MsgTitle);
    const AgeingLine* chosen = Current();
    if (!chosen) return sys::Inform(u"请选择要催款的单位!"_s, MsgTitle);
    UnitAgeing unit;
    try {
        unit = AgeUnit(*Db, scope_, chosen->unit);
    } catch (const RuntimeError& error) {
        return sys::Inform(error.Text(), MsgTitle);
    }
    const AgeingLine& line = unit.line;
    if (line.Open() == 0) return sys::Inform(line.unit + u"没有未付的帐款!"_s, MsgTitle);
    if (line.difference != 0 &&
        !sys::Ask(u"%1的余额与单据相差 %2 元，请先核对或刷新明细帐。\r\r仍然打印催款单吗?"_s.arg(
                      line.unit, CentsText(line.difference)),
                  MsgTitle))
        return;
    PrintReminder(WhatToPrint(), unit);
}
