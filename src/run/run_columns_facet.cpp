#include "run/run_columns_facet.h"

#include <cstddef>
#include <utility>

#include "platform/only_errors.h"
#include "run/sql_text.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

constexpr const char* kColumns = "DataSetColumn";
constexpr const char* kLabels = "DataSetLabels";
constexpr const char* kOriginalLabels = "OriginalDataLabels";
// The set id under which the label of a series is kept.
constexpr const char* kSeriesSetId = "2";

void InsertOriginalLabel(const RunCatalogState& state, std::string_view label, std::size_t column) {
  state.Execute(Sql("INSERT INTO OriginalDataLabels (Label, ColumnIndex, SetId) VALUES (",
                    SqlText(label), ", ", column, ", 1)"));
}

void DeleteOriginalLabels(const RunCatalogState& state) {
  state.Execute("DELETE FROM OriginalDataLabels WHERE SetId = 1");
}

}  // namespace

void RunColumnsFacet::ReadColumns(std::vector<RunColumn>& pColumns) {
  OnlyErrors([&] {
    std::vector<RunColumn> columns;
    if (state_.HasTable(kColumns)) {
      state_.ForEach(
          "SELECT OriginalLabel, IsNominal, MissingCount, IsResponse FROM DataSetColumn ORDER BY "
          "Id",
          [&columns](IDataReader& reader) {
            columns.push_back({reader.GetString(0), reader.GetInteger(1) == 1, reader.GetInteger(2),
                               reader.GetInteger(3) == 1});
          });
    }
    pColumns = std::move(columns);
  });
}

void RunColumnsFacet::WriteColumns(const std::vector<RunColumn>& pColumns, bool pHasLabels) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    state_.Execute("DELETE FROM DataSetColumn");
    DeleteOriginalLabels(state_);
    for (std::size_t i = 0; i < pColumns.size(); ++i) {
      const RunColumn& column = pColumns[i];
      const std::string name = Sql("d", i);
      state_.Execute(Sql("INSERT INTO DataSetColumn VALUES (NULL, ", i, ", '", name, "', ",
                         SqlText(pHasLabels ? column.label : name), ", ", column.is_nominal ? 1 : 0,
                         ", ", column.missing, ", 0, ", i + 1 == pColumns.size() ? 1 : 0, ")"));
      InsertOriginalLabel(state_, column.label, i);
    }
    transaction.Commit();
  });
}

void RunColumnsFacet::WriteMissingCounts(const std::vector<std::int32_t>& pCounts) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    for (std::size_t i = 0; i < pCounts.size(); ++i) {
      state_.Execute(
          Sql("UPDATE DataSetColumn SET MissingCount = ", pCounts[i], " WHERE ColumnIndex = ", i));
    }
    transaction.Commit();
  });
}

void RunColumnsFacet::ReadOriginalLabels(std::vector<std::string>& pLabels) {
  OnlyErrors([&] {
    std::vector<std::string> labels;
    if (state_.HasTable(kOriginalLabels)) {
      state_.ForEach("SELECT Label FROM OriginalDataLabels WHERE SetId = 1 ORDER BY ColumnIndex",
                     [&labels](IDataReader& reader) { labels.push_back(reader.GetString(0)); });
    }
    pLabels = std::move(labels);
  });
}

void RunColumnsFacet::WriteOriginalLabels(const std::vector<std::string>& pLabels) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    DeleteOriginalLabels(state_);
    for (std::size_t i = 0; i < pLabels.size(); ++i) InsertOriginalLabel(state_, pLabels[i], i);
    transaction.Commit();
  });
}

bool RunColumnsFacet::HasLabels(std::int32_t pType) {
  return OnlyErrors([&] {
    if (!state_.HasTable(kLabels)) return false;
    return state_.ReadInteger(
               Sql("SELECT EXISTS (SELECT * FROM DataSetLabels WHERE SetId = ", pType, ")")) != 0;
  });
}

void RunColumnsFacet::DropLabels(std::int32_t pType) {
  OnlyErrors([&] {
    if (!state_.HasTable(kLabels)) return;
    state_.Execute(Sql("DELETE FROM DataSetLabels WHERE SetId = ", pType));
  });
}

void RunColumnsFacet::WriteSeriesLabel(std::string_view pLabel) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    state_.Execute(Sql("DELETE FROM DataSetLabels WHERE SetId = ", kSeriesSetId));
    state_.Execute(Sql("INSERT INTO DataSetLabels VALUES (NULL, ", kSeriesSetId, ", 0, ",
                       SqlText(pLabel), ")"));
    transaction.Commit();
  });
}

}  // namespace tslm5
