#include "accounts/entry_form.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "records/fill_grid.h"
#include "records/filter_strip.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace accounts;

namespace {

constexpr int StripHeight = 34;
constexpr int StripMargin = 16;

constexpr int OldestDay = 60;  // before today, in the list of dates
constexpr int ShownItems = 10;

}  // namespace

EntryForm::EntryForm(const EntrySettings& settings)
    : ChildForm(settings.form, settings.caption),
      GD(new controls::FlexGrid),
      progress_(StripLabel({}, u"form"_s)),
      badge_(StripLabel({}, u"badge"_s)),
      settings_(settings) {
    SetCommands();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(GD, 1);
    MakeCombos();
    WireGrid();
}

// ---------------------------------------------------------------- building

void EntryForm::SetCommands() {
    using When = CommandRow::When;
    commands_.Fill(MenuBar(), {
                                  {u"Menu_Add"_s, u"&A.增加"_s, When::Browsing, [this] { Menu_Add(); }},
                                  {u"Menu_edit"_s, u"&E.修改"_s, When::Browsing, [this] { Menu_edit(); }},
                                  {u"Menu_del"_s, u"&D.删除"_s, When::Browsing, [this] { Menu_del(); }},
                                  {u"Menu_query"_s, u"&Q.查找"_s, When::Browsing, [this] { Menu_query(); }},
                                  // Kept on purpose: nothing is printed.
                                  {u"Menu_print"_s, u"&P.打印"_s, When::Browsing, [] {}},
                                  {u"Menu_save"_s, u"&S.保存"_s, When::Editing, [this] { Menu_save(); }},
                                  {u"Menu_cancel"_s, u"&C.取消"_s, When::Editing, [this] { Menu_cancel(); }},
                                  {u"Menu_TE"_s, u"&T.导出"_s, When::Always, [this] { Menu_TE(); }},
                                  {u"Menu_Return"_s, u"&R.返回"_s, When::Browsing, [this] { Unload(); }},
                              });
}

/// Above the grid: the caption that came with the kind, at the right what has been typed so far.
QWidget* EntryForm::MakeStrip() {
    auto* strip = new QWidget;
    strip->setProperty("role", u"strip"_s);
    strip->setAttribute(Qt::WA_StyledBackground);
    strip->setFixedHeight(StripHeight);
    auto* caption = StripLabel(windowTitle(), u"group"_s);
    connect(this, &QWidget::windowTitleChanged, caption, &QLabel::setText);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(StripMargin, 0, StripMargin, 0);
    row->setSpacing(10);
    row->addWidget(caption);
    row->addStretch(1);
    row->addWidget(progress_);
    row->addWidget(badge_, 0, Qt::AlignVCenter);
    badge_->hide();
    return strip;
}

void EntryForm::MakeCombos() {
    const QString names[] = {u"日期"_s, u"关系单位"_s, u"相关单据"_s, u"摘要"_s};
    for (std::size_t i = 0; i < CmbEnter.size(); ++i) {
        auto* combo = new controls::ComboBox(this);
        combo->setObjectName(u"CmbEnter(%1)"_s.arg(i + 1));
        combo->setAccessibleName(names[i]);
        combo->setMaxVisibleItems(ShownItems);
        combo->hide();
        CmbEnter[i] = combo;
    }
}

void EntryForm::WireGrid() {
    GD->setObjectName(u"GD"_s);
    GD->setProperty("edge", u"none"_s);
    GD->SetCols(EntryColumns);
    for (const int hidden : {Document, Summary, Sequence}) GD->SetGridColWidth(hidden, 0);
    GD->SetColAlignment(Amount, Qt::AlignRight);
    GD->Editor()->setObjectName(u"TxtEnter"_s);
    GD->Editor()->setAccessibleName(u"单元格"_s);
    GD->RowChange = [this] { RowChanged(); };
    GD->Click = [this] {
        target_ = GD->Col();
        EnterCell();
    };
    GD->KeyPressed = [this](controls::KeyPress& key) { KeyInGrid(key); };
    GD->CellEdited = [this](int row, int col, const QString& before) { Commit(row, col, before); };
    GD->CellLeft = [this](controls::CellMove& move) { GoOn(move); };
}

const EntrySide& EntryForm::Side() const {
    return LB > 0 ? settings_.payable : settings_.receivable;
}

void EntryForm::FillCombos() {
    enum { Dates, Names };
    const QDate today = sys::Today();
    for (int day = 0; day <= OldestDay; ++day) CmbEnter[Dates]->AddItem(text::DateText(today.addDays(-day)));
    CmbEnter[Dates]->SetListIndex(0);
    auto names = Db->OpenRecordset(Side().names);
    for (; !names.Eof(); names.MoveNext()) CmbEnter[Names]->AddItem(names.Fields(0).Text());
    names.Close();
}

void EntryForm::Load() {
    GD->setAccessibleName(Side().headers[Key]);
    FormMode = Browsing;
    FillCombos();
    LoadGrid(settings_.load);
}

bool EntryForm::QueryUnload() {
    return !WarnOfEdit(*this);
}

// ---------------------------------------------------------------- the list

void EntryForm::DressGrid() {
    GD->Clear();
    GD->SetRows(2);
    CurRow = 1;
    for (int col = 0; col < Side().headers.size(); ++col) GD->SetTextMatrix(0, col, Side().headers[col]);
    GD->ShareWidths();
}

void EntryForm::LoadGrid(const QString& sql) {
    DressGrid();
    if (sql != remembered_) {
        const QString kind = text::GeneralText(static_cast<int>(Side().kind));
        remembered_ = sql.contains(u"Where"_s) ? sql + u" and TB1.lb="_s + kind + u" order by TB1.sn  "_s
                                               : sql + u" Where TB1.lb="_s + kind + u"  order by TB1.sn  "_s;
    }
    auto rows = Db->OpenRecordset(remembered_);
    RecCount = CountRows(rows);
    if (RecCount > 0) {  // else the status keeps its old text
        FillGrid(*GD, rows, RecCount, EntryColumns);
        CurRow = 1;
        ShowRow();
    }
    rows.Close();
}

void EntryForm::DataChanged() {
    if (InEdit()) return;
    const int row = CurRow;
    const QString key = row > 0 ? Cell(row, Key) : QString();
    try {
        LoadGrid(remembered_);
    } catch (const PlatformError& error) {
        return sys::Inform(error.Text(), MsgTitle);
    }
    if (const int line = GD->RowOf(Key, key, row); line > 0 && RecCount > 0) {
        CurRow = line;
        ShowRow();
    }
}

void EntryForm::ShowRow() {
    GD->SetRow(CurRow);
    GD->SetRowSel(CurRow);
    GD->SetColSel(Remark);
    TheFrame().SetPanel(MForm::PositionPanel, u"共 "_s + QString::number(RecCount) + u" 条记录 当前为第 "_s +
                                                  QString::number(CurRow) + u" 条"_s);
}

/// While rows are entered the cell routine says where the cursor is.
void EntryForm::RowChanged() {
    if (FormMode != Browsing) return;
    CurRow = GD->Row();
    ShowRow();
}

// ---------------------------------------------------------------- the commands

bool EntryForm::MayEditLedger() const {
    if (!CanEditLedger) sys::Inform(u"对不起,您无此权限!"_s, {});
    return CanEditLedger;
}

/// Anybody who may use the accounts may add.
void EntryForm::Menu_Add() {
    if (!Cell(CurRowLimit(), Key).isEmpty()) GD->AddItem({});
    first_ = CurRow = CurRowLimit();
    target_ = Key;
    FormMode = Adding;
    EnterEdit();
    GD->SetRow(CurRow);
    GD->SetTextMatrix(CurRow, Key, NewKey());
    OpenEditor(CurRow, Key);
    ShowProgress();
}

void EntryForm::Menu_edit() {
    if (!MayEditLedger()) return;
    if (CurRow == 0 || Cell(CurRow, Key).isEmpty()) return sys::Inform(u"请选择要修改的行！"_s, {});
    if (!ReadAgain(CurRow)) {
        sys::Inform(u"记录已被删除。"_s, {});
        return LoadGrid(remembered_);
    }
    first_ = CurRow;
    FormMode = Editing;
    EnterEdit();
    oldKey_ = Cell(CurRow, Key);
    oldParty_ = Cell(CurRow, Party);
    oldSequence_ = text::Val(Cell(CurRow, Sequence));
    editedRowGone_ = false;
    GoTo(CurRow, Key);
}

void EntryForm::EnterEdit() {
    commands_.Show(CommandRow::When::Editing);
    commands_.Action(u"Menu_Return"_s).setVisible(false);
    EditInProgress = true;
    GD->SetEntryBlock(first_, FormMode == Adding ? std::numeric_limits<int>::max() : first_);
    badge_->setText(FormMode == Adding ? u"新增"_s : u"修改"_s);
    badge_->show();
}

void EntryForm::LeaveEdit() {
    FormMode = Browsing;
    commands_.Show(CommandRow::When::Browsing);
    commands_.Action(u"Menu_Return"_s).setVisible(true);
    EditInProgress = false;
    GD->SetEntryBlock(0, 0);
    badge_->hide();
    progress_->clear();
    ShowRow();
    GD->SetCol(0);
    GD->SetFocus();
}

void EntryForm::Menu_del() {
    if (!MayEditLedger() || RecCount == 0) return;
    const QString key = Cell(CurRow, Key);
    if (!sys::AskToDestroy(u"真的要删除["_s + key + u"]吗？"_s, u"提示"_s)) return;
    DeleteEntry(*Db, text::Trim(key));
    if (GD->Rows() < 3)
        DressGrid();
    else
        GD->RemoveItem(CurRow);
    RecCount -= 1;
    CurRow = std::min(CurRow, RecCount);
    ShowRow();
}

void EntryForm::Menu_query() {
    RunQuery(*this, *GD, settings_.search, [this](const QString& sql) { LoadGrid(sql); });
}

void EntryForm::Menu_cancel() {
    GD->DropEditor();
    const bool typed = FormMode == Adding && (!Cell(first_, Key).isEmpty() || CurRowLimit() > first_);
    if (typed && !sys::ConfirmLoss(u"确定不保存您新录入的资料吗？"_s)) return EnterCell();
    LeaveAndReload();
}

void EntryForm::LeaveAndReload() {
    CurRow = std::min(CurRow, CurRowLimit());
    LeaveEdit();
    LoadGrid(remembered_);
}
