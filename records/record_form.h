// The list-and-card form that all master data and the waybills use: a grid with all rows on one tab, the
// boxes of the current row on the other, and one protocol of commands.
//
// Always holds: the grid is a copy and not bound to the database; every save and delete runs its own
// statement and repeats the change on the grid by hand; DataChanged alone reads the list again. CurRow counts
// from 1 (row 0 is the header) and is 0 only after the last record was deleted, and that not in every form.
// EditInProgress is true from EnterEdit to LeaveEdit, unless another form's edit ends meanwhile; InEdit says
// it then.
#pragma once

#include "app/child_form.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/keys.h"
#include "platform/controls/tab_strip.h"
#include "platform/system/seams.h"
#include "records/command_bar.h"
#include "records/form_mode.h"
#include "records/query.h"

#include <QLabel>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <vector>

namespace dao {
class Recordset;
}

namespace controls {
class Card;
}

struct RecordFormSettings {
    QString form;     ///< "A04"
    QString caption;  ///< "外务员资料"
    QString listTab;
    QString cardTab;
    /// What happens to the tab strip in add and edit state: in the small forms it leaves the tab order, in
    /// the larger ones it is disabled.
    bool tabStripDisabled;
};

class RecordForm : public ChildForm, public QueryCaller {
    Q_OBJECT
  public:
    bool QueryUnload() override;
    bool InEdit() const override { return FormMode != Browsing; }
    void DataChanged() override;
    QWidget* FirstFocus() const override { return GD; }

    std::int16_t FormMode = 0;  ///< one of FormModes
    int CurRow = 1;
    int RecCount = 0;

  protected:
    static constexpr int NoLimit = 32767;  ///< characters; what the toolkit's own boxes hold
    static constexpr int ListTab = 1;
    static constexpr int CardTab = 2;

    explicit RecordForm(const RecordFormSettings& settings);

    /// The form's menu bar. Called once by the constructor of the form itself.
    void SetCommands(std::vector<CommandRow> rows);
    /// The bar that most record forms have: from 增加 to 取消, then the form's own, and 返回 at the end.
    void SetUsualCommands(std::vector<CommandRow> own);
    virtual void Menu_Add() = 0;
    virtual void Menu_edit() = 0;
    virtual void Menu_del() = 0;
    virtual void Menu_query() = 0;
    virtual void Menu_save() = 0;

    // What a form says of itself.
    virtual QStringList Headers() const = 0;
    virtual QString StatusText() const;
    /// A cell as it goes into the grid.
    virtual void DressCell(int /*col*/, QString& /*text*/) const {}
    /// How many columns a load fills, from the first on.
    virtual int LoadedCols() const { return GD->Cols(); }
    /// The column of the list that no two records share.
    virtual int KeyCol() const { return 0; }
    virtual void RowToCard() = 0;
    /// Unlocks (and, when adding, empties) the boxes as this form does it; and the way back.
    virtual void OpenCard() = 0;
    virtual void CloseCard() = 0;

    // The routines that all record forms share.
    void DressGrid();
    /// A failure leaves in the list what was read before it.
    void LoadGrid(const QString& sql);
    /// For the forms that show a failure in a message box and go on.
    void LoadGridOrReport(const QString& sql);
    void ShowRow();
    void EnterEdit();
    void LeaveEdit();
    /// The row-change routine: the grid's row becomes the current one. During an edit the list stays on the
    /// record that is being edited.
    void RowChanged();
    void Menu_cancel();
    void Menu_Return() { Unload(); }

    /// Txt(0) up to before `count`, trimmed, must not be empty; the first that is gets its message.
    bool RequireFilled(int count) const;

    enum class DeleteAnswer {
        No,
        Record,        ///< which is in use nowhere
        RecordAndUses  ///< the administrator's; the statement that deletes the uses is the form's
    };
    /// Asks before a delete: once for a record that nothing uses, twice of the administrator for one in use.
    /// Anybody else is refused. `name` is what the boxes call the record.
    static DeleteAnswer AskToDelete(const QString& name, bool used, const QString& plainQuestion,
                                    sys::BoxAnswer warningDefault);
    /// A key that a save is about to write.
    struct KeyCheck {
        QString key;
        QString old;                      ///< of the record being edited; see OldKey
        QString found;                    ///< what the table holds under the key already; "" for nothing
        QString refusal;                  ///< the message when that is another record's
        std::function<void()> deleteOld;  ///< deletes the stored rows of the record being edited
    };
    /// False, with the message and the focus in Txt(0), when another record has the key. Else prepares
    /// the save: in an edit the stored rows and their line go, an addition is counted.
    bool PrepareSave(const KeyCheck& check);
    /// The key in that column of the line being edited; "" while adding.
    QString OldKey(int col = 0) const { return FormMode == Editing ? CurrentCell(col) : QString(); }
    /// After a save has put its line at the end: back to browsing. The saved record is the next command's,
    /// while the highlight stays on the line where it was.
    void FinishSave();

    /// What CurRow stays within when a record goes. They differ for the last one: its list keeps a blank
    /// line, and CurRow is 0 or on that.
    enum class CurRowLimit { Records, GridRows };
    /// After the record's row was deleted: its line goes, the counts follow, the list comes to the front.
    void RemoveCurrentRecord(CurRowLimit last);

    QString BoxText(int box) const { return Txt[box]->Text(); }
    /// Txt(i), which must have but one row; raises std::bad_cast else.
    controls::LineBox& Line(int box) const { return dynamic_cast<controls::LineBox&>(*Txt[box]); }
    /// The grid's text at the current row.
    QString CurrentCell(int col) const { return GD->TextMatrix(CurRow, col); }
    /// Removes the current line, or dresses the grid anew when it is the only one.
    void RemoveCurrentLine();
    /// Adds a line at the end; the blank line of an empty grid goes.
    void AppendLine(const QStringList& cells);

    /// The card that fills Frm, empty.
    controls::Card* MakeCard();
    /// Makes Txt(i) with its Lab(i): names, accessible name, and what the focus and Enter do in every box.
    controls::TextBox& MakeBox(const QString& caption, int maxLength, int rows = 1);
    /// In browsing state the boxes cannot be entered; Enter moves on. Returns the control for chaining.
    template <class Control>
    void WireBox(Control& control);

    /// Tab goes through these in this order, behind the tab strip.
    void SetTabOrder(const std::vector<QWidget*>& tabOrder);

    controls::TabStrip* TabS;
    controls::FlexGrid* GD;
    QWidget* Frm;  ///< holds the card; its layout belongs to the form
    std::vector<controls::TextBox*> Txt;
    std::vector<QLabel*> Lab;

  private:
    QWidget* MakeStrip();
    void SelectTab();
    void KeyOnTabs(controls::KeyPress& key);
    void TurnPage(QWidget& from, QWidget& to);
    void ShowBadge();

    RecordFormSettings settings_;
    CommandBar commands_;
    QLabel* badge_;
    QString loaded_;           ///< the statement of the list
    bool cardIsOpen_ = false;  ///< from EnterEdit, once it has filled the card, to LeaveEdit
};

template <class Control>
void RecordForm::WireBox(Control& control) {
    control.KeyPressed = controls::EnterMovesOn;
    control.GotFocus = [this] {
        if (FormMode < Adding) TabS->SetFocus();
    };
}
