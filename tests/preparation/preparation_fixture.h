#ifndef TSLM5_TESTS_PREPARATION_PREPARATION_FIXTURE_H_
#define TSLM5_TESTS_PREPARATION_PREPARATION_FIXTURE_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "datasetlite/data_set_lite.h"
#include "preparation/run_preparation_object.h"
#include "storage/run_tables.h"
#include "storage/test_run.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/lifecycle.h"

namespace tslm5 {

/// What an operation raised.
struct Raised {
  std::int32_t number = 0;
  std::string message;
};

/// Asks to stop from the first call on, or never.
class StoppingFeedback final : public CountedObject<IFeedback> {
 public:
  explicit StoppingFeedback(bool stops) : stops_(stops) {}
  std::string_view TypeName() override { return "StoppingFeedback"; }
  bool ReportProgress(std::int32_t, std::string_view) override { return !stops_; }
  bool ContinueFlag() override { return !stops_; }
  void Finish() override {}
  void Start() override { ++starts; }
  void SetMaximum(std::int32_t) override {}

  int starts = 0;

 private:
  ~StoppingFeedback() override = default;
  bool stops_;
};

/// A preparation of a run in memory.
class PreparationFixture : public testing::Test {
 protected:
  PreparationFixture() {
    MakeRunSchema()->CreateSchema(run_.Service().get());
    Face<IRunPreparation>().Open(run_.Service().get());
  }

  template <class I>
  I& Face() const {
    return *Ref<IUnknown>(object_).As<I>();
  }

  /// Stores the values of a series as set `type`, under keys from `first_key`.
  void Store(std::int32_t type, const Lines& records, std::int32_t first_key = 1) const {
    const Ref<TableLite> table = run_.Table(1, type);
    table->ParseArray(records);
    if (first_key > 1) {
      run_.Execute("UPDATE TestingSet SET row = row + " + std::to_string(first_key - 1));
    }
  }

  template <class Operation>
  static Raised RaisedBy(Operation operation) {
    try {
      operation();
    } catch (const Error& error) {
      return {error.Number(), error.Description()};
    }
    return {};
  }

  /// All that the run holds, but for the time of its steps.
  Lines Content() const {
    Lines lines = run_.Schema();
    for (const std::string& table :
         run_.Select("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name")) {
      for (const std::string& row : run_.TableRows(table)) lines.push_back(table + ": " + row);
    }
    return lines;
  }

  Lines Steps() const {
    return run_.Select("SELECT Command, SetId, File, Parameters FROM RunHistory ORDER BY Id");
  }

  TestRun run_;
  Ref<IUnknown> object_ = MakeRunPreparation();
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_PREPARATION_PREPARATION_FIXTURE_H_
