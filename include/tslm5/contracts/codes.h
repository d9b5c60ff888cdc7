#ifndef TSLM5_CONTRACTS_CODES_H_
#define TSLM5_CONTRACTS_CODES_H_

#include <cstdint>

namespace tslm5 {

/// Dataset type codes: which set of a run a dataset is, and so which table holds it.
namespace data_set_type {
inline constexpr std::int32_t kTraining = 1;
inline constexpr std::int32_t kTesting = 2;
inline constexpr std::int32_t kTimeSeriesTraining = 3;
inline constexpr std::int32_t kTimeSeriesTesting = 5;
inline constexpr std::int32_t kCombined = 100;  ///< original data only: training and testing
inline constexpr std::int32_t kUnknown = 1000;
}  // namespace data_set_type

/// Separator codes of delimited text.
namespace separator_code {
inline constexpr std::int32_t kNone = -1;  ///< one column
inline constexpr std::int32_t kSpace = 0;
inline constexpr std::int32_t kTab = 1;
inline constexpr std::int32_t kComma = 2;
inline constexpr std::int32_t kSemicolon = 3;
inline constexpr std::int32_t kBar = 4;
}  // namespace separator_code

/// Layout codes of delimited text. Any other code means one record a line.
namespace layout_code {
inline constexpr std::int32_t kRecordsInRows = 1;
inline constexpr std::int32_t kRecordsInColumns = 2;  ///< transposed while loading
inline constexpr std::int32_t kResponseFirst = 3;     ///< first field moved to the end
}  // namespace layout_code

/// Problem categories of a run. A classified response must be there in every record.
namespace problem_category {
inline constexpr std::int32_t kRegression = 0;
inline constexpr std::int32_t kClassification = 1;
inline constexpr std::int32_t kTimeSeries = 2;
inline constexpr std::int32_t kBinary = 3;
inline constexpr std::int32_t kFurtherClassification = 4;  ///< classified by other rules than 1
}  // namespace problem_category

/// The property keys that the datasets themselves read or write.
namespace property_key {
inline constexpr const char* kSeparator = "Separator";  ///< the separator's text
inline constexpr const char* kTestingSamples = "TestingSamples";
inline constexpr const char* kEmbeddingDimension = "EmbeddingDimension";
inline constexpr const char* kDelayTime = "DelayTime";
inline constexpr const char* kReplacedNullValues = "ReplacedNullValues";
}  // namespace property_key

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_CODES_H_
