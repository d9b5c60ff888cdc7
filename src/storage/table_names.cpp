#include "storage/table_names.h"

#include "tslm5/contracts/codes.h"

namespace tslm5 {

std::string_view TableName(std::int32_t data_set_type) {
  switch (data_set_type) {
    case data_set_type::kTimeSeriesTraining:
      return "TimeSeriesTrainingSet";
    case data_set_type::kUnknown:
      return "Unknown";
    default:
      return LabelTableName(data_set_type);
  }
}

std::string_view LabelTableName(std::int32_t data_set_type) {
  switch (data_set_type) {
    case data_set_type::kTraining:
      return "TrainingSet";
    case data_set_type::kTesting:
      return "TestingSet";
    case data_set_type::kTimeSeriesTesting:
      return "TimeSeriesTestingSet";
    default:
      return "";
  }
}

}  // namespace tslm5
