// Emptying whole groups of tables, for a fresh set of books.
//
// Always holds: nothing is emptied before a dated copy of the data file lies beside it. Forms that are open
// are not notified: they go on showing the rows that they have read.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/modal_form.h"

#include <array>

/// 清除数据.
class S03 : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit S03(QWidget* over);

  private:
    static constexpr int Groups = 4;

    void Clear();
    bool LacksWaybills() const;

    std::array<controls::CheckBox*, Groups> Chk{};
};
