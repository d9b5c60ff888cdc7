// The statements of the categories, the response encoding and the missing-value mappings.
#include "storage/statement_cases.h"

namespace tslm5 {

using namespace run_statement;

std::vector<StatementCase> CategoryStatements() {
  return {
      {"kSelectCategories", FillStatement(kSelectCategories, {{"<COLUMN>", "1"}}),
       "SELECT NominalValue, NominalValue || ' ' || NumericValue || ' ' || CategoryCount FROM "
       "DataSetColumnCategories WHERE Name = 'd1' ORDER BY NominalValue"},
      {"kSelectNumericCategories", FillStatement(kSelectNumericCategories, {{"<COLUMN>", "1"}}),
       "SELECT NominalValue, NominalValue || ' ' || NumericValue || ' ' || CategoryCount FROM "
       "DataSetColumnCategories WHERE Name = 'd1' ORDER BY CAST(NominalValue AS float)"},
      {"kSelectCategoryCode",
       FillStatement(kSelectCategoryCode, {{"<NAME>", "d1"}, {"<NOMINAL>", "red"}}),
       "SELECT NumericValue FROM DataSetColumnCategories WHERE Name = 'd1' AND NominalValue = "
       "'red'"},
      {"kUpdateCategoryCode",
       FillStatement(kUpdateCategoryCode,
                     {{"<VALUE>", "2.5"}, {"<NAME>", "d1"}, {"<NOMINAL>", "red"}}),
       "UPDATE DataSetColumnCategories SET NumericValue = 2.5 WHERE Name = 'd1' AND NominalValue "
       "= 'red'"},
      {"kUpdateCategoryCells",
       FillStatement(
           kUpdateCategoryCells,
           {{"<TABLE>", "TestingSet"}, {"<NAME>", "d1"}, {"<VALUE>", "2"}, {"<NOMINAL>", "red"}}),
       "UPDATE TestingSet SET d1 = 2 WHERE row IN (SELECT row FROM OriginalData WHERE d1 = 'red')"},
      {"kUpdateOtherCategoryCells",
       FillStatement(
           kUpdateOtherCategoryCells,
           {{"<TABLE>", "TrainingSet"}, {"<NAME>", "d1"}, {"<VALUE>", "2"}, {"<NOMINAL>", "red"}}),
       "UPDATE TrainingSet SET d1 = 2 WHERE row IN (SELECT row FROM OriginalData WHERE d1 <> "
       "'red')"},
      {"kSelectSmallestGroupNominal",
       FillStatement(kSelectSmallestGroupNominal, {{"<COLUMN>", "1"}}),
       "SELECT NominalValue, COUNT(*) FROM DataSetColumnCategories WHERE Name='d1' GROUP BY "
       "NumericValue ORDER BY COUNT(*) LIMIT 1"},
      {"kSelectSmallestGroupCode", FillStatement(kSelectSmallestGroupCode, {{"<COLUMN>", "1"}}),
       "SELECT NumericValue, COUNT(*) FROM DataSetColumnCategories WHERE Name='d1' GROUP BY "
       "NumericValue ORDER BY COUNT(*) LIMIT 1"},
      {"kSelectLargestGroupCode", FillStatement(kSelectLargestGroupCode, {{"<COLUMN>", "1"}}),
       "SELECT NumericValue, COUNT(*) FROM DataSetColumnCategories WHERE Name='d1' GROUP BY "
       "NumericValue ORDER BY COUNT(*) DESC LIMIT 1"},
      {"kSelectGroupSizes", FillStatement(kSelectGroupSizes, {{"<COLUMN>", "1"}}),
       "SELECT NumericValue, COUNT(*) FROM DataSetColumnCategories WHERE Name='d1' GROUP BY "
       "NumericValue"},
      {"kCountCategoryCodes", FillStatement(kCountCategoryCodes, {{"<COLUMN>", "1"}}),
       "SELECT COUNT(DISTINCT NumericValue) FROM DataSetColumnCategories WHERE Name='d1'"},
      {"kSelectModeCode", FillStatement(kSelectModeCode, {{"<COLUMN>", "1"}}),
       "SELECT NumericValue FROM DataSetColumnCategories WHERE Name = 'd1' ORDER BY CategoryCount "
       "DESC LIMIT 1"},
      {"kUpdateResponseEncoding",
       FillStatement(kUpdateResponseEncoding,
                     {{"<CLASS>", "yes"}, {"<POSITIVE>", "1"}, {"<NEGATIVE>", "-1"}}),
       "UPDATE ResponseEncoding SET PositiveClass = 'yes', NewPositiveValue = 1, NewNegativeValue "
       "= -1"},
      {"kUpdatePositiveClass", FillStatement(kUpdatePositiveClass, {{"<CLASS>", "yes"}}),
       "UPDATE ResponseEncoding SET PositiveClass = 'yes'"},
      {"kSelectResponseEncoding", std::string(kSelectResponseEncoding),
       "SELECT PositiveClass, NewNegativeValue, NewPositiveValue FROM ResponseEncoding"},
  };
}

std::vector<StatementCase> MissingStatements() {
  return {
      {"kSelectMissingMappings", FillStatement(kSelectMissingMappings, {{"<COLUMN>", "3"}}),
       "SELECT * FROM MissingMappings WHERE ColumnIndex = 3 ORDER BY Id"},
      {"kSumMissingCounts", FillStatement(kSumMissingCounts, {{"<COLUMN>", "3"}}),
       "SELECT SUM(MissingCount) FROM MissingMappings WHERE ColumnIndex = 3 ORDER BY Id"},
      {"kSelectMissingIndexes", std::string(kSelectMissingIndexes),
       "SELECT ColumnIndex, ColumnIndex FROM MissingMappings GROUP BY ColumnIndex ORDER BY "
       "ColumnIndex"},
      {"kUpdateMissingMapping",
       FillStatement(kUpdateMissingMapping,
                     {{"<VALUE>", "1.5"}, {"<TYPE>", "2"}, {"<COLUMN>", "3"}, {"<TOKEN>", "NA"}}),
       "UPDATE MissingMappings SET Replacement = 1.5, ReplacementType = 2 WHERE ColumnIndex = 3 "
       "and OriginalValue = 'NA'"},
      {"kSelectReplacements", FillStatement(kSelectReplacements, {{"<COLUMN>", "3"}}),
       "SELECT OriginalValue, Replacement FROM MissingMappings WHERE ColumnIndex = 3 ORDER BY Id"},
      {"kApplyReplacement",
       FillStatement(
           kApplyReplacement,
           {{"<TABLE>", "TestingSet"}, {"<COLUMN>", "1"}, {"<VALUE>", "1.5"}, {"<TOKEN>", "?"}}),
       "UPDATE TestingSet SET d1 = 1.5 WHERE row IN (SELECT od.row FROM OriginalData od WHERE "
       "od.d1 = '?')"},
  };
}

}  // namespace tslm5
