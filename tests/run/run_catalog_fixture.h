#ifndef TSLM5_TESTS_RUN_RUN_CATALOG_FIXTURE_H_
#define TSLM5_TESTS_RUN_RUN_CATALOG_FIXTURE_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/run_catalog_object.h"
#include "storage/run_tables.h"
#include "storage/test_run.h"

namespace tslm5 {

/// A catalogue of a run in memory that has the tables of a new run.
class RunCatalogFixture : public testing::Test {
 protected:
  RunCatalogFixture() {
    MakeRunSchema()->CreateSchema(run_.Service().get());
    Catalog().Open(run_.Service().get());
  }

  template <class I>
  I& Face() const {
    return *Ref<IUnknown>(object_).As<I>();
  }
  IRunCatalog& Catalog() const { return Face<IRunCatalog>(); }

  /// A table of a set with a record (value, key) each.
  void MakeSet(std::string_view table, const std::vector<std::string>& records) const {
    run_.Execute("CREATE TABLE " + std::string(table) + " (d0 FLOAT, row INTEGER PRIMARY KEY)");
    for (const std::string& record : records) {
      run_.Execute("INSERT INTO " + std::string(table) + " VALUES (" + record + ")");
    }
  }

  Lines Rows(std::string_view table) const { return run_.TableRows(table); }

  TestRun run_;
  Ref<IUnknown> object_ = MakeRunCatalog();
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_RUN_RUN_CATALOG_FIXTURE_H_
