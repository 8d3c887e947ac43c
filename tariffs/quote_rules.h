// The arithmetic of customers' quotes, and their statements; no screen.
//
// A quote is a copy: the list prices of a zone (M02) times a coefficient, each rounded to one decimal, kept
// as the customer's own figures (M031). Which price stands where is fixed by position alone: list price n of
// the select, from 0, is column n+2 of the quote grid and field Fn+2 of M031. Prices are in yuan. A
// coefficient is a factor, 1.1 raises by a tenth; it may be any number. Raises RuntimeError on overflow.
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
    LastPlainPrice = 5,  ///< documents and small parcels up to here, heavy segments behind
    LastPrice = 20,
    QuoteColumns = 21
};

/// Columns 2 to 5 always show one decimal, the heavy segments the general text. An empty cell stays empty.
QString DressedPrice(int column, const QString& stored);

constexpr int FirstQuoteRow = 2;  ///< two header rows stand above

/// A list price times the coefficient, as it enters the grid; null counts as 0.
QString NewPrice(int column, double listPrice, double coefficient);

/// What stands in a cell times the coefficient, in general text: whole numbers lose their decimal.
QString FloatedPrice(const QString& cell, double coefficient);

/// The zones with their list prices; ends in a blank, a condition may follow.
QString ListPriceSelect();

/// A new quote's cells from a row of that select.
QStringList QuoteLine(const dao::Recordset& zone, double coefficient);

/// The quotes of a customer whose zones exist, in the grid's columns.
QString QuoteSelect(const QString& customer);

/// Stores one quote; the zone's name is not among what is stored. Cells that are no numbers are 0.
QString QuoteInsert(const QString& customer, const QStringList& cells);

/// By how many percent a coefficient raises: 1.1 is "10".
QString PercentOf(double coefficient);

}  // namespace tariffs
