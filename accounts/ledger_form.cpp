#include "accounts/ledger_form.h"

#include "accounts/refresh_form.h"
#include "accounts/unit_choice.h"
#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/paint.h"
#include "platform/controls/wait.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "records/filter_strip.h"

#include <QHBoxLayout>
#include <QScopeGuard>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace accounts;

namespace {

constexpr int FirstLines = 256;

/// Lines go straight into the grid's load. Their number is known at the end only.
class GridLines : public LedgerLines {
  public:
    GridLines(controls::FlexGrid& grid, int totalFrom) : grid_(grid), totalFrom_(totalFrom) {
        grid_.BeginLoad(room_);
    }
    ~GridLines() override {
        grid_.SetRows(std::max(lines_, 1) + 1);
        grid_.EndLoad();
    }
    GridLines(const GridLines&) = delete;
    GridLines& operator=(const GridLines&) = delete;

    void Cell(int line, int col, QString text) override {
        if (line >= room_) grid_.SetRows((room_ *= 2) + 1);
        lines_ = std::max(lines_, line + 1);
        grid_.LoadCell(line, col, std::move(text));
    }

    void Total(int line) override { grid_.SetRowStyle(line + 1, totalFrom_, controls::paint::kTotal, true); }

  private:
    controls::FlexGrid& grid_;
    const int totalFrom_;
    int room_ = FirstLines;
    int lines_ = 0;
};

}  // namespace

const LedgerSettings DetailLedger = {
    .form = u"KuanMx"_s,
    .caption = u"应收/付款明细"_s,
    .maintenance = true,
    .cutsAtPoint = true,
    .raisedHeader = u"本期增加应"_s,
    .hidden = {Name2, Blank1, Blank2},
    .statement = DetailStatement,
    .build = BuildDetail,
    .print = PrintDetail,
    .totalFrom = Voucher,
};

const LedgerSettings SummaryLedger = {
    .form = u"KuanHz"_s,
    .caption = u"应收/付款总帐"_s,
    .maintenance = false,
    .cutsAtPoint = false,
    .raisedHeader = u"增加应"_s,
    .hidden = {Name2, Voucher, Business, Blank1, Blank2},
    .statement = SummaryStatement,
    .build = BuildSummary,
    .print = PrintSummary,
    .totalFrom = Opening,
};

LedgerForm::LedgerForm(const LedgerSettings& settings)
    : ChildForm(settings.form, settings.caption), GD(new controls::FlexGrid), settings_(settings) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(GD, 1);
    GD->setObjectName(u"GD"_s);
    GD->setProperty("edge", u"none"_s);
    GD->SetCols(LedgerColumns);
    for (const int col : settings_.hidden) GD->SetGridColWidth(col, 0);
    for (int col = Opening; col <= Closing; ++col) GD->SetColAlignment(col, Qt::AlignRight);
    GD->Click = [this] { ShowStatus(); };
    GD->RowChange = [this] { ShowPosition(); };
    MakePanel();
    SetCommands();
}

// ---------------------------------------------------------------- building

/// Their statement never changes: an entry sets its mark and builds anew. Required by the business.
std::vector<CommandRow> LedgerForm::Family(const QString& name, const QStringList& captions) {
    std::vector<CommandRow> rows;
    for (int i = 0; i < captions.size(); ++i)
        rows.push_back({name + u'(' + QString::number(i) + u')', captions[i], CommandRow::When::Always,
                        [this, name, i] { Choose(name, i); }});
    return rows;
}

std::vector<CommandRow> LedgerForm::Commands() {
    using When = CommandRow::When;
    const auto sorts =
        Family(u"Menu_S"_s, {u"&1.按单据号码"_s, u"&2.按单据日期"_s, u"&3.按相关部门"_s, u"&4.按所属类别"_s,
                             u"&5.按货品编码"_s, u"&6.按入库数量"_s, u"&7.按出库数量"_s, u"&8.按入库金额"_s,
                             u"&9.按出库金额"_s, u"&0.按记帐顺序"_s});
    const auto prices = Family(u"Menu_Price"_s, {u"&1.成本价格"_s, u"&1.销售价格"_s});
    std::vector<CommandRow> rows = {
        {.name = u"Menu_Sort"_s, .caption = u"&S.排序"_s, .when = When::Always, .items = sorts},
        {.name = u"Menu_M"_s, .caption = u"&M.价格显示"_s, .when = When::Always, .items = prices},
        {u"Menu_TE"_s, u"&T.导出"_s, When::Always, [this] { ExportGrid(*GD); }},
        {u"Menu_print"_s, u"&P.打印"_s, When::Always, [this] { Print(); }},
        {u"Menu_Return"_s, u"&R.返回"_s, When::Always, [this] { Unload(); }},
    };
    if (settings_.maintenance)
        rows.insert(rows.begin(), {u"Menu_Weihu"_s, u"&S.维护"_s, When::Always, [this] { Maintain(); }});
    return rows;
}

void LedgerForm::SetCommands() {
    commands_.Fill(MenuBar(), Commands());
    for (const auto& family : {u"Menu_Sort"_s, u"Menu_M"_s})
        for (QAction* item : commands_.Action(family).menu()->actions()) item->setCheckable(true);
}

QWidget* LedgerForm::MakeStrip() {
    auto* strip = new FilterStrip(*this);
    Cmb = new controls::ComboBox;
    LabDW = strip->Add(u"关系单位"_s, u"Cmb"_s, Cmb, FilterStrip::kChoiceWidth);
    LabDW->setObjectName(u"LabDW"_s);
    strip->AddPeriod(DTP);
    Cmd = strip->AddButton(u"生成报表"_s);
    Cmd->Click = [this] { Generate(); };
    return strip;
}

/// Its button has no effect on the build, which runs to its end; required by the business.
void LedgerForm::MakePanel() {
    cancelfrm = new QWidget(GD);
    cancelfrm->setObjectName(u"cancelfrm"_s);
    cancelfrm->setProperty("role", u"strip"_s);
    cancelfrm->setAttribute(Qt::WA_StyledBackground);
    auto* button = new controls::Button(u"取消操作"_s);
    button->setObjectName(u"CmdCancel"_s);
    button->Click = [this] { cancelfrm->hide(); };
    auto* row = new QHBoxLayout(cancelfrm);
    row->addWidget(button);
    cancelfrm->hide();
}

void LedgerForm::Load() {
    GD->setAccessibleName(windowTitle());
    const QDate today = sys::Today();
    DTP[0]->SetValue(
        today.addDays(-today.day()));  // the last day of the month before, not the first of this one
    DTP[1]->SetValue(today);
    if (settings_.maintenance) commands_.Action(u"Menu_Weihu"_s).setEnabled(IsAdministrator());
    FillUnits(*Cmb, LabDW->text(), LB >= 1);
    unit_.clear();
    Build();
}

/// It is read before it is narrowed down.
void LedgerForm::Activated() {
    if (!std::exchange(shown_, true)) GD->SetFocus();
}

// ---------------------------------------------------------------- the build

void LedgerForm::DressGrid() {
    const QString side = LB == 10 ? u"付"_s : u"收"_s;
    GD->SetRows(2);
    GD->Clear();
    const std::pair<int, QString> headers[] = {
        {Unit, LabDW->text()},         {Name2, LabDW->text()},        {Voucher, u"单据号"_s},
        {Business, u"业务类型"_s},     {Opening, u"期初应"_s + side}, {Raised, settings_.raisedHeader + side},
        {Lowered, u"本期已"_s + side}, {Closing, u"期末应"_s + side},
    };
    for (const auto& [col, header] : headers) GD->SetTextMatrix(0, col, header);
    GD->ShareWidths();
}

void LedgerForm::Choose(const QString& name, int index) {
    for (int i = 0;; ++i) {
        auto* item = MenuBar()->findChild<QAction*>(name + u'(' + QString::number(i) + u')');
        if (!item) break;
        item->setChecked(i == index);
    }
    Build();
}

void LedgerForm::Generate() {
    const QString unit = ChosenUnit(*Cmb);
    const qsizetype point = unit.indexOf(u'.');
    unit_ = settings_.cutsAtPoint && point > 0 ? unit.left(point) : unit;
    BuildUnderPanel();
}

void LedgerForm::BuildUnderPanel() {
    cancelfrm->adjustSize();
    cancelfrm->move((GD->width() - cancelfrm->width()) / 2, (GD->height() - cancelfrm->height()) / 2);
    cancelfrm->show();
    controls::ShowProgress();
    Build();
}

void LedgerForm::ShowUnit(const QString& unit, QDate from, QDate to) {
    Cmb->SetText(unit);
    DTP[0]->SetValue(from);
    DTP[1]->SetValue(to);
    unit_ = PatternOf(unit);
    BuildUnderPanel();
}

void LedgerForm::Build() {
    DressGrid();
    const auto hidden = qScopeGuard([this] { cancelfrm->hide(); });
    const controls::WaitPointer wait;
    auto rows = Db->OpenRecordset(
        settings_.statement({.LB = LB, .from = DTP[0]->Value(), .to = DTP[1]->Value(), .unit = unit_}),
        dao::RecordsetType::ForwardOnly);
    if (!rows.Eof()) {
        {
            GridLines lines(*GD, settings_.totalFrom);
            settings_.build(rows, lines);
        }
        ShowStatus();
    }
    rows.Close();
}

// ---------------------------------------------------------------- the status

/// After a build and a click: the last line, which sums up, cannot be the current one.
void LedgerForm::ShowStatus() {
    if (GD->Row() == GD->Rows() - 1) GD->SetRow(1);
    ShowPosition();
}

/// Keys reach the last line, which is no record.
void LedgerForm::ShowPosition() {
    const bool blank = GD->Rows() == 2 && text::Trim(GD->TextMatrix(1, Name2)).isEmpty();
    TheFrame().SetPanel(MForm::PositionPanel,
                        blank ? u"无信息"_s
                              : u"进出流水帐：共 "_s + QString::number(GD->Rows() - 2) +
                                    u" 条记录 当前为第 "_s +
                                    QString::number(std::min(GD->Row(), GD->Rows() - 2)) + u" 条"_s);
}

void LedgerForm::Print() {
    settings_.print({.grid = *GD, .LB = LB, .from = DTP[0]->Value(), .to = DTP[1]->Value()});
}

void LedgerForm::Maintain() {
    ReKuanFrm form(window());
    form.Units = Cmb;
    form.ShowModal();
}
