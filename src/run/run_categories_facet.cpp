#include "run/run_categories_facet.h"

#include <utility>

#include "platform/only_errors.h"
#include "run/sql_text.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

constexpr const char* kCategories = "DataSetColumnCategories";
constexpr const char* kEncoding = "ResponseEncoding";

/// The categories that a SELECT gives as column, text, code and count.
std::vector<RunCategory> ReadAll(const RunCatalogState& state, std::string_view sql) {
  std::vector<RunCategory> categories;
  if (!state.HasTable(kCategories)) return categories;
  state.ForEach(sql, [&categories](IDataReader& reader) {
    categories.push_back(
        {reader.GetInteger(0), reader.GetString(1), reader.GetDouble(2), reader.GetInteger(3)});
  });
  return categories;
}

}  // namespace

void RunCategoriesFacet::ReadCategories(std::vector<RunCategory>& pCategories) {
  OnlyErrors([&] {
    pCategories = ReadAll(state_,
                          "SELECT CAST(substr(Name, 2) AS INTEGER), NominalValue, NumericValue, "
                          "CategoryCount FROM DataSetColumnCategories ORDER BY 1, rowid");
  });
}

void RunCategoriesFacet::ReadColumnCategories(std::int32_t pColumn, bool pByNumber,
                                              std::vector<RunCategory>& pCategories) {
  OnlyErrors([&] {
    pCategories = ReadAll(
        state_,
        Sql("SELECT ", pColumn,
            ", NominalValue, NumericValue, CategoryCount FROM DataSetColumnCategories "
            "WHERE Name = 'd",
            pColumn, "' ORDER BY ", pByNumber ? "CAST(NominalValue AS float)" : "NominalValue"));
  });
}

void RunCategoriesFacet::WriteCategories(const std::vector<RunCategory>& pCategories) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    state_.Execute("DELETE FROM DataSetColumnCategories");
    for (const RunCategory& one : pCategories) {
      state_.Execute(Sql(
          "INSERT INTO DataSetColumnCategories (Name, NominalValue, NumericValue, CategoryCount) "
          "VALUES ('d",
          one.column, "', ", SqlText(one.text), ", ", NumberText(one.code), ", ", one.count, ")"));
    }
    transaction.Commit();
  });
}

bool RunCategoriesFacet::ReadEncoding(ResponseEncoding& pEncoding) {
  return OnlyErrors([&] {
    if (!state_.HasTable(kEncoding)) return false;
    const Ref<IDataReader> reader = state_.Connection().ExecuteReader(
        "SELECT PositiveClass, NewPositiveValue, NewNegativeValue FROM ResponseEncoding");
    if (!reader->Read()) return false;
    pEncoding = {reader->GetString(0), NumberOf(*reader, 1), NumberOf(*reader, 2)};
    return true;
  });
}

void RunCategoriesFacet::WriteEncoding(const ResponseEncoding& pEncoding) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    state_.Execute("DELETE FROM ResponseEncoding");
    state_.Execute(
        Sql("INSERT INTO ResponseEncoding (PositiveClass, NewPositiveValue, NewNegativeValue) "
            "VALUES (",
            SqlText(pEncoding.positive_class), ", ", SqlOrNull(pEncoding.positive), ", ",
            SqlOrNull(pEncoding.negative), ")"));
    transaction.Commit();
  });
}

void RunCategoriesFacet::DropEncoding() {
  OnlyErrors([&] {
    if (state_.HasTable(kEncoding)) state_.Execute("DELETE FROM ResponseEncoding");
  });
}

}  // namespace tslm5
