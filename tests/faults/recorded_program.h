// A program whose operator answers every box with OK or Yes and whose end is noted: for tests that must not
// know beforehand which box will come.
#pragma once

#include "platform/system/guard.h"
#include "tests/faults/company_state.h"
#include "tests/faults/waybill_entry.h"
#include "tests/support/program.h"

#include <QTemporaryDir>

#include <functional>
#include <optional>
#include <vector>

namespace tests {

class RecordedProgram : public Program {
  public:
    explicit RecordedProgram(const QStringList& masters = FaultMasters(), const OpenWith& with = {})
        : Program(masters, u"001"_s, with) {
        sys::seams().showBox = [this](const sys::BoxRequest& request) {
            if (whileBox) whileBox();
            // The window's own events come meanwhile.
            if (!request.keepsGroup || request.icon == sys::BoxIcon::Critical) sys::Guarded([] {});
            boxes.push_back(request);
            return request.buttons == sys::BoxButtons::YesNo ? sys::BoxAnswer::Yes : sys::BoxAnswer::Ok;
        };
        sys::seams().leave = [this](int code) {
            status = code;
            throw sys::ProgramEnded{code};
        };
    }
    /// What the next start would find if the process died here.
    QStringList StateLeft() {
        const QTemporaryDir folder;
        return StateOf(CopyAsLeft(File(), folder.path()));
    }

    std::vector<sys::BoxRequest> boxes;
    std::optional<int> status;  ///< of the end
    std::function<void()> whileBox;
};

}  // namespace tests
