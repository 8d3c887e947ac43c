#include "tests/display/script.h"

#include "tests/display/program_run.h"

namespace display {
namespace {

Step Keys(std::vector<Stroke> keys) {
    return {.keys = std::move(keys), .wait = nullptr};
}

Step Wait(std::function<void(ProgramRun&)> wait) {
    return {.keys = {}, .wait = std::move(wait)};
}

}  // namespace

Step Type(const QString& text) {
    std::vector<Stroke> keys;
    for (const QChar character : text) keys.push_back({.key = character.unicode()});
    return Keys(std::move(keys));
}

Step Press(Keysym key, int times) {
    return Keys(std::vector<Stroke>(static_cast<std::size_t>(times), {.key = key}));
}

Step MoveOn(int boxes) {
    return Press(0, boxes);
}

Step MoveBack(int boxes) {
    return Keys(std::vector<Stroke>(static_cast<std::size_t>(boxes), {.key = kTab, .shift = true}));
}

Step Alt(char key) {
    return Keys({{.key = static_cast<Keysym>(key), .alt = true}});
}

Step Control(char key) {
    return Keys({{.key = static_cast<Keysym>(key), .control = true}});
}

Step Fill(const QString& text) {
    Step step = Type(text);
    step.keys.push_back({});
    return step;
}

Step ExpectWindow(const QString& title) {
    return Wait([title](ProgramRun& run) { run.WaitForWindow(title); });
}

Step ExpectNoWindow(const QString& title) {
    return Wait([title](ProgramRun& run) { run.WaitForNoWindow(title); });
}

Step ExpectRows(const QString& select, const QStringList& rows) {
    return Wait([select, rows](ProgramRun& run) { run.WaitForRows(select, rows); });
}

Step ExpectIdle() {
    return Wait([](ProgramRun& run) { run.WaitUntilIdle(); });
}

Step ExpectEnd() {
    return Wait([](ProgramRun& run) { run.WaitForEnd(); });
}

Step CloseFile() {
    return Wait([](ProgramRun& run) { run.CloseFile(); });
}

Step Answer(const QString& title, Keysym key) {
    return Wait([title, key](ProgramRun& run) { run.AnswerBox(title, key); });
}

Script operator+(Script first, const Script& then) {
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

}  // namespace display
