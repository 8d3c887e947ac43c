#include "tariffs/zone_areas.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/controls/card.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"

#include <QGridLayout>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// Columns of a card's half that a field covers.
constexpr int TwoBoxes = 3;
constexpr int AllBoxes = 5;

/// A layout with the columns of a card's half.
QGridLayout* HalfGrid(QWidget* panel) {
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(controls::kRowGap);
    controls::SetHalfColumns(*grid);
    return grid;
}

}  // namespace

ZoneAreas::ZoneAreas(const std::array<Entry, Columns>& entries)
    : entries_(entries), GDdq(new controls::FlexGrid), FrmEddq(new QWidget) {
    setObjectName(u"FrmDq"_s);
    MakeList();
    BuildEntry();
    auto* grid = HalfGrid(this);
    grid->addWidget(GDdq, 0, 1, 1, AllBoxes);
    grid->addWidget(FrmEddq, 1, 0, 1, 1 + AllBoxes);
    grid->setRowStretch(0, 1);
}

void ZoneAreas::MakeList() {
    GDdq->setObjectName(u"GDdq"_s);
    GDdq->setAccessibleName(u"包含地区"_s);
    GDdq->SetFramed(true);
    GDdq->Click = [this] { TakeRow(); };
    GDdq->KeyPressed = [this](controls::KeyPress& key) {
        if (key.IsEnter()) TakeRow();
    };
    Clear();
}

void ZoneAreas::BuildEntry() {
    FrmEddq->setObjectName(u"FrmEddq"_s);
    const QString captions[] = {u"添加 >>"_s, u"<< 删除"_s};
    for (std::size_t i = 0; i < Cmd.size(); ++i) {
        Cmd[i] = new controls::Button(captions[i]);
        Cmd[i]->setObjectName(u"Cmd(%1)"_s.arg(i));
        Cmd[i]->setProperty("kind", u"inline"_s);
    }
    Cmd[0]->Click = [this] { Add(); };
    Cmd[1]->Click = [this] { Remove(); };

    auto* grid = HalfGrid(FrmEddq);
    const auto place = [&](Column entry, int row, int col, int span) {
        QWidget* box = entries_[entry].box->Widget();
        box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        grid->addWidget(entries_[entry].caption, row, col);
        grid->addWidget(box, row, col + 1, 1, span);
    };
    place(ChineseName, 0, 0, 1);
    place(EnglishName, 0, 2, TwoBoxes);
    place(Remark, 1, 0, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(controls::kRowGap);
    for (controls::Button* button : Cmd) buttons->addWidget(button);
    buttons->addStretch(1);
    grid->addLayout(buttons, 1, 3, 1, TwoBoxes);
}

std::vector<QWidget*> ZoneAreas::TabOrder() const {
    std::vector<QWidget*> tabOrder;
    for (const Entry& entry : entries_) tabOrder.push_back(entry.box->Widget());
    tabOrder.insert(tabOrder.end(), {Cmd[0], Cmd[1], GDdq});
    return tabOrder;
}

void ZoneAreas::ShowEntry(bool shown) {
    FrmEddq->setVisible(shown);
}

// ---------------------------------------------------------------- the list

void ZoneAreas::Clear() {
    GDdq->Clear();
    GDdq->SetRows(2);
    GDdq->SetCols(Columns);
    const QString headers[Columns] = {u"中文名称"_s, u"英文名称"_s, u"备注"_s};
    for (int col = 0; col < Columns; ++col) GDdq->SetTextMatrix(0, col, headers[col]);
    GDdq->ShareWidths();
}

void ZoneAreas::Load(const QString& table, const QString& zone) {
    Clear();
    auto rows = Db->OpenRecordset(u"select F1,F2,F8 FROM "_s + table + u" WHERE F0="_s + Quoted(zone));
    for (; !rows.Eof(); rows.MoveNext()) {
        const int last = GDdq->Rows() - 1;
        for (int col = 0; col < Columns; ++col) GDdq->SetTextMatrix(last, col, rows.Fields(col).Text());
        GDdq->AddItem({});
    }
    rows.Close();
}

void ZoneAreas::Store(const QString& table, const QString& zone) const {
    for (int row = 1; row <= GDdq->Rows() - 2; ++row) {
        QStringList values{Quoted(zone)};
        for (int col = 0; col < Columns; ++col) values += Quoted(GDdq->TextMatrix(row, col));
        Db->Execute(u"insert into "_s + table + u" (F0,F1,F2,F8) VALUES ("_s + values.join(u',') + u')');
    }
}

QString ZoneAreas::FirstName() const {
    return text::Trim(GDdq->TextMatrix(1, ChineseName));
}

// ---------------------------------------------------------------- changing it

QString ZoneAreas::Typed(int col) const {
    return text::Trim(entries_[col].box->Text());
}

/// The row that holds the place of the box, or 0.
int ZoneAreas::Find() const {
    const QString name = Typed(ChineseName);
    for (int row = 1; row < GDdq->Rows(); ++row)
        if (text::Trim(GDdq->TextMatrix(row, ChineseName)) == name) return row;
    return 0;
}

void ZoneAreas::Add() {
    controls::TextBox& name = *entries_[ChineseName].box;
    if (Typed(ChineseName).isEmpty()) return name.SetFocus();
    if (const int found = Find()) {
        GDdq->SetRow(found);
        sys::Inform(u"已经录入了“"_s + name.Text() + u"”！"_s, u"提示"_s);
        return name.SetFocus();
    }
    const int last = GDdq->Rows() - 1;
    for (int col = 0; col < Columns; ++col) GDdq->SetTextMatrix(last, col, Typed(col));
    GDdq->AddItem({});
    GDdq->SetRow(last);
    name.SetFocus();
}

void ZoneAreas::Remove() {
    controls::TextBox& name = *entries_[ChineseName].box;
    if (Typed(ChineseName).isEmpty()) return name.SetFocus();
    if (const int found = Find()) return GDdq->RemoveItem(found);
    sys::Inform(u"不存在地区“"_s + name.Text() + u"”!"_s, u"提示"_s);
    name.SetFocus();
}

/// In browsing too, where the boxes are out of sight.
void ZoneAreas::TakeRow() {
    for (int col = 0; col < Columns; ++col) entries_[col].box->SetText(GDdq->TextMatrix(GDdq->Row(), col));
}
