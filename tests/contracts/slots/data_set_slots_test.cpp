#include <gtest/gtest.h>

#include "contracts/slots/slot_of.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/data_set_lite.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/contracts/in_memory_set.h"
#include "tslm5/contracts/nominal_data_set.h"

namespace tslm5 {
namespace {

TEST(DataSetSlots, DataSetHasFiftyOne) {
  EXPECT_EQ(SlotOf(&OneMore<IDataSet>::More) - kSlotsOfUnknown, 51);
}

TEST(DataSetSlots, DataSet) {
  ExpectSlots<IDataSet>(                        //
      &IDataSet::DataSetType,                   // 1
      &IDataSet::put_DataSetType,               // 2
      &IDataSet::HasLabels,                     // 3
      &IDataSet::Rows,                          // 4
      &IDataSet::Columns,                       // 5
      &IDataSet::TerminalCount,                 // 6
      &IDataSet::IndependentVarsPrefix,         // 7
      &IDataSet::put_IndependentVarsPrefix,     // 8
      &IDataSet::DependentVarName,              // 9
      &IDataSet::put_DependentVarName,          // 10
      &IDataSet::IsReady,                       // 11
      &IDataSet::Name,                          // 12
      &IDataSet::SetProperty,                   // 13
      &IDataSet::GetProperty,                   // 14
      &IDataSet::Parse,                         // 15
      &IDataSet::ParseString,                   // 16
      &IDataSet::Replace,                       // 17
      &IDataSet::FormatDataAs,                  // 18
      &IDataSet::GetItem,                       // 19
      &IDataSet::GetItemString,                 // 20
      &IDataSet::GetLabel,                      // 21
      &IDataSet::ResetProperties,               // 22
      &IDataSet::SeparatorToString,             // 23
      &IDataSet::IsValidDataSet,                // 24
      &IDataSet::InvalidPosition,               // 25
      &IDataSet::SetLabels,                     // 26
      &IDataSet::SetData,                       // 27
      &IDataSet::Clear,                         // 28
      &IDataSet::GetMax,                        // 29
      &IDataSet::GetMin,                        // 30
      &IDataSet::GetTargetMinorityClassCount,   // 31
      &IDataSet::GetAverageModel,               // 32
      &IDataSet::GetLongLabel,                  // 33
      &IDataSet::GetGlobalCentroid,             // 34
      &IDataSet::GetGlobalMedoid,               // 35
      &IDataSet::GetClassCentroid,              // 36
      &IDataSet::GetClassMedoid,                // 37
      &IDataSet::HasClassRecordStatistics,      // 38
      &IDataSet::HasGlobalRecordStatistics,     // 39
      &IDataSet::CalculateStatistics,           // 40
      &IDataSet::HasLabelPrefix,                // 41
      &IDataSet::GetRowNumber,                  // 42
      &IDataSet::GetRowOriginalIndex,           // 43
      &IDataSet::GetTargetClassCount,           // 44
      &IDataSet::ProblemCategory,               // 45
      &IDataSet::put_ProblemCategory,           // 46
      &IDataSet::GetStandardDeviation,          // 47
      &IDataSet::GetRowOriginalValue,           // 48
      &IDataSet::GetTargetMajorityClass,        // 49
      &IDataSet::GetColumnIndex,                // 50
      &IDataSet::GetRowOriginalValueByRecordId  // 51
  );
}

TEST(DataSetSlots, DeploymentDataSet) {
  ExpectSlots<IDeploymentDataSet>(
      &IDeploymentDataSet::Open, &IDeploymentDataSet::HasLabels, &IDeploymentDataSet::Rows,
      &IDeploymentDataSet::Columns, &IDeploymentDataSet::TerminalCount,
      &IDeploymentDataSet::GetItem, &IDeploymentDataSet::GetLabel,
      &IDeploymentDataSet::GetTargetMax, &IDeploymentDataSet::GetRowOriginalIndex,
      &IDeploymentDataSet::IsColumnCategorical, &IDeploymentDataSet::HasMissingValues,
      &IDeploymentDataSet::GetDataSetRows, &IDeploymentDataSet::OpenFromFile);
}

TEST(DataSetSlots, NominalDataSet) {
  // A cell is raw text or a number.
  static_assert(std::is_same_v<decltype(&INominalDataSet::GetItem),
                               Variant (INominalDataSet::*)(std::int32_t, std::int32_t)>);
  ExpectSlots<INominalDataSet>(&INominalDataSet::Parse, &INominalDataSet::ParseString,
                               &INominalDataSet::GetItem, &INominalDataSet::Rows,
                               &INominalDataSet::Columns, &INominalDataSet::SetProperty,
                               &INominalDataSet::GetProperty, &INominalDataSet::IsReady,
                               &INominalDataSet::ResetProperties, &INominalDataSet::FormatDataAs);
}

TEST(DataSetSlots, DataSetLite) {
  ExpectSlots<IDataSetLite>(&IDataSetLite::CopyTimeSeries, &IDataSetLite::ClearUndo,
                            &IDataSetLite::UndoCopy, &IDataSetLite::SaveTimeSeriesDataSetColumnData,
                            &IDataSetLite::GetMissingStatisticsValue);
}

TEST(DataSetSlots, InMemorySet) {
  ExpectSlots<IInMemorySet>(&IInMemorySet::Clone, &IInMemorySet::SetDataSetType,
                            &IInMemorySet::RemoveEmptyLinesAtEnd, &IInMemorySet::ParseWithEvents);
}

}  // namespace
}  // namespace tslm5
