// The program at work, as far as a measure needs it: the frame and the waybill's form over a copy of the made
// company, the administrator logged in. What a measure writes here is written for good and does no harm.
#pragma once

#include "app/main_window.h"
#include "benchmarks/made_company.h"
#include "waybills/waybill_form.h"

#include <memory>

namespace benchmarks {

/// The form itself, with its list's doors open.
class OpenForm : public B01 {
  public:
    using RecordForm::LoadGrid;
    /// All waybills, as the form loads them when it opens.
    void LoadAll() { LoadGrid(ListStatement()); }
    /// The first so many of them.
    void LoadFirst(int waybills);
    const controls::FlexGrid& Grid() const { return *GD; }
    controls::TextBox& Box(waybills::Box box) { return *Txt[box]; }
    controls::ComboBox& Combo(waybills::Box box);
    void Press(const QString& command);
};

class Office {
  public:
    explicit Office(MadeCompany& company);
    ~Office();
    Office(const Office&) = delete;
    Office& operator=(const Office&) = delete;

    OpenForm& Form() { return *form_; }
    /// What is posted happens, as it has long happened when an operator presses the next key.
    static void Settle();
    BareEngine& Bare() { return *bare_; }
    /// The engine underneath the session's database.
    sqlite3* Engine() { return engine_; }

  private:
    std::unique_ptr<BareEngine> bare_;
    std::unique_ptr<MForm> frame_;
    sqlite3* engine_ = nullptr;
    OpenForm* form_ = nullptr;
};

}  // namespace benchmarks
