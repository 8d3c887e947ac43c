#include "records/record_form.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/card.h"
#include "platform/controls/keys.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "records/fill_grid.h"
#include "records/filter_strip.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using controls::FlexGrid;
using controls::TabStrip;

namespace {

constexpr int StripHeight = 34;
constexpr int CardMargin = 16;

}  // namespace

RecordForm::RecordForm(const RecordFormSettings& settings)
    : ChildForm(settings.form, settings.caption),
      TabS(new TabStrip({settings.listTab, settings.cardTab})),
      GD(new FlexGrid),
      Frm(new QWidget),
      settings_(settings),
      badge_(StripLabel({}, u"badge"_s)) {
    badge_->setAlignment(Qt::AlignCenter);
    TabS->setObjectName(u"TabS"_s);
    TabS->setAccessibleName(settings.caption);
    GD->setObjectName(u"GD"_s);
    GD->setAccessibleName(settings.listTab);
    GD->setProperty("edge", u"none"_s);
    Frm->setObjectName(u"Frm"_s);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(GD, 1);
    column->addWidget(Frm, 1);
    Frm->hide();

    TabS->Click = [this] { SelectTab(); };
    GD->RowChange = [this] { RowChanged(); };
    GD->DoubleClick = [this] {
        RowChanged();
        TabS->SelectItem(CardTab);
    };
    GD->KeyPressed = [this](controls::KeyPress& key) {
        if (!key.IsEnter()) return;
        key.taken = true;
        if (key.repeats) return;
        RowChanged();
        TabS->SelectItem(CardTab);
    };
    TabS->KeyPressed = [this](controls::KeyPress& key) { KeyOnTabs(key); };
}

/// Down leads from the tabs into the list, which comes to the front if it is not.
void RecordForm::KeyOnTabs(controls::KeyPress& key) {
    if (key.key != Qt::Key_Down || FormMode != Browsing) return;
    key.taken = true;
    if (TabS->SelectedItem() == ListTab)
        GD->SetFocus();
    else
        TabS->SelectItem(ListTab);
}

/// Above the pages: the tabs at the left, the form's caption and the badge of add and edit state at the
/// right.
QWidget* RecordForm::MakeStrip() {
    auto* strip = new QWidget;
    strip->setProperty("role", u"strip"_s);
    strip->setAttribute(Qt::WA_StyledBackground);
    strip->setFixedHeight(StripHeight);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(CardMargin - 8, 0, CardMargin, 0);
    row->setSpacing(10);
    row->addWidget(TabS, 0, Qt::AlignBottom);
    row->addStretch(1);
    row->addWidget(StripLabel(settings_.caption, u"form"_s));
    row->addWidget(badge_, 0, Qt::AlignVCenter);
    badge_->hide();
    return strip;
}

void RecordForm::SetUsualCommands(std::vector<CommandRow> own) {
    using When = CommandRow::When;
    std::vector<CommandRow> rows = {
        {u"Menu_Add"_s, u"&A.增加"_s, When::Browsing, [this] { Menu_Add(); }},
        {u"Menu_edit"_s, u"&E.修改"_s, When::Browsing, [this] { Menu_edit(); }},
        {u"Menu_del"_s, u"&D.删除"_s, When::Browsing, [this] { Menu_del(); }},
        {u"Menu_query"_s, u"&Q.查找"_s, When::Browsing, [this] { Menu_query(); }},
        {u"Menu_save"_s, u"&S.保存"_s, When::Editing, [this] { Menu_save(); }},
        {u"Menu_cancel"_s, u"&C.取消"_s, When::Editing, [this] { Menu_cancel(); }},
    };
    rows.insert(rows.end(), own.begin(), own.end());
    rows.push_back({u"Menu_Return"_s, u"&R.返回"_s, When::Always, [this] { Menu_Return(); }});
    SetCommands(std::move(rows));
}

void RecordForm::SetCommands(std::vector<CommandRow> rows) {
    commands_.Fill(MenuBar(), std::move(rows));
}

bool RecordForm::QueryUnload() {
    return !WarnOfEdit(*this);
}

QString RecordForm::StatusText() const {
    return u"共 "_s + QString::number(RecCount) + u" 条记录 当前为第 "_s + QString::number(CurRow) + u" 条"_s;
}

void RecordForm::DressGrid() {
    const QStringList headers = Headers();
    GD->Clear();
    GD->SetRows(2);
    GD->SetCols(static_cast<int>(headers.size()));
    for (int col = 0; col < headers.size(); ++col) GD->SetTextMatrix(0, col, headers[col]);
    GD->ShareWidths();
    CurRow = 1;
}

void RecordForm::LoadGrid(const QString& sql) {
    loaded_ = sql;
    DressGrid();
    auto rows = Db->OpenRecordset(sql);
    RecCount = CountRows(rows);
    if (RecCount > 0) {  // else the status keeps its old text
        FillGrid(*GD, rows, RecCount, LoadedCols(), [this](int col, QString& text) { DressCell(col, text); });
        CurRow = 1;
        ShowRow();
    }
    rows.Close();
}

void RecordForm::LoadGridOrReport(const QString& sql) {
    try {
        LoadGrid(sql);
    } catch (const PlatformError& error) {
        sys::Inform(error.Text(), MsgTitle);
    }
}

/// The current record remains current where it is still in the list. The card is of the list's line, and an
/// edit would write it back.
void RecordForm::DataChanged() {
    if (InEdit()) return;
    const int row = CurRow;
    const QString key = row > 0 ? CurrentCell(KeyCol()) : QString();
    LoadGridOrReport(QString(loaded_));
    if (const int line = GD->RowOf(KeyCol(), key, row); line > 0 && RecCount > 0) {
        CurRow = line;
        ShowRow();
    }
    if (TabS->SelectedItem() == CardTab) RowToCard();
}

void RecordForm::ShowRow() {
    GD->SetRow(CurRow);
    GD->SetRowSel(CurRow);
    GD->SetCol(0);
    GD->SetColSel(GD->Cols() - 1);
    TheFrame().SetPanel(MForm::PositionPanel, LangText(StatusText()));
}

void RecordForm::RowChanged() {
    if (!cardIsOpen_) CurRow = GD->Row();  // else a save would delete another record than the one on the card
    ShowRow();
}

void RecordForm::SelectTab() {
    const bool list = TabS->SelectedItem() == ListTab;
    TurnPage(list ? *Frm : *GD, list ? static_cast<QWidget&>(*GD) : *Frm);
    if (list) {
        GD->SetRow(CurRow);
        RowChanged();
        GD->SetFocus();
        GD->SetTopRow(CurRow);
    } else if (!cardIsOpen_) {  // else it holds what has been typed
        RowToCard();
    }
}

void RecordForm::TurnPage(QWidget& from, QWidget& to) {
    const controls::CardAtRest rest(*this);
    // Else the toolkit looks for the next of the tab order in all forms.
    if (QWidget* focus = QApplication::focusWidget(); focus && from.isAncestorOf(focus)) TabS->setFocus();
    from.hide();
    to.show();
}

void RecordForm::ShowBadge() {
    badge_->setText(FormMode == Adding ? u"新增"_s : u"修改"_s);
    badge_->setVisible(FormMode != Browsing);
}

void RecordForm::EnterEdit() {
    if (TabS->SelectedItem() == ListTab) TabS->SelectItem(CardTab);
    if (settings_.tabStripDisabled)
        TabS->setEnabled(false);
    else
        TabS->SetInTabOrder(false);
    cardIsOpen_ = true;
    OpenCard();
    commands_.Show(CommandRow::When::Editing);
    EditInProgress = true;
    ShowBadge();
}

void RecordForm::LeaveEdit() {
    TabS->setEnabled(true);
    TabS->SetInTabOrder(true);
    CloseCard();
    commands_.Show(CommandRow::When::Browsing);
    FormMode = Browsing;
    cardIsOpen_ = false;
    TabS->SetFocus();
    GD->SetRow(CurRow);
    RowChanged();
    EditInProgress = false;
    ShowBadge();
}

void RecordForm::Menu_cancel() {
    LeaveEdit();
    RowToCard();
}

bool RecordForm::RequireFilled(int count) const {
    for (int i = 0; i < count; ++i) {
        if (!text::Trim(BoxText(i)).isEmpty()) continue;
        sys::Inform(Lab[i]->text() + LangText(u"不能为空!"_s), MsgTitle);
        return false;
    }
    return true;
}

RecordForm::DeleteAnswer RecordForm::AskToDelete(const QString& name, bool used, const QString& plainQuestion,
                                                 sys::BoxAnswer warningDefault) {
    if (!used) return sys::AskToDestroy(plainQuestion, MsgTitle) ? DeleteAnswer::Record : DeleteAnswer::No;
    if (!IsAdministrator()) {
        sys::Inform(u"["_s + name + u"]已经在系统中应用，不能删除!"_s, MsgTitle);
        return DeleteAnswer::No;
    }
    const QString warning = u"["_s + name + u"]已经在系统中应用!\r如果删除将造成系统中其它记录的丢失!\r"_s +
                            u"只有管理员才有权删除。真的要删除吗？"_s;
    for (const QString& title : {u"提示"_s, u"请再次确认"_s})
        if (!sys::AskToDestroy(warning, title, warningDefault)) return DeleteAnswer::No;
    return DeleteAnswer::RecordAndUses;
}

bool RecordForm::PrepareSave(const KeyCheck& check) {
    if (!check.found.isEmpty() && (FormMode == Adding || check.key != check.old)) {
        sys::Inform(check.refusal, MsgTitle);
        Txt[0]->SetFocus();
        return false;
    }
    if (FormMode == Adding) {
        RecCount += 1;
        return true;
    }
    check.deleteOld();
    RemoveCurrentLine();
    return true;
}

void RecordForm::FinishSave() {
    LeaveEdit();
    CurRow = GD->Rows() - 1;
}

void RecordForm::RemoveCurrentRecord(CurRowLimit last) {
    RemoveCurrentLine();
    RecCount -= 1;
    // RecCount may be off by one: an edit of an empty list's blank line is not counted, and a record with an
    // empty key leaves the list uncounted. Both are kept on purpose; the row must exist.
    CurRow = std::min(CurRow, GD->Rows() - 1);
    if (last == CurRowLimit::Records) CurRow = std::clamp(RecCount, 0, CurRow);
    GD->SetRow(CurRow);
    if (TabS->SelectedItem() == CardTab) TabS->SelectItem(ListTab);
    RowChanged();
}

void RecordForm::RemoveCurrentLine() {
    if (GD->Rows() > 2)
        GD->RemoveItem(CurRow);
    else
        DressGrid();
}

void RecordForm::AppendLine(const QStringList& cells) {
    GD->AddItem(cells.join(u'\t'));
    if (text::Trim(GD->TextMatrix(1, 0)).isEmpty()) GD->RemoveItem(1);
}

void RecordForm::SetTabOrder(const std::vector<QWidget*>& tabOrder) {
    QWidget* before = TabS;
    for (QWidget* stop : tabOrder) {
        QWidget::setTabOrder(before, stop);
        before = stop;
    }
}

controls::Card* RecordForm::MakeCard() {
    auto* card = new controls::Card;
    auto* column = new QVBoxLayout(Frm);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new controls::CardScroll(card));
    return card;
}

controls::TextBox& RecordForm::MakeBox(const QString& caption, int maxLength, int rows) {
    const QString index = u'(' + QString::number(Txt.size()) + u')';
    controls::TextBox* box = nullptr;
    if (rows > 1)
        box = new controls::RowsBox(rows, Frm);
    else
        box = new controls::LineBox(Frm);
    box->Widget()->setObjectName(u"Txt"_s + index);
    box->SetMaxLength(maxLength);
    box->SetLocked(true);
    WireBox(*box);
    QLabel* label = controls::MakeCaption(caption, box->Widget(), Frm);
    label->setObjectName(u"Lab"_s + index);
    Txt.push_back(box);
    Lab.push_back(label);
    return *box;
}
