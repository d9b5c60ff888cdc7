#ifndef TSLM5_STORAGE_RUN_STATEMENTS_H_
#define TSLM5_STORAGE_RUN_STATEMENTS_H_

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace tslm5 {

/// Every statement that is sent to a run database, to the blank. What stands in angle brackets is a
/// placeholder, filled by `FillStatement`; values are pasted in as they are.
namespace run_statement {

// Data tables: TrainingSet, TestingSet, TimeSeriesTrainingSet, TimeSeriesTestingSet.
inline constexpr std::string_view kCreateTable = "CREATE TABLE <TABLE> (<COLUMNS>";
inline constexpr std::string_view kCreateBackup = "CREATE TABLE <TABLE>Backup (<COLUMNS>";
inline constexpr std::string_view kDataColumn = "d<COLUMN> FLOAT, ";
inline constexpr std::string_view kRowColumn = "row INTEGER PRIMARY KEY);";
inline constexpr std::string_view kDropTable = "DROP TABLE <TABLE>;";
inline constexpr std::string_view kDropBackup = "DROP TABLE <TABLE>Backup;";
inline constexpr std::string_view kInsertRow = "INSERT INTO <TABLE> VALUES (<VALUES>);";
inline constexpr std::string_view kSelectTable = "SELECT * FROM <TABLE>;";
inline constexpr std::string_view kDeleteRows = "DELETE FROM <TABLE>;";
inline constexpr std::string_view kCopyToBackup =
    "INSERT INTO <TABLE>Backup SELECT * FROM <TABLE>;";
inline constexpr std::string_view kCopyFromBackup =
    "INSERT INTO <TABLE> SELECT * FROM <TABLE>Backup;";
inline constexpr std::string_view kDeleteBackup = "DELETE FROM <TABLE>Backup;";
inline constexpr std::string_view kCopyTable = "INSERT INTO <NEW_TABLE> SELECT * FROM <TABLE>;";
inline constexpr std::string_view kCountClasses = "SELECT COUNT(DISTINCT d<COLUMN>) FROM <TABLE>";
inline constexpr std::string_view kCountTraining = "SELECT COUNT(*) FROM TrainingSet";
inline constexpr std::string_view kCountTesting = "SELECT COUNT(*) FROM TestingSet";
inline constexpr std::string_view kProbeTesting = "SELECT * FROM TestingSet WHERE 1=0;";
inline constexpr std::string_view kCopyTestingToTraining =
    "INSERT INTO TrainingSet SELECT * FROM TestingSet;";
inline constexpr std::string_view kCountTable = "SELECT COUNT(*) FROM <TABLE>";
inline constexpr std::string_view kProbeTable = "SELECT * FROM <TABLE> WHERE 0 = 1";
inline constexpr std::string_view kSelectFirstRecord = "SELECT * FROM <TABLE> LIMIT 1";
inline constexpr std::string_view kDistinctClasses = "SELECT DISTINCT <XX> from <TABLE>";
inline constexpr std::string_view kColumnFigures =
    " min(d<XX>), max(d<XX>), avg(d<XX>), median(d<XX>), stdev(d<XX>) ";
inline constexpr std::string_view kClassFigures =
    " min(d<XX>), max(d<XX>), avg(d<XX>), median(d<XX>), COUNT(*) ";
inline constexpr std::string_view kClassCondition = " WHERE <RESPONSE> = <CLASS>";

// OriginalData and its labels.
inline constexpr std::string_view kSelectOriginalValue =
    "SELECT <NAME> FROM OriginalData WHERE row = <ROW>";
inline constexpr std::string_view kSelectOriginal = "SELECT * FROM OriginalData";
inline constexpr std::string_view kCountOriginal = "SELECT COUNT(*) FROM OriginalData";
inline constexpr std::string_view kProbeOriginal = "SELECT * FROM OriginalData WHERE 0 = 1";
inline constexpr std::string_view kSelectOriginalTraining =
    "SELECT od.* FROM OriginalData od INNER JOIN TrainingSet ts ON od.row = ts.row ORDER BY "
    "ts.rowid";
inline constexpr std::string_view kSelectOriginalTesting =
    "SELECT od.* FROM OriginalData od INNER JOIN TestingSet ts ON od.row = ts.row ORDER BY "
    "ts.rowid";
inline constexpr std::string_view kSelectTrainingColumn = "SELECT <NAME> FROM TrainingSet";
inline constexpr std::string_view kSelectTestingColumn = "SELECT <NAME> FROM TestingSet";
inline constexpr std::string_view kSelectOriginalLabels =
    "SELECT Label, ColumnIndex FROM OriginalDataLabels WHERE SetId=1 ORDER BY ColumnIndex";

// DataSetColumn.
inline constexpr std::string_view kFillColumnsFromLabels =
    "INSERT INTO DataSetColumn SELECT NULL, [column], 'd' || [column], [label], 0, 0, 0, 0 FROM "
    "DataSetLabels WHERE SetId = 1";
inline constexpr std::string_view kMarkLastColumnAsResponse =
    "UPDATE DataSetColumn SET IsResponse = 1 WHERE Id = (SELECT max(Id) FROM DataSetColumn)";
inline constexpr std::string_view kCountTellingColumns =
    "SELECT COUNT(*) FROM DataSetColumn c LEFT JOIN DataSetLabels l ON l.SetId = 1 AND l.[column] "
    "= c.ColumnIndex WHERE l.label IS NOT c.OriginalLabel OR c.Name IS NOT 'd' || c.ColumnIndex OR "
    "c.IsNominal IS NOT 0 OR c.MissingCount IS NOT 0 OR c.IsResponse IS NOT (c.Id = (SELECT "
    "max(Id) FROM DataSetColumn))";
inline constexpr std::string_view kInsertLagColumn =
    "INSERT INTO DataSetColumn VALUES(NULL, <COLUMN>, 'd<COLUMN>', 't_<LAG>', 0,0,0, 0)";
inline constexpr std::string_view kInsertResponseColumn =
    "INSERT INTO DataSetColumn VALUES(NULL, <COLUMN>, 'd<COLUMN>', 't_0', 0,0,0, 1)";
inline constexpr std::string_view kDeleteColumns = "DELETE FROM DataSetColumn";
inline constexpr std::string_view kSelectColumns = "SELECT * FROM DataSetColumn ORDER BY Id;";
inline constexpr std::string_view kCountColumns = "SELECT COUNT(*) FROM DataSetColumn;";
inline constexpr std::string_view kSelectColumnName =
    "SELECT Name FROM DataSetColumn WHERE ColumnIndex = <COLUMN>";
inline constexpr std::string_view kSelectResponseName =
    "SELECT Name FROM DataSetColumn WHERE IsResponse = 1";
inline constexpr std::string_view kSelectNominalFlags =
    "SELECT ColumnIndex, IsNominal FROM DataSetColumn ORDER BY Id";
inline constexpr std::string_view kSelectMissingCounts =
    "SELECT ColumnIndex, MissingCount FROM DataSetColumn ORDER BY Id";
inline constexpr std::string_view kSelectNominalFlagList =
    "SELECT IsNominal FROM DataSetColumn ORDER BY Id";
inline constexpr std::string_view kSelectNominalIndexes =
    "SELECT Name, ColumnIndex FROM DataSetColumn WHERE IsNominal = 1 ORDER BY Id";
inline constexpr std::string_view kSelectNominalNames =
    "SELECT Name, OriginalLabel FROM DataSetColumn WHERE IsNominal = 1 ORDER BY Id";
inline constexpr std::string_view kCountLabels =
    "SELECT COUNT(*) FROM DataSetColumn WHERE Name <> OriginalLabel";

// DataSetLabels and the names of the sets.
inline constexpr std::string_view kInsertLabel =
    "INSERT INTO DataSetLabels (SetId, [column], label) VALUES (<SET_ID>, <COLUMN>, '<LABEL>');";
inline constexpr std::string_view kInsertLagLabel =
    "INSERT INTO DataSetLabels VALUES(NULL, 1, <COLUMN>, 't_<LAG>')";
inline constexpr std::string_view kInsertResponseLabel =
    "INSERT INTO DataSetLabels VALUES(NULL, 1, <COLUMN>, 't')";
inline constexpr std::string_view kDeleteLabels =
    "DELETE FROM DataSetLabels Where SetId = <SET_ID>;";
inline constexpr std::string_view kDeleteTrainingLabels =
    "DELETE FROM DataSetLabels WHERE SetId = 1";
inline constexpr std::string_view kSelectSeriesLabel =
    "SELECT label FROM DataSetLabels WHERE SetId = 2";
inline constexpr std::string_view kSelectSetName =
    "SELECT Name FROM vw_DataSetName WHERE Id = <SET_ID>";

// DataSetStatistics. The blanks after WHERE in the last two are meant.
inline constexpr std::string_view kDeleteStatistics =
    "DELETE FROM DataSetStatistics WHERE DataSetId = <SET_ID>";
inline constexpr std::string_view kInsertStatistics =
    "INSERT INTO DataSetStatistics VALUES (NULL, <SET_ID>, <COLUMN>, <VALUES>)";
inline constexpr std::string_view kSelectStatistics =
    "SELECT ColumnIndex, Centroid, Medoid, Minimum, Maximum, StandardDeviation FROM "
    "DataSetStatistics WHERE DataSetId = <SET_ID> ORDER BY ColumnIndex";
inline constexpr std::string_view kSelectResponseMaximum =
    "SELECT Maximum FROM DataSetStatistics WHERE  DataSetId = <SET_ID> AND ColumnIndex = (SELECT "
    "ColumnIndex FROM DataSetColumn WHERE IsResponse = 1)";
inline constexpr std::string_view kSelectAnyResponseMaximum =
    "SELECT Maximum FROM DataSetStatistics WHERE   ColumnIndex = (SELECT ColumnIndex FROM "
    "DataSetColumn WHERE IsResponse = 1)";

// DataSetClassStatistics.
inline constexpr std::string_view kCreateClassStatistics =
    "CREATE TABLE DataSetClassStatistics (Id INTEGER, DataSetId INTEGER, ColumnId INTEGER, Class "
    "FLOAT, Centroid float NOT NULL, Medoid float NOT NULL, Minimum float NOT NULL, Maximum float "
    "NOT NULL, RecordCount INTEGER NOT NULL, primary key (Id));";
inline constexpr std::string_view kDeleteClassStatistics =
    "DELETE FROM DataSetClassStatistics WHERE DataSetId = <SET_ID>";
inline constexpr std::string_view kInsertClassStatistics =
    "INSERT INTO DataSetClassStatistics VALUES (NULL, <SET_ID>, <COLUMN>, <CLASS>, <VALUES>)";
inline constexpr std::string_view kSelectClassStatistics =
    "SELECT ColumnId, Class, Centroid, Medoid, RecordCount FROM DataSetClassStatistics WHERE "
    "DataSetId = <SET_ID> ORDER BY Class, ColumnId";

// DataSetColumnCategories.
inline constexpr std::string_view kSelectCategories =
    "SELECT NominalValue, NominalValue || ' ' || NumericValue || ' ' || CategoryCount FROM "
    "DataSetColumnCategories WHERE Name = 'd<COLUMN>' ORDER BY NominalValue";
inline constexpr std::string_view kSelectNumericCategories =
    "SELECT NominalValue, NominalValue || ' ' || NumericValue || ' ' || CategoryCount FROM "
    "DataSetColumnCategories WHERE Name = 'd<COLUMN>' ORDER BY CAST(NominalValue AS float)";
inline constexpr std::string_view kSelectCategoryCode =
    "SELECT NumericValue FROM DataSetColumnCategories WHERE Name = '<NAME>' AND NominalValue = "
    "'<NOMINAL>'";
inline constexpr std::string_view kUpdateCategoryCode =
    "UPDATE DataSetColumnCategories SET NumericValue = <VALUE> WHERE Name = '<NAME>' AND "
    "NominalValue = '<NOMINAL>'";
inline constexpr std::string_view kUpdateCategoryCells =
    "UPDATE <TABLE> SET <NAME> = <VALUE> WHERE row IN (SELECT row FROM OriginalData WHERE <NAME> = "
    "'<NOMINAL>')";
inline constexpr std::string_view kUpdateOtherCategoryCells =
    "UPDATE <TABLE> SET <NAME> = <VALUE> WHERE row IN (SELECT row FROM OriginalData WHERE <NAME> "
    "<> '<NOMINAL>')";
inline constexpr std::string_view kSelectSmallestGroupNominal =
    "SELECT NominalValue, COUNT(*) FROM DataSetColumnCategories WHERE Name='d<COLUMN>' GROUP BY "
    "NumericValue ORDER BY COUNT(*) LIMIT 1";
inline constexpr std::string_view kSelectSmallestGroupCode =
    "SELECT NumericValue, COUNT(*) FROM DataSetColumnCategories WHERE Name='d<COLUMN>' GROUP BY "
    "NumericValue ORDER BY COUNT(*) LIMIT 1";
inline constexpr std::string_view kSelectLargestGroupCode =
    "SELECT NumericValue, COUNT(*) FROM DataSetColumnCategories WHERE Name='d<COLUMN>' GROUP BY "
    "NumericValue ORDER BY COUNT(*) DESC LIMIT 1";
inline constexpr std::string_view kSelectGroupSizes =
    "SELECT NumericValue, COUNT(*) FROM DataSetColumnCategories WHERE Name='d<COLUMN>' GROUP BY "
    "NumericValue";
inline constexpr std::string_view kCountCategoryCodes =
    "SELECT COUNT(DISTINCT NumericValue) FROM DataSetColumnCategories WHERE Name='d<COLUMN>'";
inline constexpr std::string_view kSelectModeCode =
    "SELECT NumericValue FROM DataSetColumnCategories WHERE Name = 'd<COLUMN>' ORDER BY "
    "CategoryCount DESC LIMIT 1";

// ResponseEncoding.
inline constexpr std::string_view kUpdateResponseEncoding =
    "UPDATE ResponseEncoding SET PositiveClass = '<CLASS>', NewPositiveValue = <POSITIVE>, "
    "NewNegativeValue = <NEGATIVE>";
inline constexpr std::string_view kUpdatePositiveClass =
    "UPDATE ResponseEncoding SET PositiveClass = '<CLASS>'";
inline constexpr std::string_view kSelectResponseEncoding =
    "SELECT PositiveClass, NewNegativeValue, NewPositiveValue FROM ResponseEncoding";

// MissingMappings.
inline constexpr std::string_view kSelectMissingMappings =
    "SELECT * FROM MissingMappings WHERE ColumnIndex = <COLUMN> ORDER BY Id";
inline constexpr std::string_view kSumMissingCounts =
    "SELECT SUM(MissingCount) FROM MissingMappings WHERE ColumnIndex = <COLUMN> ORDER BY Id";
inline constexpr std::string_view kSelectMissingIndexes =
    "SELECT ColumnIndex, ColumnIndex FROM MissingMappings GROUP BY ColumnIndex ORDER BY "
    "ColumnIndex";
inline constexpr std::string_view kUpdateMissingMapping =
    "UPDATE MissingMappings SET Replacement = <VALUE>, ReplacementType = <TYPE> WHERE ColumnIndex "
    "= <COLUMN> and OriginalValue = '<TOKEN>'";
inline constexpr std::string_view kSelectReplacements =
    "SELECT OriginalValue, Replacement FROM MissingMappings WHERE ColumnIndex = <COLUMN> ORDER BY "
    "Id";
inline constexpr std::string_view kApplyReplacement =
    "UPDATE <TABLE> SET d<COLUMN> = <VALUE> WHERE row IN (SELECT od.row FROM OriginalData od WHERE "
    "od.d<COLUMN> = '<TOKEN>')";

// RunParameters and the statistics that other programs keep.
inline constexpr std::string_view kSelectIntParameter =
    "SELECT intvalue FROM RunParameters WHERE element='<ELEMENT>'";
inline constexpr std::string_view kSelectFloatParameter =
    "SELECT floatvalue FROM RunParameters WHERE element='<ELEMENT>'";
inline constexpr std::string_view kSelectMerging =
    "SELECT intvalue FROM RunParameters WHERE namespace='data' AND element='Merging'";
inline constexpr std::string_view kSelectProblemCategory =
    "SELECT intvalue FROM RunParameters WHERE namespace = 'set_gen' AND element='ProblemCategory'";
inline constexpr std::string_view kSelectDeviationForCode =
    "SELECT StandardDeviation FROM DataSetStatisticsForCode WHERE ColumnIndex=<COLUMN>";
inline constexpr std::string_view kSelectFigureForMissing =
    "SELECT <FIGURE> FROM DataSetStatisticsForMissing WHERE ColumnIndex=<COLUMN>";

}  // namespace run_statement

/// A statement with its placeholders filled: every occurrence of each first text by its second, in
/// one pass, so that a value that looks like a placeholder is left alone.
std::string FillStatement(
    std::string_view statement,
    std::initializer_list<std::pair<std::string_view, std::string_view>> values);

/// Raises 1, source `source`, where `text` holds an apostrophe: pasted into a statement it would
/// end there and make another one of it. For texts that a caller or the run gives, before any
/// statement.
void RefuseApostrophe(std::string_view text, std::string_view source);

/// Where `<VALUES>` stands in `kInsertRow` for a table: "INSERT INTO name VALUES (". What follows
/// the values is ");".
std::string InsertRowHead(std::string_view table_name);

}  // namespace tslm5

#endif  // TSLM5_STORAGE_RUN_STATEMENTS_H_
