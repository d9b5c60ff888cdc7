#include "datasetlite/data_set_loading.h"

#include <string>
#include <utility>
#include <vector>

#include "contracts/event_args_objects.h"
#include "contracts/property_source.h"
#include "datasetlite/record_access.h"
#include "datasetlite/record_forwarder.h"
#include "storage/transaction.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::string_view kSourceClass = "InMemorySet";
constexpr const char* kFailed = "Data load failed.";

/// The labels of the first `columns` columns, as many as there are.
std::vector<std::string> ReadLabels(IDataSet& source, std::int32_t columns) {
  std::vector<std::string> labels;
  try {
    for (std::int32_t column = 0; column < columns; ++column) {
      labels.push_back(source.GetLabel(column));
    }
  } catch (const Error& error) {
    if (error.Number() != error_number::kSubscriptOutOfRange) throw;
  }
  return labels;
}

/// The first column of an extra set.
std::vector<double> ReadSeries(IExtraSet& extra) {
  std::vector<double> values;
  const std::int32_t rows = extra.Rows();
  values.reserve(static_cast<std::size_t>(rows));
  for (std::int32_t row = 0; row < rows; ++row) values.push_back(extra.GetItem(0, row));
  return values;
}

}  // namespace

bool DataSetLoading::SetData(IUnknown* source, std::int32_t data_set_type) {
  const Ref<IDataSet> keep_alive(state_.sender);  // a handler may let go of the set
  const Ref<IDataSet> records = Query<IDataSet>(source);
  if (!records || records->TypeName() != kSourceClass) return false;
  if (records->Rows() == 0 || records->Columns() == 0) return false;
  Ref<IExtraSet> extra = records.As<IExtraSet>();
  if (extra && !extra->Exists()) extra.Reset();
  if (extra && data_set_type == data_set_type::kTimeSeriesTesting) return false;
  ConnectionOf(state_);  // without a run there is nothing to load into: told before the old rows go

  RecordAccess::Clear(state_);
  if (const Ref<IPropertySource> properties = records.As<IPropertySource>()) {
    for (const auto& [key, value] : properties->Properties().Entries()) {
      state_.properties.Put(key, value);
    }
  }
  state_.data_set_type = data_set_type;
  state_.is_dirty = true;

  const Ref<IParseEventArgs> arguments = MakeParseEventArgs();
  arguments->put_Rows(records->Rows());
  arguments->put_Columns(records->Columns());
  state_.sinks.Fire([this, &arguments](IDataSetLiteEvents& sink) {
    sink.BeforeDataLoad(state_.sender, arguments.get());
  });
  if (arguments->Cancel()) return false;

  bool stored = false;
  try {
    stored = Fill(*records, extra.get());
  } catch (...) {
    state_.is_ready = false;
    Finish(*arguments, kFailed);
    throw;
  }
  if (!stored) {
    state_.is_ready = false;
    Finish(*arguments, kFailed);
    throw Error(error_number::kTableRefused, "SetData", kFailed);
  }
  Finish(*arguments, "Data load succeded.");
  state_.is_ready = true;
  return true;
}

/// False when the table store took back what it had.
bool DataSetLoading::Fill(IDataSet& source, IExtraSet* extra) {
  const Ref<IConnection> connection = ConnectionOf(state_);
  Transaction transaction(*connection);
  const Ref<TableLite> table = NewTable();
  const std::int32_t columns = source.Columns();
  table->Create(columns, state_.data_set_type, true);
  {
    const ScopedRecordForwarder forwarder(*table, state_.sinks);
    if (!table->ParseDataSet(source)) return false;
  }
  Ref<TableLite> extra_table;
  if (extra != nullptr) {
    extra_table = NewTable();
    extra_table->Create(1, data_set_type::kTimeSeriesTesting, false);
    extra_table->ParseDoubleArray(ReadSeries(*extra));
    extra_table->LoadRecordSet();
  }
  const bool has_labels = source.HasLabels();
  std::vector<std::string> labels;
  if (has_labels) labels = ReadLabels(source, columns);
  LoadColumnFlags(state_);
  transaction.Commit();

  state_.has_labels = has_labels;
  state_.labels = std::move(labels);
  state_.table = table;
  state_.cached_columns = columns;
  state_.statistics.Empty();  // a handler may have had them read
  // An older extra table is the set's own table now, if that is what the type code says.
  const bool is_own = state_.data_set_type == data_set_type::kTimeSeriesTesting;
  if (extra_table || is_own) state_.extra_table = std::move(extra_table);
  return true;
}

Ref<TableLite> DataSetLoading::NewTable() const {
  Ref<TableLite> table = MakeObject<TableLite>();
  table->Init2(state_.run.get());
  return table;
}

void DataSetLoading::Finish(IParseEventArgs& arguments, std::string_view message) {
  arguments.put_Message(message);
  arguments.put_Rows(state_.Rows());
  state_.sinks.Fire([this, &arguments](IDataSetLiteEvents& sink) {
    sink.AfterDataLoad(state_.sender, &arguments);
  });
}

}  // namespace tslm5
