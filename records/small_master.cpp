#include "records/small_master.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/controls/card.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"

using namespace Qt::StringLiterals;
using When = CommandRow::When;

namespace {

enum Column { Key, Note };

}  // namespace

SmallMaster::SmallMaster(const SmallMasterSettings& settings)
    : RecordForm({.form = settings.form,
                  .caption = settings.caption,
                  .listTab = settings.listTab,
                  .cardTab = settings.cardTab,
                  .tabStripDisabled = false}),
      master_(settings) {
    SetUsualCommands({});
    controls::Card* card = MakeCard();
    card->Group(settings.group);
    MakeBox(settings.keyCaption, settings.keyLimit);
    MakeBox(settings.noteCaption, settings.noteLimit, settings.noteRows);
    using Half = controls::Card::Half;
    card->Field(Half::Left, 0, 0, settings.keySpan, Lab[Key], Txt[Key]->Widget());
    if (settings.noteRows > 1)
        card->TallField(Half::Left, 1, settings.noteRows, 0, 3, Lab[Note], Txt[Note]->Widget());
    else
        card->Field(Half::Left, 1, 0, 3, Lab[Note], Txt[Note]->Widget());
    card->Finish();
}

void SmallMaster::Load() {
    FormMode = Browsing;
    GD->raise();
    LoadGrid(u"select * from "_s + master_.table + u" order by F1"_s);
}

QStringList SmallMaster::Headers() const {
    if (master_.headers.isEmpty()) return {Lab[Key]->text(), Lab[Note]->text()};
    return master_.headers;
}

void SmallMaster::RowToCard() {
    if (CurRow == 0) CurRow = 1;
    for (int i = Key; i <= Note; ++i) Txt[i]->SetText(CurrentCell(i));
}

void SmallMaster::OpenCard() {
    for (std::size_t i = Note; i < Txt.size(); ++i) {
        Txt[i]->SetLocked(false);
        if (FormMode == Adding) Txt[i]->SetText({});
    }
}

void SmallMaster::CloseCard() {
    for (auto* box : Txt) box->SetLocked(true);
}

void SmallMaster::Menu_Add() {
    FormMode = Adding;
    EnterEdit();
    Txt[Key]->SetLocked(false);
    Txt[Key]->SetText({});
    Txt[Key]->SetFocus();
}

void SmallMaster::Menu_edit() {
    FormMode = Editing;
    EnterEdit();
    Txt[Key]->SetLocked(IsUsed(text::Trim(CurrentCell(Key))));
    Txt[Key]->SetFocus();
}

bool SmallMaster::IsUsed(const QString& key) const {
    return !GetStr(master_.usedIn + Quoted(key)).isEmpty();
}

void SmallMaster::Menu_del() {
    if (text::Trim(GD->TextMatrix(1, Key)).isEmpty()) return;
    const QString key = text::Trim(CurrentCell(Key));
    const bool used = IsUsed(key);
    // The message boxes name the note and not the key: required by the business.
    const QString name = CurrentCell(Note);
    const DeleteAnswer answer =
        AskToDelete(name, used, u"真的要删除"_s + name + u"吗?"_s, sys::BoxAnswer::Yes);
    if (answer == DeleteAnswer::No) return;
    // The waybills that use the record go with it; nothing is posted back to the ledger.
    if (answer == DeleteAnswer::RecordAndUses) Db->Execute(master_.cascade + Quoted(key));
    Db->Execute(u"delete from "_s + master_.table + u" WHERE F1="_s + Quoted(key));
    if (answer == DeleteAnswer::RecordAndUses) DeleteStepsWithoutWaybill();
    RemoveCurrentRecord(CurRowLimit::Records);
}

/// The note is the field that is chosen at first.
void SmallMaster::Menu_query() {
    SearchTable table{.base = u"Select "_s + master_.table + u".* from "_s + master_.table + u" "_s,
                      .fields = {},
                      .first = Note};
    for (int col = 0; col < GD->Cols(); ++col)
        table.fields.push_back({col, master_.table + u".F"_s + QString::number(col + 1)});
    RunQuery(*this, *GD, table, [this](const QString& sql) { LoadGrid(sql); });
}

bool SmallMaster::CheckKey() {
    const QString key = text::Trim(BoxText(Key));
    const QString old = OldKey(Key);
    return PrepareSave(
        {.key = key,
         .old = old,
         .found = GetStr(master_.duplicateTest + Quoted(key)),
         .refusal = (master_.duplicateNamesKey ? BoxText(Key) : QString()) + master_.duplicateText,
         .deleteOld = [&] {
             Db->Execute(u"delete from "_s + master_.table + u" where F1="_s + Quoted(old));
         }});
}

void SmallMaster::Menu_save() {
    if (!RequireFilled(master_.requiredBoxes) || !CheckKey()) return;
    const QString key = text::Trim(BoxText(Key));
    const QString note = text::Trim(BoxText(Note));
    Db->Execute(u"insert into "_s + master_.table + u" (F1,F2) VALUES ("_s + Quoted(key) + u","_s +
                Quoted(note) + u")"_s);
    AppendLine({key, note});
    FinishSave();
}
