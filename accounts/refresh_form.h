// 刷新明细帐: rebuilds the stored balances of all counterparties of one side, or of one of them.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/modal_form.h"

#include <QRadioButton>

class ReKuanFrm : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit ReKuanFrm(QWidget* over);

    /// Set by the caller before the form is shown: its list of counterparties, the first item of which is
    /// for all of them.
    const controls::ComboBox* Units = nullptr;

  protected:
    void Load() override;

  private:
    void MakeChoices();
    void Start();
    void RefreshOne();
    void Refresh(const QStringList& names);
    QStringList Items() const;

    std::array<QRadioButton*, 2> Opt{};  ///< all, one
    controls::ComboBox* Cmb;
    controls::Button* Command1;
    controls::Button* Command2;
};
