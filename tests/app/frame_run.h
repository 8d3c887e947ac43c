// The main window over a fresh company, with forms that only keep a log, for what concerns the frame itself.
#pragma once

#include "app/child_form.h"
#include "app/main_window.h"
#include "app/session.h"
#include "tests/support/company.h"
#include "tests/support/gui.h"
#include "tests/support/script.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace tests {

using namespace Qt::StringLiterals;

class LogForm : public ChildForm {
    Q_OBJECT
  public:
    /// With a bar of its own: Alt+R closes it, Alt+A is its own command.
    LogForm(const QString& name, QStringList& log, bool withBar);
    void Load() override;
    bool QueryUnload() override { return !refuses; }
    void Activated() override;

    bool refuses = false;
    std::function<void()> whenLoading;

  private:
    QStringList& log_;
};

class FrameRun {
  public:
    /// Every form of the menus is there as a LogForm, every modal form and command as a line in the log;
    /// without forms the registry is empty and to be filled by the test before Open.
    explicit FrameRun(bool forms = true, bool withBars = true);
    ~FrameRun();

    /// Makes and shows the main window.
    void Open();
    /// Puts an operator with these rights ("F60,F67") and password in.
    void AddOperator(const QString& code, const QString& name, const QString& password,
                     const QStringList& rights = {});
    /// As after a good login.
    void BecomeOperator(const QString& code);

    MForm& Frame() { return *frame_; }
    LogForm& Form(const QString& name);
    QStringList TakeLog() { return std::exchange(log, {}); }
    /// A button of the tool bar, pressed by its key.
    void PressTool(const QString& key);
    QString BarInFront();

    Script script;
    ModalScript modals;
    Company company;
    Registry registry;
    QStringList log;

  private:
    std::unique_ptr<MForm> frame_;
};

}  // namespace tests
