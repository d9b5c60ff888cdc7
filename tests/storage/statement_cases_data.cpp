// The statements of the data tables, the original data and the statistics.
#include "storage/statement_cases.h"

namespace tslm5 {

using namespace run_statement;

std::vector<StatementCase> DataTableStatements() {
  const std::string columns = "d0 FLOAT, row INTEGER PRIMARY KEY);";
  return {
      {"kCreateTable",
       FillStatement(kCreateTable, {{"<TABLE>", "TimeSeriesTrainingSet"}, {"<COLUMNS>", columns}}),
       "CREATE TABLE TimeSeriesTrainingSet (d0 FLOAT, row INTEGER PRIMARY KEY);"},
      {"kCreateBackup",
       FillStatement(kCreateBackup, {{"<TABLE>", "TimeSeriesTestingSet"}, {"<COLUMNS>", columns}}),
       "CREATE TABLE TimeSeriesTestingSetBackup (d0 FLOAT, row INTEGER PRIMARY KEY);"},
      {"kDataColumn", FillStatement(kDataColumn, {{"<COLUMN>", "12"}}), "d12 FLOAT, ",
       "CREATE TABLE t (", "row INTEGER)"},
      {"kRowColumn", std::string(kRowColumn), "row INTEGER PRIMARY KEY);", "CREATE TABLE t ("},
      {"kDropTable", FillStatement(kDropTable, {{"<TABLE>", "TrainingSet"}}),
       "DROP TABLE TrainingSet;"},
      {"kDropBackup", FillStatement(kDropBackup, {{"<TABLE>", "TrainingSet"}}),
       "DROP TABLE TrainingSetBackup;"},
      {"kInsertRow",
       FillStatement(kInsertRow, {{"<TABLE>", "TrainingSet"}, {"<VALUES>", "1, 2.5, 7"}}),
       "INSERT INTO TrainingSet VALUES (1, 2.5, 7);"},
      {"kSelectTable", FillStatement(kSelectTable, {{"<TABLE>", "TestingSet"}}),
       "SELECT * FROM TestingSet;"},
      {"kDeleteRows", FillStatement(kDeleteRows, {{"<TABLE>", "TestingSet"}}),
       "DELETE FROM TestingSet;"},
      {"kCopyToBackup", FillStatement(kCopyToBackup, {{"<TABLE>", "TrainingSet"}}),
       "INSERT INTO TrainingSetBackup SELECT * FROM TrainingSet;"},
      {"kCopyFromBackup", FillStatement(kCopyFromBackup, {{"<TABLE>", "TrainingSet"}}),
       "INSERT INTO TrainingSet SELECT * FROM TrainingSetBackup;"},
      {"kDeleteBackup", FillStatement(kDeleteBackup, {{"<TABLE>", "TrainingSet"}}),
       "DELETE FROM TrainingSetBackup;"},
      {"kCopyTable",
       FillStatement(kCopyTable, {{"<NEW_TABLE>", "TestingSet"}, {"<TABLE>", "TrainingSet"}}),
       "INSERT INTO TestingSet SELECT * FROM TrainingSet;"},
      {"kCountClasses",
       FillStatement(kCountClasses, {{"<COLUMN>", "1"}, {"<TABLE>", "TrainingSet"}}),
       "SELECT COUNT(DISTINCT d1) FROM TrainingSet"},
      {"kCountTable", FillStatement(kCountTable, {{"<TABLE>", "TestingSet"}}),
       "SELECT COUNT(*) FROM TestingSet"},
      {"kCountTraining", std::string(kCountTraining), "SELECT COUNT(*) FROM TrainingSet"},
      {"kCountTesting", std::string(kCountTesting), "SELECT COUNT(*) FROM TestingSet"},
      {"kProbeTesting", std::string(kProbeTesting), "SELECT * FROM TestingSet WHERE 1=0;"},
      {"kCopyTestingToTraining", std::string(kCopyTestingToTraining),
       "INSERT INTO TrainingSet SELECT * FROM TestingSet;"},
      {"kProbeTable", FillStatement(kProbeTable, {{"<TABLE>", "TestingSet"}}),
       "SELECT * FROM TestingSet WHERE 0 = 1"},
      {"kSelectFirstRecord", FillStatement(kSelectFirstRecord, {{"<TABLE>", "TestingSet"}}),
       "SELECT * FROM TestingSet LIMIT 1"},
      {"kDistinctClasses",
       FillStatement(kDistinctClasses, {{"<XX>", "d1"}, {"<TABLE>", "TrainingSet"}}),
       "SELECT DISTINCT d1 from TrainingSet"},
      {"kColumnFigures", FillStatement(kColumnFigures, {{"<XX>", "0"}}),
       " min(d0), max(d0), avg(d0), median(d0), stdev(d0) ", "SELECT", "FROM TrainingSet"},
      {"kClassFigures", FillStatement(kClassFigures, {{"<XX>", "0"}}),
       " min(d0), max(d0), avg(d0), median(d0), COUNT(*) ", "SELECT", "FROM TrainingSet"},
      {"kClassCondition",
       FillStatement(kClassCondition, {{"<RESPONSE>", "d1"}, {"<CLASS>", "0.5"}}),
       " WHERE d1 = 0.5", "SELECT d0 FROM TrainingSet"},
  };
}

std::vector<StatementCase> OriginalDataStatements() {
  return {
      {"kSelectOriginalValue",
       FillStatement(kSelectOriginalValue, {{"<NAME>", "d1"}, {"<ROW>", "3"}}),
       "SELECT d1 FROM OriginalData WHERE row = 3"},
      {"kSelectOriginal", std::string(kSelectOriginal), "SELECT * FROM OriginalData"},
      {"kCountOriginal", std::string(kCountOriginal), "SELECT COUNT(*) FROM OriginalData"},
      {"kProbeOriginal", std::string(kProbeOriginal), "SELECT * FROM OriginalData WHERE 0 = 1"},
      {"kSelectOriginalTraining", std::string(kSelectOriginalTraining),
       "SELECT od.* FROM OriginalData od INNER JOIN TrainingSet ts ON od.row = ts.row ORDER BY "
       "ts.rowid"},
      {"kSelectOriginalTesting", std::string(kSelectOriginalTesting),
       "SELECT od.* FROM OriginalData od INNER JOIN TestingSet ts ON od.row = ts.row ORDER BY "
       "ts.rowid"},
      {"kSelectTrainingColumn", FillStatement(kSelectTrainingColumn, {{"<NAME>", "d1"}}),
       "SELECT d1 FROM TrainingSet"},
      {"kSelectTestingColumn", FillStatement(kSelectTestingColumn, {{"<NAME>", "d1"}}),
       "SELECT d1 FROM TestingSet"},
      {"kSelectOriginalLabels", std::string(kSelectOriginalLabels),
       "SELECT Label, ColumnIndex FROM OriginalDataLabels WHERE SetId=1 ORDER BY ColumnIndex"},
  };
}

std::vector<StatementCase> StatisticsStatements() {
  return {
      {"kDeleteStatistics", FillStatement(kDeleteStatistics, {{"<SET_ID>", "2"}}),
       "DELETE FROM DataSetStatistics WHERE DataSetId = 2"},
      {"kInsertStatistics",
       FillStatement(kInsertStatistics,
                     {{"<SET_ID>", "1"}, {"<COLUMN>", "3"}, {"<VALUES>", "1, 2, 3, 4, 5"}}),
       "INSERT INTO DataSetStatistics VALUES (NULL, 1, 3, 1, 2, 3, 4, 5)"},
      {"kSelectStatistics", FillStatement(kSelectStatistics, {{"<SET_ID>", "2"}}),
       "SELECT ColumnIndex, Centroid, Medoid, Minimum, Maximum, StandardDeviation FROM "
       "DataSetStatistics WHERE DataSetId = 2 ORDER BY ColumnIndex"},
      {"kSelectResponseMaximum", FillStatement(kSelectResponseMaximum, {{"<SET_ID>", "1"}}),
       "SELECT Maximum FROM DataSetStatistics WHERE  DataSetId = 1 AND ColumnIndex = (SELECT "
       "ColumnIndex FROM DataSetColumn WHERE IsResponse = 1)"},
      {"kSelectAnyResponseMaximum", std::string(kSelectAnyResponseMaximum),
       "SELECT Maximum FROM DataSetStatistics WHERE   ColumnIndex = (SELECT ColumnIndex FROM "
       "DataSetColumn WHERE IsResponse = 1)"},
      {"kCreateClassStatistics", std::string(kCreateClassStatistics),
       "CREATE TABLE DataSetClassStatistics (Id INTEGER, DataSetId INTEGER, ColumnId INTEGER, "
       "Class FLOAT, Centroid float NOT NULL, Medoid float NOT NULL, Minimum float NOT NULL, "
       "Maximum float NOT NULL, RecordCount INTEGER NOT NULL, primary key (Id));",
       "", "", "DROP TABLE DataSetClassStatistics"},
      {"kDeleteClassStatistics", FillStatement(kDeleteClassStatistics, {{"<SET_ID>", "2"}}),
       "DELETE FROM DataSetClassStatistics WHERE DataSetId = 2"},
      {"kInsertClassStatistics",
       FillStatement(
           kInsertClassStatistics,
           {{"<SET_ID>", "1"}, {"<COLUMN>", "3"}, {"<CLASS>", "0"}, {"<VALUES>", "1, 2, 3, 4, 5"}}),
       "INSERT INTO DataSetClassStatistics VALUES (NULL, 1, 3, 0, 1, 2, 3, 4, 5)"},
      {"kSelectClassStatistics", FillStatement(kSelectClassStatistics, {{"<SET_ID>", "2"}}),
       "SELECT ColumnId, Class, Centroid, Medoid, RecordCount FROM DataSetClassStatistics WHERE "
       "DataSetId = 2 ORDER BY Class, ColumnId"},
  };
}

}  // namespace tslm5
