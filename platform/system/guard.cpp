#include "platform/system/guard.h"

#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/system/stop_signals.h"

#include <QCoreApplication>

#include <map>
#include <new>
#include <optional>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

std::optional<int> ended;

class HookList {
  public:
    int Add(std::function<void()> hook) {
        hooks_.emplace(++last_, std::move(hook));
        return last_;
    }
    void Remove(int handle) { hooks_.erase(handle); }
    void Run() const {
        for (const auto& [handle, hook] : hooks_) hook();
    }

  private:
    std::map<int, std::function<void()>> hooks_;
    int last_ = 0;
};

// They are never destroyed: a database that lives until the process ends takes its hooks out of them.
HookList& CommandEnd() {
    static auto& list = *new HookList;
    return list;
}

HookList& ProgramEnd() {
    static auto& list = *new HookList;
    return list;
}

HookList& Abandon() {
    static auto& list = *new HookList;
    return list;
}

void Call(const std::function<void()>& hook) {
    try {
        if (hook) hook();
    } catch (const ProgramEnded&) {
        throw;
    } catch (const CommandGivenUp&) {
        // The hook has written nothing, and whoever gave it up knows.
    } catch (const std::exception&) {
        // The failure that is being reported is the one that counts.
    }
}

/// Shows what escaped and ends. Committing what was executed before may fail in its turn; the box then says
/// so.
[[noreturn]] void Report(QString text, QString statement, bool groupLost) {
    if (!groupLost) Call(onFailure().noticed);
    // Also where the group is known to be lost: the loss has to be over before the box waits, or whatever
    // happens meanwhile would report it again.
    try {
        CloseCommand();
    } catch (const DatabaseError& error) {
        if (!groupLost) {
            text += u"\r\r"_s + error.Text();
            if (statement.isEmpty()) statement = error.Statement();
        }
        groupLost = true;
    }
    if (groupLost) text += u"\r\r本次操作已写入的内容未能保存，全部撤回。"_s;
    BoxRequest request;
    request.text = text + u"\r\r程序即将结束。"_s;
    request.title = QCoreApplication::applicationName();
    request.icon = BoxIcon::Critical;
    request.detail = statement;
    request.keepsGroup = true;  // it was closed or lost above
    MsgBox(request);
    if (!groupLost) Call(onFailure().reported);
    EndProgram(1);
}

void ReportCurrent() {
    try {
        throw;
    } catch (const DatabaseError& error) {
        Report(error.Text(), error.Statement(), error.GroupLost());
    } catch (const PlatformError& error) {
        Report(error.Text(), QString(), false);
    } catch (const std::bad_alloc&) {
        Report(u"内存溢出"_s, QString(), false);
    } catch (const std::exception& error) {
        Report(QString::fromUtf8(error.what()), QString(), false);
    }
}

void RunCommand(const std::function<void()>& body) {
    try {
        body();
    } catch (const CommandGivenUp&) {
        // Nothing was written, and whoever gave it up knows.
    }
    CloseCommand();
}

}  // namespace

OnFailure& onFailure() {
    static OnFailure inUse;
    return inUse;
}

void Guarded(const std::function<void()>& body) {
    if (ended) return;
    try {
        try {
            RunCommand(body);
        } catch (const ProgramEnded&) {
            throw;
        } catch (...) {
            ReportCurrent();
        }
    } catch (const ProgramEnded& end) {
        if (!ended) ended = end.status;
    }
}

bool HasEnded() {
    return ended.has_value();
}

void ThrowIfEnded() {
    if (ended) throw ProgramEnded{*ended};
}

void ClearEnd() {
    ended.reset();
}

int AddCommandEndHook(std::function<void()> hook) {
    return CommandEnd().Add(std::move(hook));
}

void RemoveCommandEndHook(int handle) {
    CommandEnd().Remove(handle);
}

void CloseCommand() {
    EndIfStopped();
    CommandEnd().Run();
}

int AddProgramEndHook(std::function<void()> hook) {
    return ProgramEnd().Add(std::move(hook));
}

void RemoveProgramEndHook(int handle) {
    ProgramEnd().Remove(handle);
}

void RunProgramEndHooks() {
    ProgramEnd().Run();
}

int AddAbandonHook(std::function<void()> hook) {
    return Abandon().Add(std::move(hook));
}

void RemoveAbandonHook(int handle) {
    Abandon().Remove(handle);
}

void RunAbandonHooks() {
    Abandon().Run();
}

}  // namespace sys
