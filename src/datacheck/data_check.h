#ifndef TSLM5_DATACHECK_DATA_CHECK_H_
#define TSLM5_DATACHECK_DATA_CHECK_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/contracts/event_args.h"
#include "tslm5/platform/connection_point.h"

namespace tslm5 {

/// What differs between the classes that run the check.
struct DataCheckRules {
  /// The last field of a row must not be missing: its own refusal, told before the others.
  bool checks_response = false;
  /// Limits on the 0-based index of the last column and the last row.
  std::int64_t most_column_index = 1000000;
  std::int64_t most_row_index = 20000000;
};

/// The rules for data of a `problem_category`: a classified response must not be missing.
DataCheckRules RulesOf(std::int32_t problem_category);

/// Whom the check tells: the listeners of the dataset that runs it.
class DataCheckListener {
 public:
  /// False when nobody listens: then no progress is prepared.
  virtual bool IsListening() const = 0;
  virtual void BeforeDataCheck(IParseEventArgs& arguments) = 0;
  virtual void LoadFeedback(IParseEventArgs& arguments) = 0;
  virtual void AfterDataCheck(IParseEventArgs& arguments) = 0;

 protected:
  ~DataCheckListener() = default;
};

/// The listener of a class whose sink interface has the three events.
template <class Sink>
class SinkDataCheckListener final : public DataCheckListener {
 public:
  explicit SinkDataCheckListener(const SinkList<Sink>& sinks) : sinks_(sinks) {}

  bool IsListening() const override { return sinks_.HasSinks(); }
  void BeforeDataCheck(IParseEventArgs& arguments) override {
    sinks_.Fire([&arguments](Sink& sink) { sink.BeforeDataCheck(&arguments); });
  }
  void LoadFeedback(IParseEventArgs& arguments) override {
    sinks_.Fire([&arguments](Sink& sink) { sink.LoadFeedback(&arguments); });
  }
  void AfterDataCheck(IParseEventArgs& arguments) override {
    sinks_.Fire([&arguments](Sink& sink) { sink.AfterDataCheck(&arguments); });
  }

 private:
  const SinkList<Sink>& sinks_;
};

/// Checks a delimited text file before it is loaded and changes nothing. True when it can be
/// loaded, and also (meant) when a handler cancelled during the row checks; false otherwise.
/// `message` receives the refusal and is left alone otherwise. A refused cell or row is noted in
/// `LastInvalidPosition`. Never raises.
/// The file is read once: peak memory is its size and a little.
bool CheckDataFile(std::string_view file_name, bool has_labels, std::int32_t separator,
                   const DataCheckRules& rules, DataCheckListener& listener, std::string& message);

}  // namespace tslm5

#endif  // TSLM5_DATACHECK_DATA_CHECK_H_
