// The arithmetic of customers' quotes, and their statements; without a screen.
//
// A quote is a copy: the list prices of a zone (M02) times a coefficient, each rounded to one decimal, stored
// as the customer's own figures (M031). Only the position identifies a price: list price n of the select,
// from 0, is column n+2 of the quote grid and field Fn+2 of M031. Prices are in yuan. A coefficient is a
// factor, 1.1 raises by a tenth; any number is allowed. Raises RuntimeError on overflow.
#pragma once

#include "platform/dao/database.h"

#include <QString>
#include <QStringList>

namespace tariffs {

/// Columns of the quote grid.
enum QuoteColumn {
    ZoneColumn = 0,
    NameColumn = 1,
    FirstPrice = 2,
    LastPlainPrice = 5,  ///< documents and small parcels up to here, then heavy segments
    LastPrice = 20,
    QuoteColumns = 21
};

/// Columns 2 to 5 always show one decimal, the heavy segments show general text. An empty cell stays empty.
QString DressedPrice(int column, const QString& stored);

constexpr int FirstQuoteRow = 2;  ///< after two header rows

/// A list price times the coefficient, as the grid shows it; null counts as 0.
QString NewPrice(int column, double listPrice, double coefficient);

/// The value of a cell times the coefficient, in general text: whole numbers lose their decimal.
QString FloatedPrice(const QString& cell, double coefficient);

/// Selects the zones with their list prices; ends in a blank, so that a condition can be appended.
QString ListPriceSelect();

/// The cells of a new quote from a row of that select.
QStringList QuoteLine(const dao::Recordset& zone, double coefficient);

/// Selects the quotes of a customer whose zones exist, in the order of the grid's columns.
QString QuoteSelect(const QString& customer);

/// Inserts one quote; the zone's name is not stored. A cell that is not a number is stored as 0.
QString QuoteInsert(const QString& customer, const QStringList& cells);

/// The percentage by which a coefficient raises: 1.1 is "10".
QString PercentOf(double coefficient);

}  // namespace tariffs
