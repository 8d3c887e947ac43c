// A company with the layouts beside its file, whose operator works at the reports on waybills.
#pragma once

#include "tests/report/report_lab.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

namespace tests {

class ReportDesk : public Program {
  public:
    explicit ReportDesk(const QStringList& masters = {}, const OpenWith& with = {});

    /// Types the choice ("" in a report without a combo) and the dates and builds by keys.
    void Refresh(const QString& choice, QDate from = {}, QDate to = {});
    /// By the keys of its bar: the command in a menu counts from 0.
    void PrintList(int entry = -1);
    /// Of the report in the preview.
    QStringList Formulas();
    QString Layout();
    /// What the preview saves as a PDF, read back line by line; pages are divided by "--".
    QStringList PdfLines();
    /// Whether one of these lines contains the text; else all of them are shown.
    static testing::AssertionResult Contains(const QStringList& lines, const QString& text);
};

/// Of any file, read back likewise.
QStringList PdfLinesOf(const QString& path);

}  // namespace tests
