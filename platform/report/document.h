// A report laid out: pages that know what is on them. A page's texts are made only when the page is asked
// for.
//
// Always holds: the document keeps its rows, so it stays as it is whatever changes in the file. No row is cut
// at the edge of a page, unless it is higher than a page. A heading of a group has two of its rows below it
// (or all it has), a total the last two rows above it, the last total what follows it, as far as a page can
// hold that.
#pragma once

#include "platform/report/data.h"
#include "platform/report/layout.h"
#include "platform/report/page.h"

#include <QDate>
#include <QString>

#include <memory>

namespace report {

class Document {
  public:
    /// Reads the rows and places them on pages. Raises as ReadData does. printed is the day that #date gives.
    static std::shared_ptr<const Document> LayOut(std::shared_ptr<Layout> layout, dao::Database& db,
                                                  const Formulas& formulas, QDate printed);
    ~Document();

    int Pages() const;
    /// A page, counted from 0.
    Page PageAt(int index) const;
    PaperSize Paper() const;
    QString PaperName() const;
    bool IsLandscape() const;
    /// Without blanks at its ends; the file's name where the layout gives none.
    QString Title() const;
    const Fonts& TypeFaces() const;

    struct State;

  private:
    explicit Document(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

}  // namespace report
