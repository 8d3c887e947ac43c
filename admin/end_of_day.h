// When the copies of each day are made: at the end of the program or, where it did not end in order, before
// the next login. What goes wrong is reported and holds nobody up.
//
// While another program has the data file open no copy is made: the last one to end makes it.
#pragma once

#include "admin/daily_copies.h"

namespace admin {

/// Of the session's data file.
DailyCopies SessionCopies();

/// Right after the data file was opened.
void CatchUpCopies();

/// The two steps at the frame's closing: before the database is closed, and after.
class EndOfDay {
  public:
    void Before();
    void After() const;

  private:
    bool alone_ = false;
};

}  // namespace admin
