#include "datasetlite/nominal_metadata.h"

#include <algorithm>

#include "datasetlite/query_dictionary.h"
#include "platform/only_errors.h"
#include "storage/run_statements.h"
#include "storage/sql_number.h"
#include "storage/sqlite_helpers.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::string_view kTrainingSet = "TrainingSet";
constexpr std::string_view kTestingSet = "TestingSet";

std::string OfColumn(std::string_view statement, std::string_view column) {
  return FillStatement(statement, {{"<COLUMN>", column}});
}

/// `kUpdateCategoryCells` or `kUpdateOtherCategoryCells`.
std::string CellsStatement(std::string_view statement, std::string_view table,
                           std::string_view name, std::string_view value,
                           std::string_view nominal) {
  return FillStatement(
      statement,
      {{"<TABLE>", table}, {"<NAME>", name}, {"<VALUE>", value}, {"<NOMINAL>", nominal}});
}

/// A code read as text becomes a number with a point as its separator, whatever the locale.
double CodeOf(const std::string& text) {
  return Variant(text).ToDouble();
}

/// A code of the response other than `code`; raises 41011 when it has no other.
double OtherCode(const DataSetLiteState& state, std::string_view response, double code) {
  const auto groups =
      QueryToDictionary(state, OfColumn(run_statement::kSelectGroupSizes, response));
  for (const auto& [key, size] : groups->Entries()) {
    if (key.ToDouble() != code) return key.ToDouble();
  }
  throw Error(error_number::kInvalidData, "UpdateMergingResponseCategories",
              "All categories of the response have the same numeric value.");
}

}  // namespace

std::string NominalMetadataFacet::Response(const char* source) const {
  ConnectionOf(state_);  // without a run there is no response either: that is told first
  if (state_.sender->Columns() == 0) {
    throw Error(error_number::kInvalidData, source,
                "The set has no data, so its response is not known.");
  }
  return std::to_string(state_.sender->TerminalCount());
}

Variant NominalMetadataFacet::GetCategories(std::int32_t pColumnIndex) try {
  const std::string_view statement = GetIsCategorical(pColumnIndex)
                                         ? run_statement::kSelectCategories
                                         : run_statement::kSelectNumericCategories;
  return QueryToDictionary(state_, OfColumn(statement, std::to_string(pColumnIndex)));
} catch (...) {
  RaiseAsError();
}

Variant NominalMetadataFacet::GetCategoricalIndexes() {
  return OnlyErrors(
      [&] { return QueryToDictionary(state_, run_statement::kSelectNominalIndexes); });
}

Variant NominalMetadataFacet::GetCategoricalNames() {
  return OnlyErrors([&] { return QueryToDictionary(state_, run_statement::kSelectNominalNames); });
}

void NominalMetadataFacet::UpdateCategory(std::string_view pName, std::string_view pNominal,
                                          const Variant& pValue) try {
  const std::string value = SqlNumber(pValue.ToDouble());
  const Ref<IConnection> connection = ConnectionOf(state_);
  for (const std::string_view text : {pName, pNominal}) RefuseApostrophe(text, "UpdateCategory");
  // The code itself is not wanted: an unknown category fails here, before anything is changed.
  SqliteHelpers::QueryDouble(*connection,
                             FillStatement(run_statement::kSelectCategoryCode,
                                           {{"<NAME>", pName}, {"<NOMINAL>", pNominal}}));
  Execute(FillStatement(run_statement::kUpdateCategoryCode,
                        {{"<VALUE>", value}, {"<NAME>", pName}, {"<NOMINAL>", pNominal}}));
  state_.is_dirty = true;
  Execute(
      CellsStatement(run_statement::kUpdateCategoryCells, kTrainingSet, pName, value, pNominal));
  state_.statistics.Empty();
  if (!TestingSetExists()) return;
  Execute(CellsStatement(run_statement::kUpdateCategoryCells, kTestingSet, pName, value, pNominal));
} catch (...) {
  RaiseAsError();
}

bool NominalMetadataFacet::AnalyseResponseCategories(std::string& pMessage) try {
  const std::string response = Response("AnalyseResponseCategories");
  if (SqliteHelpers::QueryInteger(*ConnectionOf(state_),
                                  OfColumn(run_statement::kCountCategoryCodes, response)) != 2) {
    pMessage = "Unable to proceed: The response variable must be binomial.";
    return false;
  }
  const auto groups =
      QueryToDictionary(state_, OfColumn(run_statement::kSelectGroupSizes, response));
  const auto& sizes = groups->Entries();
  if (std::any_of(sizes.begin(), sizes.end(),
                  [](const auto& group) { return group.second.ToInteger() == 1; })) {
    return true;
  }
  pMessage = "Unable to proceed: The response variable must have a unique Singled Out Class.";
  return false;
} catch (...) {
  RaiseAsError();
}

bool NominalMetadataFacet::GetIsCategorical(std::int32_t pColumnIndex) {
  const auto flag = state_.is_categorical.find(pColumnIndex);
  return flag != state_.is_categorical.end() && flag->second;
}

double NominalMetadataFacet::GetModeMapping(std::int32_t pColumnIndex) {
  return OnlyErrors([&] {
    return SqliteHelpers::QueryDouble(
        *ConnectionOf(state_),
        OfColumn(run_statement::kSelectModeCode, std::to_string(pColumnIndex)));
  });
}

bool NominalMetadataFacet::IsResponseMerging() {
  return OnlyErrors([&] {
    return SqliteHelpers::QueryInteger(*ConnectionOf(state_), run_statement::kSelectMerging) == 1;
  });
}

void NominalMetadataFacet::UpdateMergingResponseCategories() try {
  const std::string response = Response("UpdateMergingResponseCategories");
  const auto query = [this, &response](std::string_view statement) {
    return SqliteHelpers::QueryString(*ConnectionOf(state_), OfColumn(statement, response));
  };
  const std::string positive_class = query(run_statement::kSelectSmallestGroupNominal);
  RefuseApostrophe(positive_class, "UpdateMergingResponseCategories");
  const double positive_code = CodeOf(query(run_statement::kSelectSmallestGroupCode));
  double negative_code = CodeOf(query(run_statement::kSelectLargestGroupCode));
  // Of groups of one size the database may give the same one twice; equal codes would level the
  // response.
  if (negative_code == positive_code) {
    negative_code = OtherCode(state_, response, positive_code);
  }

  const std::string positive = SqlNumber(positive_code);
  const std::string negative = SqlNumber(negative_code);
  const std::string name = "d" + response;
  Execute(FillStatement(
      run_statement::kUpdateResponseEncoding,
      {{"<CLASS>", positive_class}, {"<POSITIVE>", positive}, {"<NEGATIVE>", negative}}));
  state_.is_dirty = true;
  const auto encode = [&](std::string_view table) {
    Execute(
        CellsStatement(run_statement::kUpdateCategoryCells, table, name, positive, positive_class));
    state_.statistics.Empty();
    Execute(CellsStatement(run_statement::kUpdateOtherCategoryCells, table, name, negative,
                           positive_class));
  };
  encode(kTrainingSet);
  if (TestingSetExists()) encode(kTestingSet);
} catch (...) {
  RaiseAsError();
}

void NominalMetadataFacet::GetResponseEncoding(std::string& pPositiveClass, double& pZeroValue,
                                               double& pOneValue) try {
  const Ref<IDataReader> reader =
      ConnectionOf(state_)->ExecuteReader(run_statement::kSelectResponseEncoding);
  if (reader->Read()) {
    pPositiveClass = reader->GetString(0);
    pZeroValue = reader->GetDouble(1);
    pOneValue = reader->GetDouble(2);
  }
  reader->Close();
} catch (...) {
  RaiseAsError();
}

void NominalMetadataFacet::SavePositiveClass(std::string_view pPositiveClass) try {
  ConnectionOf(state_);  // without a run there is nothing to record: that is told first
  RefuseApostrophe(pPositiveClass, "SavePositiveClass");
  Execute(FillStatement(run_statement::kUpdatePositiveClass, {{"<CLASS>", pPositiveClass}}));
} catch (...) {
  RaiseAsError();
}

}  // namespace tslm5
