// The only search dialog. It depends on no table: its caller supplies the searchable fields, and the dialog
// returns the text of a statement, which the caller executes itself.
//
// Always holds: PubSql is "" unless the operator pressed 查 找; without conditions it is the base statement
// alone, so the caller shows all its records.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/list_box.h"
#include "platform/controls/modal_form.h"
#include "records/search_conditions.h"

#include <QLabel>

#include <array>
#include <functional>
#include <vector>

/// A form that can be searched.
class QueryCaller {
  public:
    /// Receives the finished statement; "" means that the operator started no search.
    QString PubSql;

  protected:
    ~QueryCaller() = default;
};

/// One searchable field.
struct SearchField {
    static constexpr int OwnCaption = -1;

    int column;     ///< its caption is the header of this column of the caller's list; or OwnCaption
    QString field;  ///< qualified: "M04.F1"
    search::Kind kind = search::Kind::Text;
    QString caption = {};  ///< the caption, if it is not a header
    QString offered = {};  ///< the spelling in the list of fields, if it differs
};

/// The input of the dialog, supplied by a form.
struct SearchTable {
    QString base;  ///< a SELECT with its whole FROM, without WHERE, with a blank at its end
    std::vector<SearchField> fields;
    int first = 0;  ///< index of the field that is selected at first
};

/// The search of every form: clears PubSql, fills the dialog, shows it over the form and, if it returned a
/// statement, calls the form's own `load` with it.
void RunQuery(QueryCaller& caller, const controls::FlexGrid& list, const SearchTable& table,
              const std::function<void(const QString& sql)>& load);

/// 查找条件: the search dialog.
class Query : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit Query(QWidget* over);

    // Set by the caller before the dialog is shown.
    QueryCaller* Caller = nullptr;
    QString BaseStatement;

    /// Clears the field table and sets its number of rows.
    void ClearFields(int rows);
    void SetField(int row, const QString& caption, const QString& field, search::Kind kind,
                  const QString& offered);
    void ChooseField(int row);

    void done(int result) override;

  protected:
    void Load() override;

  private:
    void MakeBoxes();
    void MakeLists();
    void MakeButtons();
    void Arrange();
    void WireControls();

    search::Kind ChosenKind() const;
    void FieldChosen();
    void AddCondition();
    void RemoveCondition();
    void ShowConditions();
    void Find();
    void Cancel();

    controls::ComboBox *CmbLG, *CmbF, *CmbGX;  ///< connective, field, relation
    controls::LineBox* Txt;                    ///< value of a text or a number
    controls::DTPicker* DTP;                   ///< value of a date
    controls::ListBox* Lst;                    ///< shows the lines of conditions_
    controls::ListBox* LstSql;                 ///< hidden: shows their pieces of the statement
    controls::FlexGrid* GD;                    ///< hidden, parallel to CmbF: caption, field, kind
    std::array<QLabel*, 3> CPT{};
    controls::Button *CmdAdd, *CmdRemove, *CmdQuery, *CmdCancel;
    search::Conditions conditions_;  ///< the only place of the conditions
};
