// The prices of a zone on its card: documents and small parcels in the first row, the heavy segments
// below. Prices are in yuan; which weights they apply to is left to the captions.
//
// Always holds: a price that is hidden keeps its place.
#pragma once

#include "platform/controls/box.h"

#include <QGridLayout>

#include <vector>

class ZonePrices : public QWidget {
    Q_OBJECT
  public:
    struct Price {
        controls::TextBox* box;
        QLabel* caption;
    };
    /// So many heavy prices in a row, four at least. The note is below the prices; "" is none.
    ZonePrices(const std::vector<Price>& prices, int inARow, const QString& note);

    /// Rows of the card that it takes.
    int Rows() const { return rows_; }
    /// A control right of a price, behind it for Tab.
    void PutBeside(QWidget* price, QWidget* part);

  private:
    void Place(const Price& price, int nth);
    void PlaceNote(const QString& note);

    QGridLayout* grid_;
    int inARow_;
    int rows_ = 1;
};
