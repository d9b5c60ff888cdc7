#ifndef TSLM5_TESTS_DATASETLITE_LITE_SET_H_
#define TSLM5_TESTS_DATASETLITE_LITE_SET_H_

#include <gmock/gmock.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "datasetlite/data_set_lite.h"
#include "fakes/recording_events.h"
#include "platform/raised.h"
#include "storage/run_tables.h"
#include "storage/test_run.h"
#include "support/temporary_folder.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {

/// One `DataSetLite`, used through its interfaces alone.
class LiteSet {
 public:
  LiteSet() : LiteSet(MakeDataSetLite()) {}
  explicit LiteSet(Ref<IUnknown> object)
      : object_(std::move(object)), data_set_(object_.As<IDataSet>()) {}
  LiteSet(const TestRun& run, std::int32_t type) : LiteSet() {
    As<IConstructor>()->Init(VariantArray({Variant(run.Service()), Variant(type)}));
  }

  IDataSet* operator->() const { return data_set_.get(); }
  const Ref<IUnknown>& Object() const { return object_; }
  template <class I>
  Ref<I> As() const {
    return object_.As<I>();
  }
  /// Lets go of the object.
  void Reset() {
    data_set_.Reset();
    object_.Reset();
  }

  bool Load(const Variant& run, const Variant& parameters) const {
    return As<IPersistable>()->Load(run, parameters);
  }
  bool Load(const TestRun& run, std::int32_t type) const {
    return Load(Variant(run.Service()), type);
  }
  bool Save(const TestRun& run, std::int32_t type) const {
    return As<IPersistable>()->Save(Variant(run.Service()), type);
  }
  bool IsDirty() const { return As<IIsDirty>()->IsDirty(); }
  void SetDirty(bool dirty) const { As<IIsDirty>()->put_IsDirty(dirty); }

  std::int32_t Listen(const Ref<RecordingEvents>& events) const {
    return As<IConnectionPoint>()->Advise(events.get());
  }
  /// A new listener, attached.
  Ref<RecordingEvents> Listen() const {
    Ref<RecordingEvents> events = MakeObject<RecordingEvents>();
    Listen(events);
    return events;
  }

  /// The records, each with its fields as text joined by ","; a missing one is empty.
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

  /// All that a load may change, one thing a line.
  Lines Everything() const {
    Lines all = Records();
    const Lines labels = Labels();
    all.insert(all.end(), labels.begin(), labels.end());
    all.push_back("type " + std::to_string(data_set_->DataSetType()));
    all.push_back("separator " + data_set_->GetProperty("Separator"));
    all.push_back(data_set_->HasLabels() ? "labels" : "no labels");
    all.push_back(data_set_->IsReady() ? "ready" : "not ready");
    all.push_back(IsDirty() ? "dirty" : "clean");
    for (std::int32_t row = 0; row < data_set_->Rows(); ++row) {
      all.push_back("key " + std::to_string(data_set_->GetRowOriginalIndex(row)));
    }
    return all;
  }

 private:
  Ref<IUnknown> object_;
  Ref<IDataSet> data_set_;
};

/// How a file is loaded, where a test does not say otherwise.
struct ParseOptions {
  std::int32_t separator = separator_code::kComma;
  bool has_labels = false;
  std::int32_t type = data_set_type::kTraining;
  std::int32_t layout = layout_code::kRecordsInRows;
};

/// A run in memory with its tables, and a training set attached to it by `Init`.
class DataSetLiteTest : public testing::Test {
 protected:
  DataSetLiteTest() { CreateRunTables(*run_.Connection()); }

  /// The path of a new file of these bytes.
  std::string File(std::string_view bytes) const { return folder_.Write("data.csv", bytes); }

  static void ParseFile(const LiteSet& set, std::string_view path,
                        const ParseOptions& options = {}) {
    set->Parse(path, options.separator, options.has_labels, options.type, options.layout);
  }
  void Parse(std::string_view bytes, const ParseOptions& options = {}) const {
    ParseFile(set_, File(bytes), options);
  }
  void Replace(std::string_view bytes, const ParseOptions& options = {}) const {
    set_->Replace(File(bytes), options.separator, options.has_labels);
  }

  /// Adds the record of a column, named "d" and its index, as the application does.
  void AddColumn(std::int32_t index, const std::string& label, bool is_response = false) const {
    const std::string number = std::to_string(index);
    run_.Execute("INSERT INTO DataSetColumn VALUES (NULL, " + number + ", 'd" + number + "', '" +
                 label + "', 0, 0, 0, " + (is_response ? "1" : "0") + ")");
  }

  TemporaryFolder folder_;
  TestRun run_;
  LiteSet set_{run_, data_set_type::kTraining};
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_DATASETLITE_LITE_SET_H_
