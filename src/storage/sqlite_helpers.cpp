#include "storage/sqlite_helpers.h"

#include "storage/run_statements.h"

namespace tslm5::SqliteHelpers {
namespace {

/// The first field of the first record; the getter itself raises when there is no record.
template <class Value>
Value QueryFirst(IConnection& connection, std::string_view sql,
                 Value (IDataReader::*getter)(std::int32_t)) {
  const Ref<IDataReader> reader = connection.ExecuteReader(sql);
  reader->Read();
  Value value = (reader.get()->*getter)(0);
  reader->Close();
  return value;
}

template <class Value>
Value Parameter(IConnection& connection, std::string_view statement, std::string_view element,
                Value (IDataReader::*getter)(std::int32_t)) {
  const Ref<IDataReader> reader =
      connection.ExecuteReader(FillStatement(statement, {{"<ELEMENT>", element}}));
  const Value value = reader->Read() ? (reader.get()->*getter)(0) : Value{};
  reader->Close();
  return value;
}

}  // namespace

double QueryDouble(IConnection& connection, std::string_view sql) {
  return QueryFirst(connection, sql, &IDataReader::GetDouble);
}

std::int32_t QueryInteger(IConnection& connection, std::string_view sql) {
  return QueryFirst(connection, sql, &IDataReader::GetInteger);
}

std::string QueryString(IConnection& connection, std::string_view sql) {
  return QueryFirst(connection, sql, &IDataReader::GetString);
}

double GetFloatParameter(IConnection& connection, std::string_view element) {
  return Parameter(connection, run_statement::kSelectFloatParameter, element,
                   &IDataReader::GetDouble);
}

std::int32_t GetIntParameter(IConnection& connection, std::string_view element) {
  return Parameter(connection, run_statement::kSelectIntParameter, element,
                   &IDataReader::GetInteger);
}

}  // namespace tslm5::SqliteHelpers
