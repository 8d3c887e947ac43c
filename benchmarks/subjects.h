// The subjects that are measured, one function and one file each.
#pragma once

#include "benchmarks/bench.h"
#include "benchmarks/made_company.h"
#include "benchmarks/office.h"

namespace benchmarks {

void MeasureBatchStatements(Bench& bench, Office& office);
void MeasureChannelBill(Bench& bench, Office& office);
void MeasureAgeing(Bench& bench, Office& office);
void MeasureCharge(Bench& bench, MadeCompany& company);
void MeasureCost(Bench& bench, MadeCompany& company);
void MeasureChain(Bench& bench, MadeCompany& company);
void MeasureDateRange(Bench& bench, MadeCompany& company);
void MeasureCustomers(Bench& bench, Office& office);
void MeasureExport(Bench& bench, Office& office);
/// For itself, since it opens offices of its own.
void MeasureHistory(Bench& bench, MadeCompany& company);
/// For itself, since it opens an office of its own.
void MeasureRelease(Bench& bench, MadeCompany& company);
void MeasureLedgers(Bench& bench, Office& office);
void MeasureList(Bench& bench, Office& office);
void MeasureListReports(Bench& bench, Office& office);
void MeasureReports(Bench& bench, Office& office);
void MeasureSaves(Bench& bench, Office& office);
void MeasureSearches(Bench& bench, Office& office);
void MeasureStart(Bench& bench, MadeCompany& company);
void MeasureTranslation(Bench& bench);

/// For itself, since it makes companies of its own in that folder, one of which takes a minute.
void MeasureGrowth(Bench& bench, const QString& folder);

/// Bytes a cell that the grid takes beyond the characters that it holds, equal texts held once.
double OverheadOf(const controls::FlexGrid& grid);
/// Seconds from the start of the process, on that company.
double BestTimeToLogin(const MadeCompany& company);

}  // namespace benchmarks
