#include "run/run_catalog_state.h"

#include "run/sql_text.h"
#include "storage/run_tables.h"
#include "storage/table_names.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5 {

void RunCatalogState::Open(IUnknown* run) {
  connection_ = ConnectionOf(run);
  originals_appender_.Reset();
}

IRecordAppender* RunCatalogState::OriginalsAppender() {
  if (!originals_appender_) {
    const Ref<IRecordAppending> appending = Query<IRecordAppending>(&Connection());
    if (appending) originals_appender_ = appending->OpenAppender("OriginalData");
  }
  return originals_appender_.get();
}

IConnection& RunCatalogState::Connection() const {
  if (!connection_) {
    throw Error(error_number::kInvalidArgument, "RunCatalog",
                "The catalogue has no run; Open names one.");
  }
  return *connection_;
}

std::int32_t RunCatalogState::ReadInteger(std::string_view sql) const {
  const Ref<IDataReader> reader = Connection().ExecuteReader(sql);
  const std::int32_t value = reader->Read() ? reader->GetInteger(0) : 0;
  reader->Close();
  return value;
}

std::int32_t RunCatalogState::ColumnsOf(std::string_view table) const {
  if (!HasTable(table)) return 0;
  const Ref<IDataReader> reader =
      Connection().ExecuteReader(Sql("SELECT * FROM ", table, " WHERE 0 = 1"));
  const std::int32_t fields = reader->FieldCount();
  reader->Close();
  return fields - 1;
}

void RunCatalogState::MoveKeys(std::string_view table, std::int32_t distance) const {
  if (distance == 0) return;
  // By way of negative keys, because a key may be taken until all have moved.
  Execute(Sql("UPDATE ", table, " SET row = -(row + (", distance, "))"));
  Execute(Sql("UPDATE ", table, " SET row = -row"));
}

std::string_view RunCatalogState::TableOf(std::int32_t type) {
  const std::string_view table = TableName(type);
  if (type == data_set_type::kUnknown || table.empty()) {
    throw Error(error_number::kSubscriptOutOfRange, "RunCatalog",
                Sql("No set of a run has the type ", type, "."));
  }
  return table;
}

}  // namespace tslm5
