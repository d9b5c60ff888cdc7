#ifndef TSLM5_DATASETLITE_FILE_LOADING_H_
#define TSLM5_DATASETLITE_FILE_LOADING_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "datasetlite/data_set_lite_state.h"
#include "tslm5/contracts/event_args.h"

namespace tslm5 {

/// Fills a `DataSetLite` from a delimited text file: `IDataSet::Parse` and `IDataSet::Replace`.
/// The whole of a load is one transaction. On an error the set serves what it served before, with
/// its labels, already when `AfterDataLoad` is raised, and the error passes on after that.
class FileLoading {
 public:
  explicit FileLoading(DataSetLiteState& state) : state_(state) {}

  void Parse(std::string_view file_name, std::int32_t separator, bool has_labels,
             std::int32_t data_set_type, std::int32_t layout);
  void Replace(std::string_view file_name, std::int32_t separator, bool has_labels);

 private:
  enum class Outcome {
    kLoaded,
    kNotBegun,  // `BeforeDataLoad` was cancelled
    kUndone,    // a `RecordParsed` was cancelled; the table is as it was before
    kEmptied,   // a `RecordParsed` was cancelled; there was no table before, and now an empty one
  };

  /// What the events of a load say at its end, and whether its labels are tested.
  struct Kind {
    std::string_view done;
    std::string_view failed;
    bool tests_labels;
  };

  /// The text of a file, ready to be loaded: rows of blank-separated values.
  struct Rows {
    std::string text;
    std::string label_row;
    std::int32_t columns = 0;
  };

  void SetSeparator(std::int32_t separator);
  Rows Prepare(std::string text, bool has_labels, std::int32_t layout) const;
  void SetLabels(const Rows& rows, bool test_labels);
  Outcome LoadRows(const Rows& rows, std::string_view file_name, IParseEventArgs& arguments);
  Outcome Fill(std::string_view rows, std::int32_t columns);
  void Finish(IParseEventArgs& arguments, std::string_view message);
  void Load(const Kind& kind, std::string_view file_name, std::int32_t data_set_type,
            std::int32_t separator, bool has_labels, std::int32_t layout,
            IParseEventArgs& arguments);

  DataSetLiteState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_FILE_LOADING_H_
