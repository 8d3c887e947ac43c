#include "tests/display/child_process.h"

#include <csignal>
#include <stdexcept>
#include <sys/prctl.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace display {
namespace {

constexpr int kPatience = 30'000;  // milliseconds

}  // namespace

ChildProcess::ChildProcess(const QString& program, const QStringList& arguments,
                           const QProcessEnvironment& environment) {
    process_.setProcessEnvironment(environment);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process_.start(program, arguments);
    if (!process_.waitForStarted(kPatience))
        throw std::runtime_error((program + u": "_s + process_.errorString()).toStdString());
}

ChildProcess::~ChildProcess() {
    process_.kill();
    process_.waitForFinished(kPatience);
}

QString ChildProcess::FirstLine() {
    while (!process_.canReadLine() && process_.waitForReadyRead(kPatience)) {
    }
    return QString::fromUtf8(process_.readLine()).trimmed();
}

bool ChildProcess::Runs() {
    // Lets the end be noticed, which otherwise takes an event loop.
    return process_.state() == QProcess::Running && !process_.waitForFinished(0);
}

void ChildProcess::Signal(int number) {
    const auto id = static_cast<pid_t>(process_.processId());
    if (id > 0) ::kill(id, number);  // 0 would reach the test itself
}

void ChildProcess::Stop() {
    Signal(SIGSTOP);
}

void ChildProcess::Continue() {
    Signal(SIGCONT);
}

BusyProcessors::BusyProcessors() {
    for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i)
        loops_.push_back(std::make_unique<ChildProcess>(u"sh"_s,
                                                        QStringList{u"-c"_s, u"while :; do :; done"_s},
                                                        QProcessEnvironment::systemEnvironment()));
}

}  // namespace display
