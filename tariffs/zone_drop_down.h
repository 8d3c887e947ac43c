// The drop-down of the quote panel: the service zones whose codes begin with what the text box of the zone
// holds.
//
// Always holds: it is no window of its own but lies over the form, under that text box or above it.
#pragma once

#include "platform/controls/flex_grid.h"

#include <QString>

class ZoneDropDown : public controls::FlexGrid {
    Q_OBJECT
  public:
    /// Closed, with `box` as the text box that it opens at; both belong to the form.
    ZoneDropDown(QWidget* form, const QWidget* box);

    /// Reads the zones whose codes begin with that text, and returns how many. Raises DatabaseError.
    int Fill(const QString& beginning);
    /// Shows it at its text box and gives it the focus.
    void Open();
    bool IsOpen() const { return !isHidden(); }
    /// Again after a change of the form's size.
    void Place();

    /// Of the current row; "" where no zone was found.
    QString Code() const;
    QString Name() const;

  private:
    void Fit(int rows);

    const QWidget* box_;
};
