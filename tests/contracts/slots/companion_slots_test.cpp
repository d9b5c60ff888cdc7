// The interfaces that stand beside the dataset interface.

#include <gtest/gtest.h>

#include "contracts/slots/slot_of.h"
#include "tslm5/contracts/data_check.h"
#include "tslm5/contracts/delimited_reader.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/is_dirty.h"
#include "tslm5/contracts/iterator.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/lr_services.h"
#include "tslm5/contracts/missing_metadata.h"
#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/contracts/run_schema.h"
#include "tslm5/contracts/time_series.h"
#include "tslm5/contracts/vectorize.h"

namespace tslm5 {
namespace {

TEST(CompanionSlots, ExtraSet) {
  ExpectSlots<IExtraSet>(&IExtraSet::Rows, &IExtraSet::Columns, &IExtraSet::Exists,
                         &IExtraSet::GetItem, &IExtraSet::SetItem, &IExtraSet::Vectorize);
}

TEST(CompanionSlots, Iterator) {
  ExpectSlots<IIterator>(&IIterator::GetCurrentSample, &IIterator::CurrentRow,
                         &IIterator::ResetIterator);
}

TEST(CompanionSlots, IsDirty) {
  ExpectSlots<IIsDirty>(&IIsDirty::IsDirty, &IIsDirty::put_IsDirty);
}

TEST(CompanionSlots, Persistable) {
  ExpectSlots<IPersistable>(&IPersistable::Save, &IPersistable::Load);
}

TEST(CompanionSlots, CloneableEx) {
  ExpectSlots<ICloneableEx>(&ICloneableEx::Clone);
}

TEST(CompanionSlots, Constructor) {
  ExpectSlots<IConstructor>(&IConstructor::Init);
}

TEST(CompanionSlots, Disposable) {
  ExpectSlots<IDisposable>(&IDisposable::Dispose);
}

TEST(CompanionSlots, LRServices) {
  ExpectSlots<ILRServices>(&ILRServices::IsBinary);
}

TEST(CompanionSlots, Vectorize) {
  ExpectSlots<IVectorize>(&IVectorize::Vectorize);
}

TEST(CompanionSlots, TimeSeriesDataSet) {
  ExpectSlots<ITimeSeriesDataSet>(&ITimeSeriesDataSet::LoadTimeSeriesLabel,
                                  &ITimeSeriesDataSet::RenameTrainingLabels);
}

TEST(CompanionSlots, TimeSeriesChanges) {
  ExpectSlots<ITimeSeriesChanges>(&ITimeSeriesChanges::ResetTimeSeries,
                                  &ITimeSeriesChanges::UndoReset, &ITimeSeriesChanges::ClearReset);
}

TEST(CompanionSlots, NominalDataSetMetadata) {
  ExpectSlots<INominalDataSetMetadata>(
      &INominalDataSetMetadata::GetCategories, &INominalDataSetMetadata::GetCategoricalIndexes,
      &INominalDataSetMetadata::GetCategoricalNames, &INominalDataSetMetadata::UpdateCategory,
      &INominalDataSetMetadata::AnalyseResponseCategories,
      &INominalDataSetMetadata::GetIsCategorical, &INominalDataSetMetadata::GetModeMapping,
      &INominalDataSetMetadata::IsResponseMerging,
      &INominalDataSetMetadata::UpdateMergingResponseCategories,
      &INominalDataSetMetadata::GetResponseEncoding, &INominalDataSetMetadata::SavePositiveClass);
}

TEST(CompanionSlots, MissingMetadata) {
  ExpectSlots<IMissingMetadata>(&IMissingMetadata::UpdateMissing, &IMissingMetadata::GetIndexes,
                                &IMissingMetadata::GetMissingCount, &IMissingMetadata::ApplyMissing,
                                &IMissingMetadata::GetMissingFixedValues);
}

TEST(CompanionSlots, RunSchema) {
  ExpectSlots<IRunSchema>(&IRunSchema::CreateSchema, &IRunSchema::NewestVersion,
                          &IRunSchema::Version);
}

TEST(CompanionSlots, DelimitedReader) {
  ExpectSlots<IDelimitedReader>(
      &IDelimitedReader::OpenFile, &IDelimitedReader::OpenText, &IDelimitedReader::Dialect,
      &IDelimitedReader::Header, &IDelimitedReader::Next, &IDelimitedReader::Findings,
      &IDelimitedReader::FindingCount, &IDelimitedReader::MessageOf, &IDelimitedReader::Counts);
}

TEST(CompanionSlots, DataCheck) {
  ExpectSlots<IDataCheck>(&IDataCheck::Check);
}

}  // namespace
}  // namespace tslm5
