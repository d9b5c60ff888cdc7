#include "datasetlite/missing_metadata.h"

#include <cmath>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "datasetlite/missing_figures.h"
#include "datasetlite/query_dictionary.h"
#include "platform/only_errors.h"
#include "storage/run_statements.h"
#include "storage/sql_number.h"
#include "storage/sqlite_helpers.h"
#include "support/math_helper.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

std::string OfColumn(std::string_view statement, std::int32_t column) {
  return FillStatement(statement, {{"<COLUMN>", std::to_string(column)}});
}

/// The six fields of a mapping, joined by "|".
std::string MappingText(IDataReader& reader) {
  std::string text;
  for (const std::int32_t field : {0, 1, 2}) text += std::to_string(reader.GetInteger(field)) + '|';
  for (const std::int32_t field : {3, 4}) text += reader.GetString(field) + '|';
  return text + std::to_string(reader.GetInteger(5));
}

}  // namespace

void MissingMetadataFacet::UpdateMissing(std::int32_t pColumnIndex, const Variant& pOriginalvalue,
                                         const Variant& pNewValue, std::int32_t pNewValueType) try {
  const double value = pNewValue.ToDouble();
  const std::string token = pOriginalvalue.ToString();
  const Ref<IConnection> connection = ConnectionOf(state_);
  RefuseApostrophe(token, "UpdateMissing");
  connection->Execute(FillStatement(run_statement::kUpdateMissingMapping,
                                    {{"<VALUE>", std::isnan(value) ? "NULL" : SqlNumber(value)},
                                     {"<TYPE>", std::to_string(pNewValueType)},
                                     {"<COLUMN>", std::to_string(pColumnIndex)},
                                     {"<TOKEN>", token}}));
} catch (...) {
  RaiseAsError();
}

Variant MissingMetadataFacet::GetIndexes() {
  return OnlyErrors(
      [&] { return QueryToDictionary(state_, run_statement::kSelectMissingIndexes); });
}

std::int32_t MissingMetadataFacet::GetMissingCount(std::int32_t pColumnIndex) {
  return OnlyErrors([&] {
    return SqliteHelpers::QueryInteger(*ConnectionOf(state_),
                                       OfColumn(run_statement::kSumMissingCounts, pColumnIndex));
  });
}

bool MissingMetadataFacet::ApplyMissing(std::int32_t pColumnIndex) {
  try {
    Apply(pColumnIndex);
    return true;
  } catch (const std::exception& failure) {
    return IsStored(failure);  // a failure is reported by this alone, as the contract has it
  }
}

Variant MissingMetadataFacet::GetMissingFixedValues(std::int32_t pColumnIndex) try {
  auto texts = std::make_shared<VariantArray>();
  const Ref<IDataReader> reader = ConnectionOf(state_)->ExecuteReader(
      OfColumn(run_statement::kSelectMissingMappings, pColumnIndex));
  while (reader->Read()) texts->Elements().emplace_back(MappingText(*reader));
  reader->Close();
  return texts;
} catch (...) {
  RaiseAsError();
}

double MissingMetadataFacet::NormalizeValue(std::int32_t column, double value,
                                            std::int32_t normalization_type) const {
  const auto figure = [this, column](std::string_view type) {
    return MissingStatisticsValue(state_, column, type);
  };
  switch (normalization_type) {
    case 0:
      return value;
    case 1: {
      const double mean = figure("Average");
      return MathHelper::Standardize(value, mean, figure("StandardDeviation"));
    }
    case 2: {
      const double minimum = figure("Minimum");
      return MathHelper::Normalize(value, figure("Maximum"), minimum);
    }
    case 3: {
      const double minimum = figure("Minimum");
      const double maximum = figure("Maximum");
      const Ref<IConnection> connection = ConnectionOf(state_);
      const double new_minimum =
          SqliteHelpers::GetFloatParameter(*connection, "NormalizationNewMinValue");
      const double new_maximum =
          SqliteHelpers::GetFloatParameter(*connection, "NormalizationNewMaxValue");
      return MathHelper::Rescale(value, maximum, minimum, new_maximum, new_minimum);
    }
    default:
      return 0.0;
  }
}

void MissingMetadataFacet::Apply(std::int32_t column) {
  const Ref<IConnection> connection = ConnectionOf(state_);
  Transaction transaction(*connection);
  std::vector<std::pair<std::string, std::string>> replacements;  // token, number
  {
    const Ref<IDataReader> reader =
        connection->ExecuteReader(OfColumn(run_statement::kSelectReplacements, column));
    const std::int32_t type = SqliteHelpers::GetIntParameter(*connection, "NormalizationType");
    while (reader->Read()) {
      if (reader->IsNull(1)) continue;  // not chosen yet
      std::string token = reader->GetString(0);
      RefuseApostrophe(token, "ApplyMissing");
      // Text that is no number raises: a getter of numbers would make it 0.
      const double number = NormalizeValue(column, reader->GetValue(1).ToDouble(), type);
      replacements.emplace_back(std::move(token), SqlNumber(number));
    }
  }
  const bool has_testing_set = connection->TableExists("TestingSet");
  for (const auto& [token, number] : replacements) {
    for (const std::string_view table : {"TrainingSet", "TestingSet"}) {
      if (table == "TestingSet" && !has_testing_set) continue;
      connection->Execute(
          FillStatement(run_statement::kApplyReplacement, {{"<TABLE>", table},
                                                           {"<COLUMN>", std::to_string(column)},
                                                           {"<VALUE>", number},
                                                           {"<TOKEN>", token}}));
    }
  }
  transaction.Commit([this] {
    state_.statistics.Empty();
    state_.is_dirty = true;
  });
}

}  // namespace tslm5
