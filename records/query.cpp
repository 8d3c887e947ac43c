#include "records/query.h"

#include "app/data_access.h"
#include "app/dressing.h"
#include "app/main_window.h"
#include "platform/controls/keys.h"
#include "platform/controls/numeric.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"

#include <QGridLayout>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using search::Kind;

namespace {

const QString Hint = u"Enter->增加条件   Ctrl+Enter->开始查找   Esc->取消"_s;

enum FieldColumn { CaptionColumn, NameColumn, KindColumn, FieldColumns };

constexpr int Margin = 16;
constexpr int Gap = 8;
constexpr int ConnectiveWidth = 84;
constexpr int FieldWidth = 168;
constexpr int RelationWidth = 116;
constexpr int ValueWidth = 216;
constexpr int ListHeight = 200;

}  // namespace

void RunQuery(QueryCaller& caller, const controls::FlexGrid& list, const SearchTable& table,
              const std::function<void(const QString& sql)>& load) {
    caller.PubSql.clear();
    {
        Query query(list.window());
        query.Caller = &caller;
        query.BaseStatement = table.base;
        query.ClearFields(static_cast<int>(table.fields.size()));
        int row = 0;
        for (const SearchField& field : table.fields) {
            const QString caption =
                field.column == SearchField::OwnCaption ? field.caption : list.TextMatrix(0, field.column);
            query.SetField(row++, caption, field.field, field.kind, field.offered);
        }
        query.ChooseField(table.first);
        query.ShowModal();
    }
    if (!caller.PubSql.isEmpty()) load(caller.PubSql);
}

Query::Query(QWidget* over) : ModalForm(u"Query"_s, u"查找条件"_s, over) {
    SetClosedByEsc(true);
    MakeBoxes();
    MakeLists();
    MakeButtons();
    Arrange();
    WireControls();
    CmbLG->setEnabled(false);
    CmbF->setFocus(Qt::OtherFocusReason);
}

// ---------------------------------------------------------------- building

void Query::MakeBoxes() {
    const auto combo = [this](const QString& name, int width) {
        auto* made = new controls::ComboBox(this);
        made->setObjectName(name);
        made->setFixedWidth(width);
        made->SetItemsOnly();
        return made;
    };
    CmbLG = combo(u"CmbLG"_s, ConnectiveWidth);
    CmbLG->setAccessibleName(u"与前面条件的联系"_s);
    CmbF = combo(u"CmbF"_s, FieldWidth);
    CmbGX = combo(u"CmbGX"_s, RelationWidth);
    Txt = new controls::LineBox(this);
    Txt->setObjectName(u"Txt"_s);
    Txt->setMinimumWidth(ValueWidth);
    DTP = new controls::DTPicker(this);
    DTP->setObjectName(u"DTP"_s);
    DTP->SetValue(sys::Today());
    DTP->hide();

    const QString words[] = {u"项目"_s, u"关系"_s, u"值"_s};
    QWidget* const boxes[] = {CmbF, CmbGX, Txt};
    for (std::size_t i = 0; i < CPT.size(); ++i) {
        CPT[i] = controls::MakeCaption(words[i], boxes[i], this);
        CPT[i]->setObjectName(u"CPT(%1)"_s.arg(i));
        CPT[i]->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }
    DTP->setAccessibleName(words[2]);
}

void Query::MakeLists() {
    Lst = new controls::ListBox(this);
    Lst->setObjectName(u"Lst"_s);
    Lst->setAccessibleName(windowTitle());
    LstSql = new controls::ListBox(this);
    LstSql->setObjectName(u"LstSql"_s);
    LstSql->hide();
    GD = new controls::FlexGrid(this);
    GD->setObjectName(u"GD"_s);
    GD->hide();
}

void Query::MakeButtons() {
    const auto button = [this](const QString& name, const QString& caption) {
        auto* made = new controls::Button(caption, this);
        made->setObjectName(name);
        return made;
    };
    CmdAdd = button(u"CmdAdd"_s, u"增 加"_s);
    CmdRemove = button(u"CmdRemove"_s, u"删 除"_s);
    CmdQuery = button(u"CmdQuery"_s, u"查 找"_s);
    CmdCancel = button(u"CmdCancel"_s, u"取 消"_s);
    CmdQuery->setDefault(true);  // its colour only
    for (auto* beside : {CmdAdd, CmdRemove}) beside->setProperty("kind", u"inline"_s);
}

/// A row of boxes that makes a condition, the conditions beneath it, and the buttons of each at its right.
void Query::Arrange() {
    auto* card = new QWidget(this);
    card->setProperty("role", u"surface"_s);
    card->setAttribute(Qt::WA_StyledBackground);
    auto* grid = new QGridLayout(card);
    grid->setContentsMargins(Margin, 12, Margin, Margin);
    grid->setHorizontalSpacing(Gap);
    grid->setVerticalSpacing(0);
    enum Column { Connective, Field, Relation, Value, Buttons };
    for (int i = 0; i < 3; ++i) grid->addWidget(CPT[i], 0, Field + i);
    grid->addWidget(CmbLG, 1, Connective);
    grid->addWidget(CmbF, 1, Field);
    grid->addWidget(CmbGX, 1, Relation);
    grid->addWidget(Txt, 1, Value);
    grid->addWidget(DTP, 1, Value);
    grid->addWidget(CmdAdd, 1, Buttons);
    grid->setRowMinimumHeight(2, Gap);
    grid->addWidget(Lst, 3, Connective, 1, Buttons);
    grid->addWidget(CmdRemove, 3, Buttons, Qt::AlignTop);
    grid->setRowMinimumHeight(3, ListHeight);
    grid->setRowStretch(3, 1);
    grid->setColumnStretch(Value, 1);

    auto* foot = new QVBoxLayout;
    foot->setContentsMargins(Margin, 4, Margin, 12);
    foot->addLayout(dressing::ButtonRow({CmdQuery, CmdCancel}));
    dressing::Stack(*this, *card, foot);

    QWidget* const tabOrder[] = {CmbLG, CmbF, CmbGX, Txt, DTP, CmdAdd, Lst, CmdRemove, CmdQuery, CmdCancel};
    for (std::size_t i = 1; i < std::size(tabOrder); ++i) setTabOrder(tabOrder[i - 1], tabOrder[i]);
}

void Query::WireControls() {
    CmbF->Click = [this] { FieldChosen(); };
    CmbF->GotFocus = [] { TheFrame().SetPanel(MForm::PositionPanel, Hint); };
    for (controls::ComboBox* combo : {CmbLG, CmbF, CmbGX}) combo->KeyPressed = controls::EnterMovesOn;
    DTP->KeyPressed = controls::EnterMovesOn;
    const auto onEnter = [](controls::KeyPress& key, const auto& act) {
        if (!key.IsEnter()) return;
        key.taken = true;
        if (!key.repeats) act();
    };
    Txt->KeyPressed = [this, onEnter](controls::KeyPress& key) { onEnter(key, [this] { AddCondition(); }); };
    Txt->GotFocus = [this] { Txt->selectAll(); };
    Lst->KeyPressed = [this, onEnter](controls::KeyPress& key) {
        onEnter(key, [this] { CmbF->SetFocus(); });
    };
    CmdAdd->Click = [this] { AddCondition(); };
    CmdRemove->Click = [this] { RemoveCondition(); };
    CmdQuery->Click = [this] { Find(); };
    CmdCancel->Click = [this] { Cancel(); };
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* find = new QShortcut(QKeySequence(Qt::CTRL | enter), this);
        connect(find, &QShortcut::activated, this, [this] { sys::Guarded([this] { Find(); }); });
    }
}

// ---------------------------------------------------------------- what the caller gives

void Query::ClearFields(int rows) {
    GD->SetFixedRows(0);
    GD->SetCols(FieldColumns);
    GD->SetRows(rows);
    GD->Clear();
    CmbF->Clear();
}

void Query::SetField(int row, const QString& caption, const QString& field, Kind kind,
                     const QString& offered) {
    GD->SetTextMatrix(row, CaptionColumn, caption);
    GD->SetTextMatrix(row, NameColumn, field);
    GD->SetTextMatrix(row, KindColumn, QString::number(static_cast<int>(kind)));
    CmbF->AddItem(offered.isEmpty() ? caption : offered);
}

void Query::ChooseField(int row) {
    CmbF->SetListIndex(row);
}

void Query::Load() {
    for (const QString& connective : search::Connectives()) CmbLG->AddItem(LangText(connective));
    CmbLG->SetListIndex(0);
}

// ---------------------------------------------------------------- the conditions

Kind Query::ChosenKind() const {
    return static_cast<Kind>(GD->TextMatrix(CmbF->currentIndex(), KindColumn).toInt());
}

void Query::FieldChosen() {
    const Kind kind = ChosenKind();
    CmbGX->Clear();
    for (const QString& relation : search::Relations(kind)) CmbGX->AddItem(relation);
    CmbGX->SetListIndex(0);
    DTP->setVisible(kind == Kind::Date);
    Txt->setVisible(kind != Kind::Date);
    controls::SetNumeric(*Txt, kind == Kind::Number);
}

void Query::AddCondition() {
    const Kind kind = ChosenKind();
    conditions_.Add({.connective = CmbLG->isEnabled() ? CmbLG->Text() : QString(),
                     .caption = CmbF->Text(),
                     .field = GD->TextMatrix(CmbF->currentIndex(), NameColumn),
                     .kind = kind,
                     .relation = CmbGX->Text(),
                     .value = kind == Kind::Date ? text::DateText(DTP->Value()) : Txt->Text()});
    const int chosen = Lst->ListIndex();
    ShowConditions();
    Lst->SetListIndex(chosen);  // the line that was chosen for a removal stays chosen
    Lst->scrollToBottom();
    CmbLG->setEnabled(true);
    CmbLG->SetListIndex(0);
}

void Query::RemoveCondition() {
    conditions_.Remove(Lst->ListIndex());
    ShowConditions();
    if (Lst->ListCount() == 0) CmbLG->setEnabled(false);
    Lst->SetListIndex(Lst->ListCount() - 1);
}

void Query::ShowConditions() {
    Lst->SetLines(conditions_.Shown());
    LstSql->SetLines(conditions_.Pieces());
}

// ---------------------------------------------------------------- the end

void Query::Find() {
    Caller->PubSql = conditions_.Statement(BaseStatement);
    Unload();
}

void Query::Cancel() {
    Caller->PubSql.clear();
    Unload();
}

/// The caller's next line writes the panel again.
void Query::done(int result) {
    TheFrame().SetPanel(MForm::PositionPanel, {});
    ModalForm::done(result);
}
