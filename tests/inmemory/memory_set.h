#ifndef TSLM5_TESTS_INMEMORY_MEMORY_SET_H_
#define TSLM5_TESTS_INMEMORY_MEMORY_SET_H_

#include <gmock/gmock.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fakes/recording_memory_events.h"
#include "inmemory/in_memory_set.h"
#include "platform/raised.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/in_memory_set.h"

namespace tslm5 {

using Lines = std::vector<std::string>;

/// How a text is parsed, where a test does not say otherwise.
struct TextOptions {
  std::int32_t separator = separator_code::kComma;
  bool has_labels = false;
  std::int32_t type = data_set_type::kTraining;
  std::int32_t layout = layout_code::kRecordsInRows;
};

/// One `InMemorySet`, used through its interfaces.
class MemorySet {
 public:
  MemorySet() : MemorySet(MakeInMemorySet()) {}
  explicit MemorySet(const Ref<IUnknown>& object)
      : object_(object), data_set_(object.As<IDataSet>()) {}
  /// A set of this comma-separated text.
  explicit MemorySet(std::string_view text) : MemorySet() { Parse(text); }

  IDataSet* operator->() const { return data_set_.get(); }
  const Ref<IUnknown>& Object() const { return object_; }
  template <class I>
  Ref<I> As() const {
    return object_.As<I>();
  }
  /// What only code inside the room can change: the extra set, the count of replaced values.
  InMemoryState& State() const { return static_cast<InMemorySet*>(object_.get())->State(); }
  /// Lets go of the object.
  void Reset() {
    data_set_.Reset();
    object_.Reset();
  }

  /// Parses a text and returns it as the parse leaves it.
  std::string Parse(std::string_view text, const TextOptions& options = {},
                    IParseEventArgs* arguments = nullptr) const {
    std::string copy(text);
    ParseInPlace(copy, options, arguments);
    return copy;
  }
  void ParseInPlace(std::string& text, const TextOptions& options = {},
                    IParseEventArgs* arguments = nullptr) const {
    data_set_->ParseString(text, options.separator, options.has_labels, options.type,
                           options.layout, arguments);
  }
  void ParseFile(std::string_view path, const TextOptions& options = {}) const {
    data_set_->Parse(path, options.separator, options.has_labels, options.type, options.layout);
  }
  /// The error of parsing a text.
  Error ErrorOf(std::string_view text, const TextOptions& options = {}) const {
    return Raised([&] { Parse(text, options); });
  }

  bool IsDirty() const { return As<IIsDirty>()->IsDirty(); }
  void SetDirty(bool dirty) const { As<IIsDirty>()->put_IsDirty(dirty); }

  /// A new listener, attached.
  Ref<RecordingMemoryEvents> Listen() const {
    Ref<RecordingMemoryEvents> events = MakeObject<RecordingMemoryEvents>();
    As<IConnectionPoint>()->Advise(events.get());
    return events;
  }

  /// The records, each with its fields as text joined by ",".
  Lines Records() const {
    Lines records;
    for (std::int32_t row = 0; row < data_set_->Rows(); ++row) {
      std::string& record = records.emplace_back();
      for (std::int32_t column = 0; column < data_set_->Columns(); ++column) {
        if (column > 0) record += ',';
        record += data_set_->GetItemString(column, row);
      }
    }
    return records;
  }

  /// The label of each column.
  Lines Labels() const {
    Lines labels;
    for (std::int32_t column = 0; column < data_set_->Columns(); ++column) {
      labels.push_back(data_set_->GetLabel(column));
    }
    return labels;
  }

  /// All that a parse may change, one thing a line.
  Lines Everything() const {
    Lines all = Records();
    const InMemoryState& state = State();
    all.insert(all.end(), state.labels.begin(), state.labels.end());
    for (const auto& [key, value] : state.properties.Entries()) {
      all.push_back(std::string(key).append(" = ").append(value));
    }
    for (const std::int32_t number :
         {state.data_set_type, state.separator, state.problem_category, state.column_count,
          state.replaced_missing_count, state.iterator_position, state.extra_set.Rows()}) {
      all.push_back(std::to_string(number));
    }
    for (const bool flag :
         {state.has_labels, state.is_ready, state.is_dirty, state.extra_set_exists}) {
      all.emplace_back(flag ? "yes" : "no");
    }
    all.push_back(state.name);
    return all;
  }

 private:
  Ref<IUnknown> object_;
  Ref<IDataSet> data_set_;
};

/// An error of exactly this number, source and description.
inline auto IsError(std::int32_t number, const std::string& source = "",
                    const std::string& description = "") {
  return testing::AllOf(testing::Property("Number", &Error::Number, number),
                        testing::Property("Source", &Error::Source, source),
                        testing::Property("Description", &Error::Description, description));
}

/// The words for a row of another width.
inline auto IsColumnCountError(int row) {
  return IsError(41020, "Parse",
                 "Unable to proceed: Row number " + std::to_string(row) +
                     " has an invalid number of columns.\r\n\r\nPlease make sure this is a valid "
                     "record or remove it from the dataset.");
}

inline auto IsSubscriptError() {
  return IsError(9, "", "Subscript out of range");
}

}  // namespace tslm5

#endif  // TSLM5_TESTS_INMEMORY_MEMORY_SET_H_
