// The statements of many customers in one go, without a screen: for each a PDF by the layout of the single
// statement and the workbook of its list beside it, and a workbook that lists the customers with their sums.
//
// Always holds: rows, sums and paper of a customer are those of the single statement
// (CustomerStatementReport). A PDF and its workbook have the same name; they are both there or neither is,
// unless the process ends between the two. No file is replaced. The work table of the paper is empty behind
// each customer, so that a preview that is open over it never shows the rows of another one.
#pragma once

#include "platform/dao/database.h"
#include "platform/report/layout.h"
#include "reports/report_settings.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class ExportSheet;

namespace reports {

struct BatchCustomer {
    QString code;
    QString name;      ///< "" for a code that the masters lack
    int waybills = 0;  ///< on monthly account in the period
};

/// In the order of their codes. The scope's code counts for nothing.
std::vector<BatchCustomer> CustomersOf(dao::Database& db, const Scope& period);

/// What became of a customer's statement.
struct BatchResult {
    BatchCustomer customer;
    QStringList sums;            ///< of the list's columns that are summed up; empty where there are no files
    QString file;                ///< the files' name without folder and extension
    QString refusal;             ///< why there are no files, in words for the operator
    bool folderRefuses = false;  ///< a file could not be written, and the next one could not either
};

class StatementBatch {
  public:
    /// layouts and folder end with a slash or are complete without one; the folder is there. Raises
    /// RuntimeError for a layout that is missing or faulty.
    StatementBatch(dao::Database& db, const QString& layouts, const QString& folder, Scope period);

    /// Writes the files of a customer. What concerns this customer alone is in the result's refusal: a text
    /// that breaks a statement or fits no workbook, a file that cannot be written. Raises DatabaseError where
    /// the whole commit group is lost.
    BatchResult Write(const BatchCustomer& customer);
    /// Writes the list of the results with the total of those that have files; gives the name of its file.
    /// Raises RuntimeError with the reason in words.
    QString WriteSummary(const std::vector<BatchResult>& results) const;

  private:
    using Cells = std::vector<QStringList>;
    Cells ReadCells(const Scope& scope) const;
    QByteArray MakePdf(const Scope& scope, const Cells& cells) const;
    void EmptyWorkTable();
    int FreeNumber(const QString& name, const QStringList& extensions, int number) const;
    QString WriteFiles(const QString& name, const QByteArray& pdf, ExportSheet& sheet) const;

    dao::Database& db_;
    QString folder_;
    Scope period_;
    std::shared_ptr<report::Layout> layout_;
};

/// The name of a customer's files: code, "_" and name without what a file system refuses, at most so long
/// that a number and an extension fit behind it.
QString StatementFileName(const BatchCustomer& customer);

}  // namespace reports
