// A process that a display test starts: the X server, the window manager, the program, a busy loop.
//
// Always holds: it ends with its object, and with the test program, however that one ends.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace display {

class ChildProcess {
  public:
    /// Throws std::runtime_error when it does not start. Its output goes to the test's.
    ChildProcess(const QString& program, const QStringList& arguments,
                 const QProcessEnvironment& environment);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The first line of its standard output; empty when it ended or was silent for 30 s.
    QString FirstLine();
    bool Runs();
    /// It gets no processor time until Continue.
    void Stop();
    void Continue();

  private:
    void Signal(int number);

    QProcess process_;
};

/// One endless loop for each processor, so that the program gets its share only.
class BusyProcessors {
  public:
    BusyProcessors();

  private:
    std::vector<std::unique_ptr<ChildProcess>> loops_;
};

}  // namespace display
