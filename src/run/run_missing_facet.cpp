#include "run/run_missing_facet.h"

#include <utility>

#include "platform/only_errors.h"
#include "run/sql_text.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

constexpr const char* kMappings = "MissingMappings";
constexpr const char* kOriginals = "OriginalData";

/// The texts that a SELECT gives with their counts.
std::vector<RunTextCount> ReadCounts(const RunCatalogState& state, std::string_view sql) {
  std::vector<RunTextCount> counts;
  state.ForEach(sql, [&counts](IDataReader& reader) {
    counts.push_back({reader.GetString(0), reader.GetInteger(1)});
  });
  return counts;
}

}  // namespace

void RunMissingFacet::ReadTokens(std::vector<RunToken>& pTokens) {
  OnlyErrors([&] {
    std::vector<RunToken> tokens;
    if (state_.HasTable(kMappings)) {
      state_.ForEach(
          "SELECT ColumnIndex, OriginalValue, MissingCount, Replacement, ReplacementType FROM "
          "MissingMappings ORDER BY ColumnIndex, Id",
          [&tokens](IDataReader& reader) {
            tokens.push_back({reader.GetInteger(0), reader.GetString(1), reader.GetInteger(2),
                              NumberOf(reader, 3), reader.GetInteger(4)});
          });
    }
    pTokens = std::move(tokens);
  });
}

void RunMissingFacet::WriteTokens(const std::vector<RunToken>& pTokens) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    state_.Execute("DELETE FROM MissingMappings");
    for (const RunToken& one : pTokens) {
      state_.Execute(
          Sql("INSERT INTO MissingMappings (Id, ColumnIndex, MissingCount, OriginalValue, "
              "Replacement, ReplacementType) VALUES (NULL, ",
              one.column, ", ", one.count, ", ", SqlText(one.text), ", ",
              SqlOrNull(one.replacement), ", ", one.type, ")"));
    }
    transaction.Commit();
  });
}

void RunMissingFacet::CountTrainingTexts(std::int32_t pColumn, std::vector<RunTextCount>& pTexts) {
  OnlyErrors([&] {
    std::vector<RunTextCount> texts;
    if (state_.HasTable("TrainingSet") && state_.HasTable(kOriginals)) {
      texts = ReadCounts(state_, Sql("SELECT od.d", pColumn,
                                     ", COUNT(*) FROM TrainingSet t JOIN OriginalData od ON od.row "
                                     "= t.row GROUP BY 1 ORDER BY MIN(t.row)"));
    }
    pTexts = std::move(texts);
  });
}

void RunMissingFacet::CountOpenTexts(std::int32_t pType, std::int32_t pColumn,
                                     std::vector<RunTextCount>& pTexts) {
  OnlyErrors([&] {
    const std::string_view table = state_.TableOf(pType);
    std::vector<RunTextCount> texts;
    if (state_.HasTable(table) && state_.HasTable(kOriginals)) {
      texts = ReadCounts(state_, Sql("SELECT od.d", pColumn, ", COUNT(*) FROM ", table,
                                     " t JOIN OriginalData od ON od.row = t.row WHERE t.d", pColumn,
                                     " IS NULL GROUP BY od.d", pColumn));
    }
    pTexts = std::move(texts);
  });
}

}  // namespace tslm5
