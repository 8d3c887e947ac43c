// Every command that writes, while another program is writing to the same file: it waits, asks, and is done
// whole or, given up, has changed nothing, and what was typed is still there to be saved.
#include "app/data_file.h"
#include "platform/dao/busy.h"
#include "tests/faults/commands.h"
#include "tests/faults/recorded_program.h"
#include "tests/support/data_file.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using tests::Command;

namespace {

/// A program right before the key of a command, and another one that writes.
class Beside : public tests::RecordedProgram {
  public:
    explicit Beside(const Command& command) : RecordedProgram(tests::CommandMasters()), other(File()) {
        AskWhenBusy();
        dao::whenBusy().patience = 0;
        Frame().setUpdatesEnabled(false);
        tests::Prepare(*this, command);
        sys::seams().showBox = [this, usual = sys::seams().showBox](const sys::BoxRequest& request) {
            if (!request.text.startsWith(u"另一个程序正在写入数据文件"_s)) return usual(request);
            EXPECT_EQ(request.title, u"提示"_s);
            EXPECT_EQ(request.icon, sys::BoxIcon::Question);
            ++asked;
            return answer();
        };
    }
    ~Beside() { dao::whenBusy() = {}; }

    void StartWriting() { other.Run(u"begin immediate"_s); }
    void StopWriting() { other.Run(u"rollback"_s); }

    tests::Connection other;
    int asked = 0;
    std::function<sys::BoxAnswer()> answer = [] { return sys::BoxAnswer::No; };
};

QStringList Undisturbed(const Command& command) {
    Beside program(command);
    command.give(program);
    EXPECT_EQ(program.asked, 0);
    return program.StateLeft();
}

void GiveUpAndGiveAgain(const Command& command, const QStringList& done) {
    Beside program(command);
    const QStringList before = program.StateLeft();
    const bool editing = EditInProgress;
    program.StartWriting();
    command.give(program);
    EXPECT_EQ(program.asked, 1);
    EXPECT_EQ(program.status, std::nullopt);
    EXPECT_EQ(EditInProgress, editing);
    EXPECT_EQ(program.StateLeft(), before);
    program.StopWriting();
    command.give(program);
    EXPECT_EQ(program.asked, 1);
    EXPECT_EQ(program.StateLeft(), done);
    EXPECT_FALSE(EditInProgress);
}

void WaitTwice(const Command& command, const QStringList& done) {
    Beside program(command);
    program.answer = [&] {
        if (program.asked == 2) program.StopWriting();
        return sys::BoxAnswer::Yes;
    };
    program.StartWriting();
    command.give(program);
    EXPECT_EQ(program.asked, 2);
    EXPECT_EQ(program.StateLeft(), done);
    EXPECT_FALSE(EditInProgress);
    EXPECT_EQ(program.status, std::nullopt);
}

class OnABusyFile : public testing::TestWithParam<std::string> {};

TEST_P(OnABusyFile, ACommandWaitsOrIsGivenUpAndCanBeGivenAgain) {
    const Command& command = tests::CommandOf(GetParam());
    const QStringList done = Undisturbed(command);
    GiveUpAndGiveAgain(command, done);
    WaitTwice(command, done);
}

/// Restoring and the reset are refused beside another program.
bool IsRefused(std::string_view name) {
    return name == "S32_Restore" || name == "S03_Clear";
}

std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const Command& command : tests::WritingCommands())
        if (!IsRefused(command.name)) names.emplace_back(command.name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(Every, OnABusyFile, testing::ValuesIn(Names()),
                         [](const auto& each) { return each.param; });

}  // namespace
