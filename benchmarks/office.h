// The running program, as far as a measurement needs it: the frame and the waybill form over a copy of the
// generated company, the administrator logged in. A measurement writes to the copy only, so its writes are
// committed.
#pragma once

#include "app/main_window.h"
#include "benchmarks/made_company.h"
#include "waybills/waybill_form.h"

#include <memory>

namespace benchmarks {

/// The form itself, with its list's protected members made public.
class OpenForm : public B01 {
  public:
    using RecordForm::LoadGrid;
    /// Loads all waybills, as the form does when it opens.
    void LoadAll() { LoadGrid(ListStatement()); }
    /// Loads the first `waybills` of them.
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
    /// Processes the posted events, which in use are processed before the operator presses the next key.
    static void Settle();
    BareEngine& Bare() { return *bare_; }
    /// The engine of the session's database.
    sqlite3* Engine() { return engine_; }

  private:
    std::unique_ptr<BareEngine> bare_;
    std::unique_ptr<MForm> frame_;
    sqlite3* engine_ = nullptr;
    OpenForm* form_ = nullptr;
};

}  // namespace benchmarks
