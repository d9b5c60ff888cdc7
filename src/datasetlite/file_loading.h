#ifndef TSLM5_DATASETLITE_FILE_LOADING_H_
#define TSLM5_DATASETLITE_FILE_LOADING_H_

#include <cstdint>
#include <string_view>

#include "datasetlite/data_set_lite_state.h"
#include "datasetlite/prepared_text.h"
#include "tslm5/contracts/event_args.h"

namespace tslm5 {

/// Fills a `DataSetLite` from a delimited text file: `IDataSet::Parse` and `IDataSet::Replace`.
/// The whole of a load is one transaction. On an error the set serves what it served before, with
/// its labels, already when `AfterDataLoad` is raised, and the error passes on after that. A load
/// that is stored but unsynced is done in every respect before `kStoredUnsynced` passes on.
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

  /// The operation as its errors name it, what its events say at the end, and whether its labels
  /// are tested.
  struct Kind {
    const char* source;
    std::string_view done;
    std::string_view failed;
    bool tests_labels;
  };

  std::string_view StoreSeparator(std::int32_t separator);
  void SetLabels(const PreparedText& rows, std::string_view separator, const Kind& kind);
  /// `outcome` is `kNotBegun` until the rows are stored, or the load of them was undone.
  void LoadRows(const Kind& kind, const PreparedText& rows, std::string_view file_name,
                IParseEventArgs& arguments, Outcome& outcome);
  void Fill(std::string_view rows, std::int32_t columns, Outcome& outcome);
  void Conclude(const Kind& kind, Outcome outcome, IParseEventArgs& arguments);
  void Finish(IParseEventArgs& arguments, std::string_view message);
  void Load(const Kind& kind, std::string_view file_name, std::int32_t data_set_type,
            std::int32_t separator, bool has_labels, std::int32_t layout,
            IParseEventArgs& arguments);

  DataSetLiteState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_FILE_LOADING_H_
