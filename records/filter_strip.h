// The bar above a list that is built for what its boxes say: the boxes with their captions, the button that
// builds, and at the right the form's caption.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/keys.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QWidget>

#include <array>

/// A label that shows its text as it is; the role is its look: "form", "group", "subtitle", "badge".
QLabel* StripLabel(const QString& text, const QString& role);

class FilterStrip : public QWidget {
    Q_OBJECT
  public:
    /// Shows that form's title and follows its changes.
    explicit FilterStrip(const QWidget& form);
    /// One without a title, for boxes below the list.
    FilterStrip();

    /// Adds a combo or picker of that width behind the others; Enter in it acts as Tab. Returns its caption.
    template <class Box>
    QLabel* Add(const QString& caption, const QString& name, Box* box, int width);
    /// Adds the two pickers of a period, which it makes: DTP(0) and DTP(1).
    void AddPeriod(std::array<controls::DTPicker*, 2>& pickers);
    /// Adds a check box, which bears its caption itself.
    void AddCheck(const QString& name, controls::CheckBox* box);
    /// The button that builds.
    controls::Button* AddButton(const QString& caption, const QString& name = QStringLiteral("Cmd"));

    // Device-independent pixels.
    static constexpr int kChoiceWidth = 220;  ///< of a combo with codes and names
    static constexpr int kDateWidth = 118;

  private:
    QLabel* Place(const QString& caption, const QString& name, QWidget* box, int width);
    void Append(QWidget* widget);

    QHBoxLayout* row_;
    int behind_ = 1;  ///< what is at the right of the boxes: the stretch, the title
};

template <class Box>
QLabel* FilterStrip::Add(const QString& caption, const QString& name, Box* box, int width) {
    box->KeyPressed = controls::EnterMovesOn;
    return Place(caption, name, box, width);
}
