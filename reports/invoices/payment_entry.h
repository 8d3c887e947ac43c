// The small window that registers one payment against one delivery note.
//
// Always holds: a note with nothing open takes no payment. A payment may exceed what is open, and the balance
// is below 0 then.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/modal_form.h"

#include <array>
#include <optional>

class D2;

///  付款登记.
class D201 : public controls::ModalForm {
    Q_OBJECT
  public:
    explicit D201(QWidget* over);

    /// Set by the caller before the form is shown: the list that gets the payment.
    D2* List = nullptr;

  protected:
    void Load() override;

  private:
    enum Box { Note, Amount, BoxCount };
    /// What was typed, once nothing is wrong with it.
    struct Payment {
        QString customer;  ///< code
        QString name;
        QString note;
        double amount = 0;  ///< yuan
    };

    void Register();
    std::optional<Payment> Checked();
    bool CheckCustomer(Payment& payment);
    bool CheckNote(Payment& payment);
    bool CheckAmount(Payment& payment);
    /// Always false.
    static bool Refuse(const QString& text, QWidget* box);
    void Write(const Payment& payment);

    controls::ComboBox* CmbKH;
    std::array<controls::LineBox*, BoxCount> Txt{};
    controls::DTPicker* DTP;
};
