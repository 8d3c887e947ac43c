// One ordered script that answers for the operator: which boxes and dialogs will come and what is answered.
// An unexpected step fails the test, and so does a step that never came.
#pragma once

#include "platform/system/seams.h"

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <optional>
#include <ostream>

/// How a failing comparison shows a text.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace tests {

class Script {
  public:
    /// Takes every seam; the clock is at 2024-03-15 10:00:00.
    Script();
    /// Puts the seams back; a step left over fails the test.
    ~Script();
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    /// A message box with one button. The text is compared exactly; character 13 included.
    void Box(const QString& text, const QString& title, sys::BoxIcon icon = sys::BoxIcon::Information);
    /// A question of two buttons and its answer: Yes or OK, or the other one.
    void Question(const QString& text, const QString& title, bool yes,
                  sys::BoxIcon icon = sys::BoxIcon::Question);
    /// A message box whose text contains this, whatever else: for the report of a failing statement.
    void BoxContaining(const QString& text);
    /// A file dialog: its title, and the path that the operator picks ("" gives up).
    void File(const QString& title, const QString& answer);
    /// The program ends with this status.
    void End(int status);
    /// An outside program is started (its path is compared); whether the start works.
    void Start(const QString& path, bool works = true);
    /// A web or mail address is opened.
    void Address(const QString& address);

    /// True when every step has come.
    bool Done() const { return steps_.empty(); }
    /// The request that was answered last, for a closer look.
    const sys::BoxRequest& LastBox() const { return lastBox_; }
    int InputMethodSwitches() const { return inputMethodSwitches_; }

    void SetNow(const QDateTime& now) { now_ = now; }
    void SetLocale(const QString& name) { locale_ = name; }
    QMap<QString, QString>& Settings() { return settings_; }

  private:
    struct Step {
        QString kind;
        QString text;
        QString title;
        std::optional<sys::BoxIcon> icon;
        QString answer;
        int status = 0;
        bool whole = true;
    };
    std::optional<Step> Take(const QString& kind, const QString& what);

    std::deque<Step> steps_;
    sys::Seams before_;
    sys::BoxRequest lastBox_;
    QDateTime now_;
    QString locale_;
    QMap<QString, QString> settings_;
    int inputMethodSwitches_ = 0;
};

}  // namespace tests
