// The faces of the run catalogue and of the preparation of a run.

#include <gtest/gtest.h>

#include "contracts/slots/slot_of.h"
#include "tslm5/preparation/run_embedding.h"
#include "tslm5/preparation/run_preparation.h"
#include "tslm5/preparation/run_reset.h"
#include "tslm5/run/run_catalog.h"
#include "tslm5/run/run_categories.h"
#include "tslm5/run/run_columns.h"
#include "tslm5/run/run_figures.h"
#include "tslm5/run/run_history.h"
#include "tslm5/run/run_missing_values.h"
#include "tslm5/run/run_originals.h"
#include "tslm5/run/run_parameters.h"

namespace tslm5 {
namespace {

TEST(RunSlots, RunCatalog) {
  ExpectSlots<IRunCatalog>(
      &IRunCatalog::Open, &IRunCatalog::IsForeign, &IRunCatalog::HasSet, &IRunCatalog::HasRecords,
      &IRunCatalog::SetColumns, &IRunCatalog::FirstKey, &IRunCatalog::LastKey,
      &IRunCatalog::SetsShareKeys, &IRunCatalog::ReadKeys, &IRunCatalog::WriteKeys,
      &IRunCatalog::MoveKeys, &IRunCatalog::CountMissing, &IRunCatalog::CountTexts,
      &IRunCatalog::FillCells, &IRunCatalog::DropSet, &IRunCatalog::HasBackup,
      &IRunCatalog::BackupRows);
}

TEST(RunSlots, RunColumns) {
  ExpectSlots<IRunColumns>(&IRunColumns::ReadColumns, &IRunColumns::WriteColumns,
                           &IRunColumns::WriteMissingCounts, &IRunColumns::ReadOriginalLabels,
                           &IRunColumns::WriteOriginalLabels, &IRunColumns::HasLabels,
                           &IRunColumns::DropLabels, &IRunColumns::WriteSeriesLabel);
}

TEST(RunSlots, RunCategories) {
  ExpectSlots<IRunCategories>(&IRunCategories::ReadCategories,
                              &IRunCategories::ReadColumnCategories,
                              &IRunCategories::WriteCategories, &IRunCategories::ReadEncoding,
                              &IRunCategories::WriteEncoding, &IRunCategories::DropEncoding);
}

TEST(RunSlots, RunMissingValues) {
  ExpectSlots<IRunMissingValues>(&IRunMissingValues::ReadTokens, &IRunMissingValues::WriteTokens,
                                 &IRunMissingValues::CountTrainingTexts,
                                 &IRunMissingValues::CountOpenTexts);
}

TEST(RunSlots, RunParameters) {
  ExpectSlots<IRunParameters>(&IRunParameters::ReadWhole, &IRunParameters::ReadNumber,
                              &IRunParameters::ReadNames, &IRunParameters::WriteWhole,
                              &IRunParameters::WriteNumber, &IRunParameters::ReplaceWhole,
                              &IRunParameters::DropParameter, &IRunParameters::DropSpace);
}

TEST(RunSlots, RunFigures) {
  ExpectSlots<IRunFigures>(&IRunFigures::ReadFigures, &IRunFigures::ReadClassFigures,
                           &IRunFigures::DropFigures, &IRunFigures::HasScaleFigures,
                           &IRunFigures::ReadScaleFigures, &IRunFigures::WriteScaleFigures,
                           &IRunFigures::ComputeScaleFigures, &IRunFigures::RenewScaleFigures,
                           &IRunFigures::DropScaleFigures);
}

TEST(RunSlots, RunHistory) {
  ExpectSlots<IRunHistory>(&IRunHistory::ReadSteps, &IRunHistory::AppendStep,
                           &IRunHistory::ReadLastLoad);
}

TEST(RunSlots, RunOriginals) {
  ExpectSlots<IRunOriginals>(&IRunOriginals::Columns, &IRunOriginals::Create, &IRunOriginals::Fit,
                             &IRunOriginals::MakeRoom, &IRunOriginals::Append,
                             &IRunOriginals::OpenTexts, &IRunOriginals::OpenRecords,
                             &IRunOriginals::OpenTrainingColumn, &IRunOriginals::WriteEmbedded,
                             &IRunOriginals::TakeEmbedded);
}

TEST(RunSlots, RunPreparation) {
  ExpectSlots<IRunPreparation>(&IRunPreparation::Open);
}

TEST(RunSlots, RunReset) {
  ExpectSlots<IRunReset>(&IRunReset::Reset, &IRunReset::Undo, &IRunReset::Keep);
}

TEST(RunSlots, RunEmbedding) {
  ExpectSlots<IRunEmbedding>(&IRunEmbedding::Embed);
}

}  // namespace
}  // namespace tslm5
