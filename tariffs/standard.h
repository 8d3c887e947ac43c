// The pricing standard: the one row (table MS1) that divides the company's own price list into weight
// brackets. Changing it relabels every stored price without changing it; the dialog warns of that.
//
// Always holds: saving deletes the row and then inserts it, with no transaction and with the unchanged texts
// of the text boxes; an insert that fails leaves the table empty. Weights are in kg.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/modal_form.h"

#include <QGridLayout>
#include <QLabel>

#include <array>

/// 本公司报价标准设定. Opened from its menu, and by any code that needs the row and finds none.
class S01 : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit S01(QWidget* over);

  protected:
    void Load() override;

  private:
    static constexpr int Boxes = 20;
    static constexpr int Labels = 22;

    void MakeBoxes();
    void MakeLabels();
    void MakeButtons();
    QLayout* Sentences();
    QLayout* Segments();
    void ShowTop(int box);
    void LeaveSegment(int box);
    void Save();
    QString InsertStatement() const;

    double Number(int box) const;

    std::array<controls::LineBox*, Boxes> Txt{};
    std::array<QLabel*, Labels> Lab{};
    QLabel* Labd = nullptr;
    controls::Button* CmdOK = nullptr;
    controls::Button* CmdCancel = nullptr;
};
