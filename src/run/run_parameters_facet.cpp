#include "run/run_parameters_facet.h"

#include <utility>

#include "platform/only_errors.h"
#include "run/sql_text.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/run/run_records.h"

namespace tslm5 {
namespace {

constexpr const char* kParameters = "RunParameters";

std::string Condition(std::string_view space, std::string_view name) {
  std::string sql = Sql(" WHERE element = ", SqlText(name));
  if (space != parameter_space::kAny) sql += Sql(" AND namespace = ", SqlText(space));
  return sql;
}

/// Writes a parameter in the place of a former one; both values are SQL.
void Write(const RunCatalogState& state, std::string_view space, std::string_view name,
           std::string_view whole, std::string_view number) {
  Transaction transaction(state.Connection());
  state.Execute(Sql("DELETE FROM RunParameters", Condition(space, name)));
  state.Execute(Sql("INSERT INTO RunParameters VALUES (", SqlText(space), ", ", SqlText(name), ", ",
                    whole, ", ", number, ")"));
  transaction.Commit();
}

}  // namespace

std::int32_t RunParametersFacet::ReadWhole(std::string_view pSpace, std::string_view pName) {
  return OnlyErrors([&] {
    if (!state_.HasTable(kParameters)) return 0;
    return state_.ReadInteger(Sql("SELECT intvalue FROM RunParameters", Condition(pSpace, pName)));
  });
}

double RunParametersFacet::ReadNumber(std::string_view pSpace, std::string_view pName) {
  return OnlyErrors([&] {
    if (!state_.HasTable(kParameters)) return 0.0;
    const Ref<IDataReader> reader = state_.Connection().ExecuteReader(
        Sql("SELECT floatvalue FROM RunParameters", Condition(pSpace, pName)));
    return reader->Read() ? reader->GetDouble(0) : 0.0;
  });
}

void RunParametersFacet::ReadNames(std::string_view pSpace, std::vector<std::string>& pNames) {
  OnlyErrors([&] {
    std::vector<std::string> names;
    if (state_.HasTable(kParameters)) {
      state_.ForEach(Sql("SELECT element FROM RunParameters WHERE namespace = ", SqlText(pSpace)),
                     [&names](IDataReader& reader) { names.push_back(reader.GetString(0)); });
    }
    pNames = std::move(names);
  });
}

void RunParametersFacet::WriteWhole(std::string_view pSpace, std::string_view pName,
                                    std::int32_t pValue) {
  OnlyErrors([&] { Write(state_, pSpace, pName, Sql(pValue), "NULL"); });
}

void RunParametersFacet::WriteNumber(std::string_view pSpace, std::string_view pName,
                                     double pValue) {
  OnlyErrors([&] { Write(state_, pSpace, pName, "NULL", SqlOrNull(pValue)); });
}

void RunParametersFacet::ReplaceWhole(std::string_view pSpace, std::string_view pName,
                                      std::int32_t pValue) {
  OnlyErrors([&] {
    if (!state_.HasTable(kParameters)) return;
    state_.Execute(Sql("UPDATE RunParameters SET intvalue = ", pValue, Condition(pSpace, pName)));
  });
}

void RunParametersFacet::DropParameter(std::string_view pSpace, std::string_view pName) {
  OnlyErrors([&] {
    if (!state_.HasTable(kParameters)) return;
    state_.Execute(Sql("DELETE FROM RunParameters", Condition(pSpace, pName)));
  });
}

void RunParametersFacet::DropSpace(std::string_view pSpace) {
  OnlyErrors([&] {
    if (!state_.HasTable(kParameters)) return;
    state_.Execute(Sql("DELETE FROM RunParameters WHERE namespace = ", SqlText(pSpace)));
  });
}

}  // namespace tslm5
