#ifndef TSLM5_RUN_RUN_RECORDS_H_
#define TSLM5_RUN_RUN_RECORDS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5 {

/// How a run normalises its numeric inputs: the run parameter `run_parameter::kNormalization`.
namespace normalization_type {
inline constexpr std::int32_t kNone = 0;    ///< values as they are
inline constexpr std::int32_t kZScore = 1;  ///< (value - average) / deviation
inline constexpr std::int32_t kMinMax = 2;  ///< minimum and maximum become 0 and 1
inline constexpr std::int32_t kRange = 3;   ///< minimum and maximum become the new ones
}  // namespace normalization_type

/// How a replacement of missing values was chosen: `MissingMappings.ReplacementType`.
namespace replacement_type {
inline constexpr std::int32_t kNone = 0;      ///< not chosen
inline constexpr std::int32_t kMean = 1;      ///< of the column's training values
inline constexpr std::int32_t kMedian = 2;    ///< the same
inline constexpr std::int32_t kMinimum = 3;   ///< the same
inline constexpr std::int32_t kMaximum = 4;   ///< the same
inline constexpr std::int32_t kNumber = 5;    ///< a number that the user gave
inline constexpr std::int32_t kCategory = 6;  ///< the code that the category had
}  // namespace replacement_type

/// The namespaces of run parameters.
namespace parameter_space {
inline constexpr std::string_view kAny = "";                 ///< whichever has the name first
inline constexpr std::string_view kGeneral = "set_gen";      ///< what the run is for
inline constexpr std::string_view kData = "data";            ///< how its numbers were made
inline constexpr std::string_view kToken = "missing_token";  ///< each element is a token
}  // namespace parameter_space

/// The names of run parameters.
namespace run_parameter {
/// `problem_category`, in the general space.
inline constexpr std::string_view kProblem = "ProblemCategory";
/// `normalization_type`, in the data space like all that follow.
inline constexpr std::string_view kNormalization = "NormalizationType";
/// Where `normalization_type::kRange` puts the minimum.
inline constexpr std::string_view kNewMinimum = "NormalizationNewMinValue";
/// Where it puts the maximum.
inline constexpr std::string_view kNewMaximum = "NormalizationNewMaxValue";
/// 1 where several classes of the response share one code.
inline constexpr std::string_view kMerging = "Merging";
/// 1 where the user named the positive class, so that every other class is one.
inline constexpr std::string_view kPositiveClassNamed = "PositiveClassNamed";
/// 1 where the texts of the testing set are written with a decimal comma.
inline constexpr std::string_view kTestingDecimalComma = "TestingDecimalComma";
/// The share of the records that was drawn for testing.
inline constexpr std::string_view kTestingShare = "TestingShare";
/// What they were drawn with.
inline constexpr std::string_view kSeed = "Seed";
}  // namespace run_parameter

/// What the tables of figures hold for a figure that a column does not have.
inline constexpr double kAbsentFigure = -9999.0;

/// One column of a run: a record of `DataSetColumn`.
struct RunColumn {
  std::string label;         ///< without labels the name of the column, d0, d1, ...
  bool is_nominal = false;   ///< its values are codes of categories
  std::int64_t missing = 0;  ///< cells without a value in the training set
  bool is_response = false;  ///< read alone: the last column is written as the response
};

/// A text of a column and the number that stands for it.
struct RunCategory {
  std::int32_t column = 0;  ///< zero-based
  std::string text;         ///< as it stood in the file
  double code = 0.0;        ///< what the data tables hold
  std::int32_t count = 0;   ///< training records that carry it
};

/// The two values of a binary response.
struct ResponseEncoding {
  std::string positive_class;      ///< its category
  std::optional<double> positive;  ///< its value
  std::optional<double> negative;  ///< the value of every other class
};

/// A token that stands for a missing value in a column.
struct RunToken {
  std::int32_t column = 0;                      ///< zero-based
  std::string text;                             ///< "" for an empty cell
  std::int32_t count = 0;                       ///< cells that hold it, of both sets
  std::optional<double> replacement;            ///< in the unit of the file; nothing: not chosen
  std::int32_t type = replacement_type::kNone;  ///< `replacement_type`
};

/// An original text and how many cells hold it.
struct RunTextCount {
  std::string text;        ///< as it stood in the file
  std::int32_t count = 0;  ///< cells
};

/// The figures of one column of a set; empty where the column does not have one.
struct RunFigures {
  std::int32_t column = 0;          ///< zero-based
  std::optional<double> centroid;   ///< the mean
  std::optional<double> medoid;     ///< the median
  std::optional<double> minimum;    ///< the smallest value
  std::optional<double> maximum;    ///< the largest value
  std::optional<double> deviation;  ///< of a sample, n - 1; not within a class
};

/// The figures of the records that share one response value.
struct RunClassFigures {
  double value = 0.0;               ///< of the response
  std::int32_t records = 0;         ///< that have it
  std::vector<RunFigures> columns;  ///< in ascending order
};

/// The figures of a column's training values by which it is scaled and its codes and missing values
/// are replaced; empty where the column does not have one.
struct ScaleFigures {
  std::optional<double> average;    ///< the mean
  std::optional<double> deviation;  ///< of a sample, n - 1
  std::optional<double> minimum;    ///< the smallest value
  std::optional<double> maximum;    ///< the largest value
};

/// One thing that was done to a run: a record of `RunHistory`.
struct HistoryStep {
  std::string time;        ///< UTC, as in 2026-01-31T12:00:00Z; the catalogue fills in an empty one
  std::string command;     ///< what did it: "load", "embed", ...
  std::int32_t set = 0;    ///< `data_set_type`; 0 for none, 100 for training and testing set
  std::string file;        ///< absolute path; "" for none
  std::string parameters;  ///< a JSON object
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_RECORDS_H_
