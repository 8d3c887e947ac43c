// A price explained in words and figures: what the panel on the card shows, what is copied as text and what
// is printed for the customer. Everything comes from the steps that the computation gave; nothing is computed
// again here but the total, by ChargeTotal. Without a screen.
#pragma once

#include "waybills/customer_charge.h"
#include "waybills/price_steps.h"
#include "waybills/shipping_cost.h"
#include "waybills/waybill_fields.h"

#include <QList>
#include <QString>

#include <functional>

namespace waybills {

/// What the card shows for a text box, a combo's text where one covers it.
using CardText = std::function<QString(Box)>;

ChargeInput ChargeInputOf(const CardText& card);
CostInput CostInputOf(const CardText& card);

/// What the computation of that side would be about, with today's day and no steps yet.
Priced EmptySteps(Side side, const CardText& card);
/// Runs the computation of that side over the card as it is. A failure of its statements is a step too; a
/// failure that lost the commit group is raised.
Priced PricedNow(dao::Database& db, Side side, const CardText& card);

/// Where the steps come from.
enum class Origin {
    Card,    ///< from the boxes of the card that is being entered
    Stored,  ///< stored with the waybill
    Today    ///< nothing was stored, so they are computed from today's tariffs
};

struct ExplainedRow {
    enum class Look { Plain, Warning, Sum };
    QString caption;
    QString words;
    QString figure;
    Look look = Look::Plain;
};

struct ExplainedSide {
    QString title;
    QString source;  ///< whose prices
    QString result;  ///< "" where the computation gave no amount
    QList<ExplainedRow> rows;
    QString foot;  ///< of what day the prices are
};

/// Raises RuntimeError for a text box with a number that is too large.
ExplainedSide Explain(Side side, const Priced& priced, Origin origin, const CardText& card);
/// What could not be explained, in the words of the error.
ExplainedSide NotExplained(Side side, const QString& error);

/// The charge for the customer: the steps, and the amounts that the waybill holds. Empty where the
/// computation gave no amount.
QList<ExplainedRow> ForCustomer(const Priced& charge, const CardText& card);

/// A line for each row, its parts separated by tabs.
QString AsText(const QList<ExplainedSide>& sides);

}  // namespace waybills
