// What sets the five list reports on waybills apart: C01, C02, C03, C04 and C06, each a row of settings.
//
// Always holds: column i of a grid takes field i of the statement, unless its kind says otherwise. Dates are
// texts (yyyy-MM-dd), weights are in kg, money in yuan.
#pragma once

#include "platform/dao/recordset.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace reports {

/// What a list is built for. A report of one day uses `from` alone.
struct Scope {
    QString from;
    QString to;
    QString code;  ///< of the customer or the channel; "" where the report has no combo
};

struct Column {
    enum class Kind { Text, Letter, Number, Blank, Margin };
    enum class Sum { None, Plain, TwoDecimals };
    QString header;
    Kind kind = Kind::Text;
    Sum sum = Sum::None;  ///< how its sum is written into the row below the last
    int share = 10;       ///< of the list's width, in proportion to those of the other columns
};

/// The combo of customers or channels; a report over all waybills has none.
struct Choice {
    QString caption;
    QString table;    ///< holds the codes and names
    QString missing;  ///< the refusal while nothing is chosen
    QString invalid;  ///< the refusal of a code that is not found
};

/// Where a print goes: the columns that its work table takes, in the order of its fields.
struct WorkTable {
    QString name;
    QString insert;  ///< up to the first value
    std::vector<int> columns;
    /// Changes the cells of a row before they are inserted; false leaves the row out.
    bool (*take)(QStringList& cells) = nullptr;
};

struct Print {
    QString command;
    QString caption;
    QString layout;
    /// The name is that of the customer or channel.
    QStringList (*formulas)(const Scope& scope, const QString& name) = nullptr;
};

/// When the last panel of the status bar shows the number of rows and the current one.
enum class Position { Never, OnClick, Always };

struct Settings {
    QString form;
    QString caption;
    Choice choice = {};
    bool oneDay = false;  ///< one date picker, otherwise a period
    std::vector<Column> columns;
    QString (*statement)(const Scope& scope);
    Position position;
    QString emptyStatus = {};  ///< in place of the position while the list is empty
    WorkTable work;
    std::vector<Print> prints;  ///< several are entries of a menu 打印
};

extern const Settings ManifestReport;           ///< C01
extern const Settings CustomerStatementReport;  ///< C02
extern const Settings ChannelStatementReport;   ///< C03
extern const Settings MonthlyReport;            ///< C04
extern const Settings MarginReport;             ///< C06

/// The customers that CustomerStatementReport has rows for in the period: code, name, number of waybills, in
/// the order of the codes. The scope's code counts for nothing.
QString CustomersWithStatement(const Scope& scope);

}  // namespace reports
