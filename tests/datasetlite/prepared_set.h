#ifndef TSLM5_TESTS_DATASETLITE_PREPARED_SET_H_
#define TSLM5_TESTS_DATASETLITE_PREPARED_SET_H_

#include <string>
#include <string_view>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/missing_metadata.h"
#include "tslm5/contracts/nominal_metadata.h"

namespace tslm5 {

/// A run as an application prepares it from a file with words and gaps, and its training set,
/// loaded: d0 colour (coded), d1 age (a number, two kinds of gap), d2 answer (coded, the response).
/// Records 1 to 4 are for training, 5 and 6 for testing.
class PreparedSetTest : public DataSetLiteTest {
 protected:
  PreparedSetTest() {
    for (const char* statement : {
             "ALTER TABLE OriginalData ADD COLUMN d0 TEXT",
             "ALTER TABLE OriginalData ADD COLUMN d1 TEXT",
             "ALTER TABLE OriginalData ADD COLUMN d2 TEXT",
             "INSERT INTO OriginalData VALUES (1, 'red', '10', 'no'), (2, 'blue', '?', 'yes'), "
             "(3, 'red', 'NA', 'no'), (4, 'green', '30', 'maybe'), (5, 'red', '?', 'yes'), "
             "(6, 'blue', '40', 'no')",
             "INSERT INTO DataSetColumn VALUES (NULL, 0, 'd0', 'colour', 1, 0, 0, 0), "
             "(NULL, 1, 'd1', 'age', 0, 3, 0, 0), (NULL, 2, 'd2', 'answer', 1, 0, 0, 1)",
             "INSERT INTO DataSetColumnCategories VALUES ('d0', 'red', 1, 3), ('d0', 'blue', 2, 2),"
             " ('d0', 'green', 3, 1), ('d2', 'no', 0, 3), ('d2', 'yes', 1, 2), "
             "('d2', 'maybe', 2, 1)",
             "INSERT INTO MissingMappings VALUES (7, 1, 2, '?', 5, 2), (8, 1, 1, 'NA', 7.5, 3)",
             "INSERT INTO ResponseEncoding VALUES ('yes', 1, 0)",
             "CREATE TABLE TrainingSet (d0 FLOAT, d1 FLOAT, d2 FLOAT, row INTEGER PRIMARY KEY)",
             "INSERT INTO TrainingSet VALUES (1, 10, 0, 1), (2, NULL, 1, 2), (1, NULL, 0, 3), "
             "(3, 30, 2, 4)",
             "CREATE TABLE TestingSet (d0 FLOAT, d1 FLOAT, d2 FLOAT, row INTEGER PRIMARY KEY)",
             "INSERT INTO TestingSet VALUES (1, NULL, 1, 5), (2, 40, 0, 6)",
         }) {
      Execute(statement);
    }
    set_.Load(run_, data_set_type::kTraining);
    run_.Log().Clear();
  }

  void Execute(std::string_view sql) const { run_.Execute(sql); }
  Ref<INominalDataSetMetadata> Nominal() const { return set_.As<INominalDataSetMetadata>(); }
  Ref<IMissingMetadata> Missing() const { return set_.As<IMissingMetadata>(); }

  /// The column's cells of a table, in the order of the records.
  Lines Cells(std::string_view column, std::string_view table) const {
    return run_.Select("SELECT " + std::string(column) + " FROM " + std::string(table) +
                       " ORDER BY row");
  }
  Lines Training(std::string_view column) const { return Cells(column, "TrainingSet"); }
  Lines Testing(std::string_view column) const { return Cells(column, "TestingSet"); }
  Lines Categories() const {
    return run_.Select("SELECT Name, NominalValue, NumericValue FROM DataSetColumnCategories");
  }

  /// The entries of a map as "key=value", in their order.
  static Lines Entries(const Variant& map) {
    Lines lines;
    for (const auto& [key, value] : map.ToMap()->Entries()) {
      lines.push_back(key.ToString() + "=" + value.ToString());
    }
    return lines;
  }
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_DATASETLITE_PREPARED_SET_H_
