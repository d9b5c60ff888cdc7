#ifndef TSLM5_CONTRACTS_CODES_H_
#define TSLM5_CONTRACTS_CODES_H_

#include <cstdint>

namespace tslm5 {

/// Dataset type codes: which set of a run a dataset is, and so which table holds it.
namespace data_set_type {
inline constexpr std::int32_t kTraining = 1;            ///< table TrainingSet
inline constexpr std::int32_t kTesting = 2;             ///< table TestingSet
inline constexpr std::int32_t kTimeSeriesTraining = 3;  ///< table TimeSeriesTrainingSet
inline constexpr std::int32_t kTimeSeriesTesting = 5;   ///< table TimeSeriesTestingSet; 4 is no set
inline constexpr std::int32_t kCombined = 100;  ///< original data only: training and testing
inline constexpr std::int32_t kUnknown = 1000;  ///< all original records; an emptied set in memory
}  // namespace data_set_type

/// Separator codes of delimited text.
namespace separator_code {
inline constexpr std::int32_t kNone = -1;      ///< one column
inline constexpr std::int32_t kSpace = 0;      ///< " ", runs of them count as one
inline constexpr std::int32_t kTab = 1;        ///< U+0009
inline constexpr std::int32_t kComma = 2;      ///< ","
inline constexpr std::int32_t kSemicolon = 3;  ///< ";"
inline constexpr std::int32_t kBar = 4;        ///< "|"
}  // namespace separator_code

/// Layout codes of delimited text. Any other code means one record a line.
namespace layout_code {
inline constexpr std::int32_t kRecordsInRows = 1;     ///< one record a line
inline constexpr std::int32_t kRecordsInColumns = 2;  ///< transposed while loading
inline constexpr std::int32_t kResponseFirst = 3;     ///< first field moved to the end
}  // namespace layout_code

/// Problem categories of a run. A classified response must be there in every record.
namespace problem_category {
inline constexpr std::int32_t kRegression = 0;             ///< the response is a quantity
inline constexpr std::int32_t kClassification = 1;         ///< the response is one of some classes
inline constexpr std::int32_t kTimeSeries = 2;             ///< the response follows from its past
inline constexpr std::int32_t kBinary = 3;                 ///< the response is one of two classes
inline constexpr std::int32_t kFurtherClassification = 4;  ///< classified by other rules than 1
}  // namespace problem_category

/// The property keys that the datasets themselves read or write.
namespace property_key {
/// The separator's text, not its code, as the last load noted it.
inline constexpr const char* kSeparator = "Separator";
/// How many values at the end of a series become its testing samples.
inline constexpr const char* kTestingSamples = "TestingSamples";
/// How many earlier values of a series are the inputs of one embedded record.
inline constexpr const char* kEmbeddingDimension = "EmbeddingDimension";
/// Steps of the series between two inputs of an embedded record.
inline constexpr const char* kDelayTime = "DelayTime";
/// Count of missing cells in the last parse of words and gaps; read only.
inline constexpr const char* kReplacedNullValues = "ReplacedNullValues";
}  // namespace property_key

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_CODES_H_
