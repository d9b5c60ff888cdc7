// The statements of the columns' metadata, the labels and the run's parameters.
#include "storage/statement_cases.h"

namespace tslm5 {

using namespace run_statement;

std::vector<StatementCase> ColumnStatements() {
  return {
      {"kFillColumnsFromLabels", std::string(kFillColumnsFromLabels),
       "INSERT INTO DataSetColumn SELECT NULL, [column], 'd' || [column], [label], 0, 0, 0, 0 "
       "FROM DataSetLabels WHERE SetId = 1"},
      {"kMarkLastColumnAsResponse", std::string(kMarkLastColumnAsResponse),
       "UPDATE DataSetColumn SET IsResponse = 1 WHERE Id = (SELECT max(Id) FROM DataSetColumn)"},
      {"kInsertLagColumn", FillStatement(kInsertLagColumn, {{"<COLUMN>", "2"}, {"<LAG>", "4"}}),
       "INSERT INTO DataSetColumn VALUES(NULL, 2, 'd2', 't_4', 0,0,0, 0)"},
      {"kInsertResponseColumn", FillStatement(kInsertResponseColumn, {{"<COLUMN>", "5"}}),
       "INSERT INTO DataSetColumn VALUES(NULL, 5, 'd5', 't_0', 0,0,0, 1)"},
      {"kDeleteColumns", std::string(kDeleteColumns), "DELETE FROM DataSetColumn"},
      {"kSelectColumns", std::string(kSelectColumns), "SELECT * FROM DataSetColumn ORDER BY Id;"},
      {"kCountColumns", std::string(kCountColumns), "SELECT COUNT(*) FROM DataSetColumn;"},
      {"kSelectColumnName", FillStatement(kSelectColumnName, {{"<COLUMN>", "3"}}),
       "SELECT Name FROM DataSetColumn WHERE ColumnIndex = 3"},
      {"kSelectResponseName", std::string(kSelectResponseName),
       "SELECT Name FROM DataSetColumn WHERE IsResponse = 1"},
      {"kSelectNominalFlags", std::string(kSelectNominalFlags),
       "SELECT ColumnIndex, IsNominal FROM DataSetColumn ORDER BY Id"},
      {"kSelectMissingCounts", std::string(kSelectMissingCounts),
       "SELECT ColumnIndex, MissingCount FROM DataSetColumn ORDER BY Id"},
      {"kSelectNominalFlagList", std::string(kSelectNominalFlagList),
       "SELECT IsNominal FROM DataSetColumn ORDER BY Id"},
      {"kSelectNominalIndexes", std::string(kSelectNominalIndexes),
       "SELECT Name, ColumnIndex FROM DataSetColumn WHERE IsNominal = 1 ORDER BY Id"},
      {"kSelectNominalNames", std::string(kSelectNominalNames),
       "SELECT Name, OriginalLabel FROM DataSetColumn WHERE IsNominal = 1 ORDER BY Id"},
      {"kCountLabels", std::string(kCountLabels),
       "SELECT COUNT(*) FROM DataSetColumn WHERE Name <> OriginalLabel"},
      {"kCountTellingColumns", std::string(kCountTellingColumns),
       "SELECT COUNT(*) FROM DataSetColumn c LEFT JOIN DataSetLabels l ON l.SetId = 1 AND "
       "l.[column] = c.ColumnIndex WHERE l.label IS NOT c.OriginalLabel OR c.Name IS NOT 'd' || "
       "c.ColumnIndex OR c.IsNominal IS NOT 0 OR c.MissingCount IS NOT 0 OR c.IsResponse IS NOT "
       "(c.Id = (SELECT max(Id) FROM DataSetColumn))"},
  };
}

std::vector<StatementCase> LabelStatements() {
  return {
      {"kInsertLabel",
       FillStatement(kInsertLabel,
                     {{"<SET_ID>", "1"}, {"<COLUMN>", "3"}, {"<LABEL>", "driver''s age"}}),
       "INSERT INTO DataSetLabels (SetId, [column], label) VALUES (1, 3, 'driver''s age');"},
      {"kInsertLagLabel", FillStatement(kInsertLagLabel, {{"<COLUMN>", "2"}, {"<LAG>", "4"}}),
       "INSERT INTO DataSetLabels VALUES(NULL, 1, 2, 't_4')"},
      {"kInsertResponseLabel", FillStatement(kInsertResponseLabel, {{"<COLUMN>", "5"}}),
       "INSERT INTO DataSetLabels VALUES(NULL, 1, 5, 't')"},
      {"kDeleteLabels", FillStatement(kDeleteLabels, {{"<SET_ID>", "2"}}),
       "DELETE FROM DataSetLabels Where SetId = 2;"},
      {"kDeleteTrainingLabels", std::string(kDeleteTrainingLabels),
       "DELETE FROM DataSetLabels WHERE SetId = 1"},
      {"kSelectSeriesLabel", std::string(kSelectSeriesLabel),
       "SELECT label FROM DataSetLabels WHERE SetId = 2"},
      {"kSelectSetName", FillStatement(kSelectSetName, {{"<SET_ID>", "2"}}),
       "SELECT Name FROM vw_DataSetName WHERE Id = 2"},
  };
}

std::vector<StatementCase> ParameterStatements() {
  return {
      {"kSelectIntParameter",
       FillStatement(kSelectIntParameter, {{"<ELEMENT>", "NormalizationType"}}),
       "SELECT intvalue FROM RunParameters WHERE element='NormalizationType'"},
      {"kSelectFloatParameter",
       FillStatement(kSelectFloatParameter, {{"<ELEMENT>", "NormalizationNewMinValue"}}),
       "SELECT floatvalue FROM RunParameters WHERE element='NormalizationNewMinValue'"},
      {"kSelectMerging", std::string(kSelectMerging),
       "SELECT intvalue FROM RunParameters WHERE namespace='data' AND element='Merging'"},
      {"kSelectProblemCategory", std::string(kSelectProblemCategory),
       "SELECT intvalue FROM RunParameters WHERE namespace = 'set_gen' AND "
       "element='ProblemCategory'"},
      {"kSelectDeviationForCode", FillStatement(kSelectDeviationForCode, {{"<COLUMN>", "3"}}),
       "SELECT StandardDeviation FROM DataSetStatisticsForCode WHERE ColumnIndex=3"},
      {"kSelectFigureForMissing",
       FillStatement(kSelectFigureForMissing, {{"<FIGURE>", "Average"}, {"<COLUMN>", "3"}}),
       "SELECT Average FROM DataSetStatisticsForMissing WHERE ColumnIndex=3"},
  };
}

}  // namespace tslm5
