#include "history/history_form.h"

#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "history/new_password.h"
#include "history/put_back.h"
#include "platform/controls/grid_parts.h"
#include "platform/controls/keys.h"
#include "platform/controls/paint.h"
#include "platform/controls/wait.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "records/filter_strip.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using history::Action;
using history::Entry;
using history::Image;

namespace {

constexpr int StripHeight = 40;
constexpr int StripMargin = 16;
constexpr int Gap = 14;
constexpr int LeastRows = 5;  // of the list
constexpr int MarkWidth = 34, ItemWidth = 190;
constexpr QColor OldFill(0xFB, 0xE9, 0xE7);
constexpr QColor NewFill(0xE5, 0xF4, 0xEB);
const QString Differs = u"≠"_s;
const QString AllObjects = u"所有对象"_s;
const QString AllOperators = u"所有操作员"_s;
const QString Hidden = u"*"_s;

enum ListColumn { At, By, What, On, Which, Summary, ListColumns };
enum ItemColumn { Mark, Item, Old, New, ItemColumns };
enum PriceColumn { PriceMark, Zone, Side, FirstPrice };

struct ColumnWidth {
    int col, pixels;
};

controls::FlexGrid* Grid(const QString& name, const QString& spoken, const QStringList& headers,
                         const std::vector<ColumnWidth>& widths) {
    auto* grid = new controls::FlexGrid;
    grid->setObjectName(name);
    grid->setAccessibleName(spoken);
    grid->setProperty("edge", u"none"_s);
    grid->SetCols(static_cast<int>(headers.size()));
    for (int col = 0; col < headers.size(); ++col) grid->SetTextMatrix(0, col, headers[col]);
    for (const auto& [col, pixels] : widths)
        grid->SetGridColWidth(col, pixels * controls::FlexGrid::UnitsPerPixel);
    grid->horizontalHeader()->setStretchLastSection(true);
    return grid;
}

/// Master whose name is shown behind a code of a waybill.
QString Dressed(const QByteArray& table, const QString& column, const QString& value) {
    static const QHash<QString, QString> masters = {
        {u"F202"_s, u"M01"_s}, {u"F203"_s, u"M02"_s}, {u"F603"_s, u"M03"_s}, {u"F2021"_s, u"M011"_s}};
    if (table == "TE1" && column.startsWith(u"F6")) return value.toDouble() == 0 ? u"否"_s : u"是"_s;
    const QString master = table == "B01" ? masters.value(column) : QString();
    if (master.isEmpty() || value.isEmpty()) return value;
    auto rows = Db->ReadEngine(u"select F2 from %1 where F1="_s.arg(master) + history::Literal(value));
    const QString name = rows.Eof() ? QString() : rows.Fields(0).Text();
    return name.isEmpty() ? value : value + u'.' + name;
}

QString ShownValue(const QByteArray& table, const QString& column, const Image& image, qsizetype index) {
    if (!image) return {};
    const QString value = image->value(index);
    const history::ColumnCaption caption = history::CaptionOf(table, column);
    const bool hidden = (caption.figure && !CanSeeFigures) || (caption.cost && !IsAdministrator());
    if (hidden) return value.isEmpty() ? value : Hidden;
    return Dressed(table, column, value);
}

bool Same(const Image& a, const Image& b, qsizetype index) {
    const auto text = [&](const Image& image) { return image ? image->value(index) : QString(); };
    return text(a) == text(b);
}

/// Mutes the lines without the mark of a difference.
class UnchangedMuted final : public controls::GridDelegate {
  public:
    using GridDelegate::GridDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        GridDelegate::initStyleOption(option, index);
        if (index.siblingAtColumn(Mark).data().toString().isEmpty())
            option->palette.setColor(QPalette::Text, controls::paint::kMuted);
    }
};

/// Rows of cells with the cells that have changed.
class Lines {
  public:
    void Add(const QStringList& cells, const QList<std::pair<int, QColor>>& fills = {}, bool bold = false) {
        rows_.push_back({cells, fills, bold});
    }
    void Put(controls::FlexGrid& grid) const {
        grid.BeginLoad(static_cast<int>(rows_.size()));
        for (std::size_t row = 0; row < rows_.size(); ++row)
            for (int col = 0; col < rows_[row].cells.size(); ++col)
                grid.LoadCell(static_cast<int>(row), col, rows_[row].cells[col]);
        grid.EndLoad();
        grid.SetRow(0);  // a highlighted line would hide its colours
        for (int row = 0; row < static_cast<int>(rows_.size()); ++row) Dress(grid, row);
    }

  private:
    struct Row {
        QStringList cells;
        QList<std::pair<int, QColor>> fills;
        bool bold;
    };
    void Dress(controls::FlexGrid& grid, int index) const {
        const Row& row = rows_[static_cast<std::size_t>(index)];
        for (const auto& [col, fill] : row.fills) grid.SetCellColor(index + 1, col, fill);
        if (!row.bold) return;
        for (const int col : {0, 1}) grid.SetCellBold(index + 1, col, true);
        if (!row.fills.isEmpty()) grid.SetCellBold(index + 1, row.fills.back().first, true);
    }

    std::vector<Row> rows_;
};

QStringList PriceHeaders() {
    QStringList headers{QString(), u"区域"_s, u"内容"_s};
    for (int field = 2; field <= 20; ++field) headers += history::CaptionOf("M031", u"F%1"_s.arg(field)).text;
    return headers;
}

}  // namespace

History::History()
    : ChildForm(u"History"_s, u"操作记录"_s),
      CmbObject(new controls::ComboBox),
      CmbOperator(new controls::ComboBox),
      Txt(new controls::LineBox),
      LabEntry(StripLabel({}, u"subtitle"_s)),
      ChkChanged(new controls::CheckBox(u"只看改动的项"_s)),
      CmdBack(new controls::Button(u"恢 复"_s)) {
    MakeList();
    MakeDetails();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeStrip());
    column->addWidget(GD, 2);
    column->addWidget(MakeSplit());
    column->addWidget(GDItem, 3);
    column->addWidget(GDPrice, 3);
    commands_.Fill(
        MenuBar(),
        {{u"Menu_ToExcel"_s, u"&T.导出数据"_s, CommandRow::When::Always, [this] { ExportGrid(*GD); }},
         {u"Menu_Return"_s, u"&R.返回"_s, CommandRow::When::Always, [this] { Unload(); }}});
}

void History::MakeList() {
    GD = Grid(u"GD"_s, u"操作记录"_s,
              {u"时间"_s, u"操作员"_s, u"动作"_s, u"对象"_s, u"单号或名称"_s, u"摘要"_s},
              {{At, 160}, {By, 110}, {What, 80}, {On, 120}, {Which, 240}});
    GD->SetColAlignment(What, Qt::AlignHCenter);
    GD->SetWordColor(What, WordOf(Action::Deleted), controls::paint::kDanger);
    GD->setMinimumHeight(GD->HeightOf(LeastRows));
    GD->RowChange = [this] { ShowEntry(); };
}

void History::MakeDetails() {
    GDItem = Grid(u"GDItem"_s, u"改动前后"_s, {QString(), u"项目"_s, u"改动前"_s, u"改动后"_s},
                  {{Mark, MarkWidth}, {Item, ItemWidth}});
    GDPrice =
        Grid(u"GDPrice"_s, u"报价改动前后"_s, PriceHeaders(), {{PriceMark, 34}, {Zone, 90}, {Side, 80}});
    for (controls::FlexGrid* grid : {GDItem, GDPrice}) {
        grid->SetColAlignment(Mark, Qt::AlignHCenter);
        grid->SetWordColor(Mark, Differs, controls::paint::kAccentDeep);
        grid->setItemDelegate(new UnchangedMuted(grid));
    }
    for (int col = FirstPrice; col < GDPrice->Cols(); ++col) {
        GDPrice->SetColAlignment(col, Qt::AlignRight);
        GDPrice->SetGridColWidth(col, 92 * controls::FlexGrid::UnitsPerPixel);
    }
    GDPrice->hide();
}

QWidget* History::MakeStrip() {
    auto* strip = new FilterStrip(*this);
    CmbObject->SetItemsOnly();
    strip->Add(u"对象"_s, u"Cmb(0)"_s, CmbObject, 130);
    strip->Add(u"操作员"_s, u"Cmb(1)"_s, CmbOperator, 130);
    strip->AddPeriod(DTP);
    strip->Add(u"单号或名称"_s, u"Txt(0)"_s, Txt, 160);
    strip->AddButton(u"查 找"_s, u"Cmd(0)"_s)->Click = [this] { Search(); };
    return strip;
}

QWidget* History::MakeSplit() {
    auto* strip = new QWidget;
    strip->setProperty("role", u"strip"_s);
    strip->setProperty("edge", u"both"_s);
    strip->setAttribute(Qt::WA_StyledBackground);
    strip->setFixedHeight(StripHeight);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(StripMargin, 0, StripMargin, 0);
    row->setSpacing(0);
    row->addWidget(StripLabel(u"改动前后"_s, u"group"_s));
    row->addSpacing(Gap);
    row->addWidget(LabEntry);
    row->addStretch(1);
    ChkChanged->setObjectName(u"Chk(0)"_s);
    ChkChanged->KeyPressed = controls::EnterMovesOn;
    ChkChanged->Click = [this] { ShowEntry(); };
    row->addWidget(ChkChanged);
    row->addSpacing(Gap);
    CmdBack->setObjectName(u"Cmd(1)"_s);
    CmdBack->Click = [this] { AskAndPutBack(); };
    row->addWidget(CmdBack);
    return strip;
}

void History::Load() {
    const QDate today = sys::Today();
    DTP[0]->SetValue(today.addDays(1 - today.day()));
    DTP[1]->SetValue(today);
    FillCombos();
    Search();
}

/// Both sides get the same width.
void History::resizeEvent(QResizeEvent* event) {
    ChildForm::resizeEvent(event);
    const int side = (GDItem->width() - MarkWidth - ItemWidth) / 2;
    GDItem->SetGridColWidth(Old, side * controls::FlexGrid::UnitsPerPixel);
}

void History::FillCombos() {
    CmbObject->AddItem(AllObjects);
    for (const history::Object& object : history::Objects())
        if (TheFrame().MenuVisible(object.menu)) CmbObject->AddItem(object.caption);
    CmbObject->SetListIndex(0);
    CmbOperator->AddItem(AllOperators);
    auto names = Db->OpenRecordset(u"select F2 from TE1 order by F1"_s);
    for (; !names.Eof(); names.MoveNext()) CmbOperator->AddItem(names.Fields(0).Text());
    CmbOperator->AddItem(history::OtherProgram);
    CmbOperator->SetListIndex(0);
}

void History::Search() {
    history::Search search;
    for (const history::Object& object : history::Objects()) {
        if (TheFrame().MenuVisible(object.menu)) search.menus += object.menu;
        if (object.caption == CmbObject->Text()) search.object = &object;
    }
    if (CmbOperator->Text() != AllOperators) search.operatorName = text::Trim(CmbOperator->Text());
    search.from = DTP[0]->Value();
    search.to = DTP[1]->Value();
    search.text = text::Trim(Txt->Text());
    const controls::WaitPointer wait;
    entries_ = history::Find(*Db, search, &cut_);
    FillList();
}

void History::FillList() {
    GD->BeginLoad(static_cast<int>(entries_.size()));
    int row = 0;
    for (const Entry& entry : entries_) {
        const QString which = entry.name.isEmpty() ? entry.key : entry.key + u'.' + entry.name;
        const QStringList cells{entry.at, entry.operatorName, WordOf(entry.action), entry.caption,
                                which,    entry.summary};
        for (int col = 0; col < ListColumns; ++col) GD->LoadCell(row, col, cells[col]);
        ++row;
    }
    GD->EndLoad();
    ShowEntry();
}

const Entry* History::Chosen() const {
    const int row = GD->Row() - 1;
    return row >= 0 && row < static_cast<int>(entries_.size()) ? &entries_[static_cast<std::size_t>(row)]
                                                               : nullptr;
}

void History::ShowStatus() {
    // Where older entries were not looked at, nothing found does not mean that there is none.
    QString words = cut_ ? u"操作记录：最近的记录中没有找到，请缩小日期范围"_s : u"无操作记录"_s;
    if (!entries_.empty())
        words = u"操作记录：共 "_s + QString::number(entries_.size()) +
                (cut_ ? u" 条最近的记录 当前为第 "_s : u" 条记录 当前为第 "_s) + QString::number(GD->Row()) +
                u" 条"_s;
    TheFrame().SetPanel(MForm::PositionPanel, words);
}

void History::ShowEntry() {
    ShowStatus();
    const Entry* const entry = Chosen();
    CmdBack->setEnabled(entry && entry->action != Action::Added);
    LabEntry->setText(entry
                          ? u"%1 %2　%3　%4"_s.arg(entry->caption, entry->key, entry->at, entry->operatorName)
                          : QString());
    if (entry) {
        ShowItems(*entry);
        ShowPrices(*entry);
        return;
    }
    Lines().Put(*GDItem);
    GDPrice->hide();
}

void History::ShowItems(const Entry& entry) {
    const bool onlyChanged = ChkChanged->Value() == 1;
    const QByteArray& table = entry.object->table;
    const QStringList columns = history::ColumnsOf(*Db, table);
    const history::Images images = history::ImagesOf(*Db, entry);
    Lines lines;
    const auto add = [&](const QString& item, const QString& before, const QString& after, bool same) {
        if (same && onlyChanged) return;
        QList<std::pair<int, QColor>> fills;
        if (!same) fills = {{Old, OldFill}, {New, NewFill}};
        lines.Add({same ? QString() : Differs, item, before, after}, fills, !same);
    };
    for (qsizetype i = 0; i < columns.size(); ++i)
        if (history::Shown(table, columns[i]))
            add(history::CaptionOf(table, columns[i]).text, ShownValue(table, columns[i], images.before, i),
                ShownValue(table, columns[i], images.after, i), Same(images.before, images.after, i));
    for (const history::Family& family : entry.object->family) {
        if (family.prices) continue;
        for (const history::FamilyRow& row : history::FamilyOf(*Db, entry, family)) {
            const auto words = [](const Image& image) {
                return image ? image->mid(1, 3).join(u' ') : QString();
            };
            add(u"地区"_s, words(row.before), words(row.after), !row.Changed());
        }
    }
    lines.Put(*GDItem);
}

/// Two lines for a zone whose prices differ, one for any other.
void History::ShowPrices(const Entry& entry) {
    const bool onlyChanged = ChkChanged->Value() == 1;
    Lines lines;
    bool any = false;
    for (const history::Family& family : entry.object->family) {
        if (!family.prices) continue;
        for (const history::FamilyRow& row : history::FamilyOf(*Db, entry, family)) {
            any = true;
            const bool same = !row.Changed();
            if (same && onlyChanged) continue;
            for (const bool before : {true, false}) {
                const Image& image = before ? row.before : row.after;
                if (!image || (same && !before)) continue;
                QList<std::pair<int, QColor>> fills;
                for (int col = FirstPrice; col < GDPrice->Cols(); ++col)
                    if (!Same(row.before, row.after, col - 1))
                        fills.push_back({col, before ? OldFill : NewFill});
                QStringList cells{same ? QString() : Differs, row.key,
                                  same     ? u"未改动"_s
                                  : before ? u"改动前"_s
                                           : u"改动后"_s};
                lines.Add(cells + image->mid(2), fills, false);
            }
        }
    }
    lines.Put(*GDPrice);
    GDPrice->setVisible(any);
}

void History::AskAndPutBack() {
    const Entry* const chosen = Chosen();
    if (!chosen || WarnOfEdit()) return;
    const Entry entry = *chosen;
    if (const QString why = history::Refusal(*Db, entry); !why.isEmpty()) return sys::Inform(why, MsgTitle);
    const QString question = history::Question(*Db, entry);
    const bool replaces = entry.action != Action::Deleted;
    if (!(replaces ? sys::AskToDestroy(question, MsgTitle) : sys::Ask(question, MsgTitle))) return;
    QString password;
    if (history::NeedsPassword(*Db, entry)) {
        NewPassword asked(window());
        asked.ShowModal();
        if (!asked.Entered) return;
        password = *asked.Entered;
    }
    if (const QString why = history::PutBack(*Db, entry, password); !why.isEmpty())
        return sys::Inform(why, MsgTitle);
    sys::Inform(u"恢复完成!"_s, MsgTitle);
    StoredDataChanged();
    Search();
}
