#ifndef TSLM5_TESTS_ORIGINAL_ORIGINAL_RUN_H_
#define TSLM5_TESTS_ORIGINAL_ORIGINAL_RUN_H_

#include <gmock/gmock.h>

#include <cstdint>
#include <string>
#include <utility>

#include "original/original_data_set.h"
#include "platform/raised.h"
#include "storage/run_tables.h"
#include "storage/test_run.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {

/// A small classification run of three columns: original records with the keys 3, 5, 8 and 9, of
/// which 3 and 8 are for training and 5 and 9 for testing. Its connection records.
class OriginalRun : public TestRun {
 public:
  OriginalRun() : OriginalRun(OpenRun("", {.in_memory = true})) {}
  explicit OriginalRun(Ref<IConnectionService> real) : TestRun(std::move(real)) {
    const Ref<IConnection> connection = Connection();
    connection->BeginTrans();
    CreateRunTables(*connection);
    Execute("DROP TABLE OriginalData");
    Execute("CREATE TABLE OriginalData (d0 TEXT, d1 TEXT, d2 TEXT, row INTEGER PRIMARY KEY)");
    Execute(
        "INSERT INTO OriginalData VALUES ('red', '1.5', 'no', 3), (NULL, '.5', 'yes', 5), "
        "('blue', '2.25', 'yes', 8), ('green', '7', 'no', 9)");
    MakeSet("TrainingSet");
    Execute("INSERT INTO TrainingSet VALUES (1, 1.5, 0, 3), (2, 2.25, 1, 8)");
    MakeSet("TestingSet");
    Execute("INSERT INTO TestingSet VALUES (NULL, 0.5, 1, 5), (3, 7, 0, 9)");
    Execute(
        "INSERT INTO DataSetColumn VALUES (NULL, 0, 'd0', 'd0', 1, 1, 0, 0), "
        "(NULL, 1, 'd1', 'd1', 0, 0, 0, 0), (NULL, 2, 'd2', 'd2', 1, 0, 0, 1)");
    Execute("INSERT INTO RunParameters VALUES ('set_gen', 'ProblemCategory', 1, NULL)");
    PutMaximum(1, 1);
    connection->CommitTrans();
    Log().Clear();
  }

  /// Notes the response's largest value in the statistics of a set.
  void PutMaximum(std::int32_t set_id, double maximum) const {
    Execute("INSERT INTO DataSetStatistics VALUES (NULL, " + std::to_string(set_id) +
            ", 2, 0, 0, 0, " + NumberText(maximum) + ", 0)");
  }
  void PutCategory(std::int32_t category) const {
    Execute("UPDATE RunParameters SET intvalue = " + std::to_string(category));
  }

 private:
  void MakeSet(const std::string& name) const {
    Execute("CREATE TABLE " + name + " (d0 FLOAT, d1 FLOAT, d2 FLOAT, row INTEGER PRIMARY KEY)");
  }
};

/// One `OriginalDataSet`, used through its interfaces alone.
class OriginalView {
 public:
  IDeploymentDataSet* operator->() const { return view_.get(); }
  const Ref<IUnknown>& Object() const { return object_; }
  const Ref<IDataSet>& DataSet() const { return data_set_; }
  template <class I>
  Ref<I> As() const {
    return object_.As<I>();
  }

  void Open(const TestRun& run, std::int32_t set_type, bool binarise = false) const {
    view_->Open(Variant(run.Service()), set_type, binarise);
  }

  /// The loaded records, each with its key and its cells, joined by ",".
  Lines Records() const {
    Lines records;
    for (std::int32_t row = 0; row < view_->Rows(); ++row) {
      std::string& record = records.emplace_back(std::to_string(view_->GetRowOriginalIndex(row)));
      for (std::int32_t column = 0; column < view_->Columns(); ++column) {
        record += ',' + view_->GetItem(column, row);
      }
    }
    return records;
  }

  /// The response's text in each row.
  Lines Responses() const {
    Lines responses;
    for (std::int32_t row = 0; row < view_->Rows(); ++row) {
      responses.push_back(view_->GetItem(view_->TerminalCount(), row));
    }
    return responses;
  }

  Lines Labels() const {
    Lines labels;
    for (std::int32_t column = 0; column < view_->Columns(); ++column) {
      labels.push_back(view_->GetLabel(column));
    }
    return labels;
  }

 private:
  Ref<IUnknown> object_ = MakeOriginalDataSet();
  Ref<IDeploymentDataSet> view_ = object_.As<IDeploymentDataSet>();
  Ref<IDataSet> data_set_ = object_.As<IDataSet>();
};

/// A view, and the small run that it may open.
class OriginalDataSetTest : public testing::Test {
 protected:
  OriginalRun run_;
  OriginalView view_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_ORIGINAL_ORIGINAL_RUN_H_
