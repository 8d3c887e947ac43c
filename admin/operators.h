// The operators, their passwords and their rights.
//
// Always holds: a right takes effect at the operator's next login; nothing here touches the running session.
// The administrator is known by his code alone, and that code can be changed like any other. Passwords are
// shown in clear, in the list and on the card.
#pragma once

#include "records/record_form.h"

#include <array>

/// 系统操作员管理.
class S02 : public RecordForm {
    Q_OBJECT
  public:
    S02();
    void Load() override;

  protected:
    QStringList Headers() const override;
    void RowToCard() override;
    void OpenCard() override;
    void CloseCard() override;

  private:
    static constexpr int Rights = 8;

    void BuildCard();
    void MakeRights();
    void EnableRights(bool enabled);
    void ShowRights();

    void Menu_Add() override;
    void Menu_edit() override;
    void Menu_del() override;
    void Menu_query() override {}  // the bar has no search
    void Menu_save() override;
    bool CheckCode();
    void Insert() const;

    std::array<controls::CheckBox*, Rights> Chk{};
};
