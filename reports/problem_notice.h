// 问题件通知单: the notice of a waybill that can be neither forwarded nor delivered, typed and printed.
//
// Always holds: nothing is stored but the one row of the work table that a print fills. A reason is a line of
// the paper: a text that reaches its length while it is typed moves the focus on.
#pragma once

#include "app/child_form.h"
#include "platform/controls/box.h"
#include "records/command_bar.h"

#include <array>

class C05 : public ChildForm {
    Q_OBJECT
  public:
    C05();
    void Load() override {}
    QWidget* FirstFocus() const override;

  private:
    enum Box { Number, Facts, FirstReason, SecondReason, BoxCount = 7 };
    static constexpr int kLabels = 3;       ///< the other reasons are below the first
    static constexpr int kLineLength = 36;  ///< characters of a line of the paper

    void MakeBoxes();
    QWidget* MakeCard();
    QString Trimmed(int box) const;
    void MoveOnWhenFull(int box);
    void LookUp();
    bool IsFilled() const;
    void Menu_P();

    std::array<controls::LineBox*, BoxCount> Txt{};
    std::array<qsizetype, BoxCount> lengths_{};  ///< of the texts before the change
    std::array<QLabel*, kLabels> Lab{};
    CommandBar commands_;
};
