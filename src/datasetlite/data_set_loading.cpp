#include "datasetlite/data_set_loading.h"

#include <string>
#include <utility>
#include <vector>

#include "contracts/event_args_objects.h"
#include "contracts/property_source.h"
#include "datasetlite/record_access.h"
#include "datasetlite/record_forwarder.h"
#include "storage/table_limits.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::string_view kSourceClass = "InMemorySet";
constexpr const char* kSource = "SetData";
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

/// Gives a set back what a load may have changed, unless the load was kept; its rows come back with
/// the transaction. Nothing in it can fail.
class SetGuard {
 public:
  explicit SetGuard(DataSetLiteState& state)
      : state_(state),
        run_(state.run),
        properties_(state.properties),
        data_set_type_(state.data_set_type),
        labels_(state.labels),
        has_labels_(state.has_labels),
        table_(state.table),
        extra_table_(state.extra_table),
        cached_columns_(state.cached_columns),
        statistics_(state.statistics) {}
  SetGuard(const SetGuard&) = delete;
  SetGuard& operator=(const SetGuard&) = delete;
  ~SetGuard() = default;

  const Ref<IUnknown>& Run() const { return run_; }

  void Restore() noexcept {
    state_.run = std::move(run_);
    state_.properties = std::move(properties_);
    state_.data_set_type = data_set_type_;
    state_.labels = std::move(labels_);
    state_.has_labels = has_labels_;
    state_.table = std::move(table_);
    state_.extra_table = std::move(extra_table_);
    state_.cached_columns = cached_columns_;
    state_.statistics = std::move(statistics_);
    state_.is_ready = false;
    state_.is_dirty = true;
  }

 private:
  DataSetLiteState& state_;
  Ref<IUnknown> run_;
  PropertyBag properties_;
  std::int32_t data_set_type_;
  std::vector<std::string> labels_;
  bool has_labels_;
  Ref<TableLite> table_;
  Ref<TableLite> extra_table_;
  std::int32_t cached_columns_;
  StatisticsCache statistics_;
};

}  // namespace

bool DataSetLoading::SetData(IUnknown* source, std::int32_t data_set_type) {
  const Ref<IDataSet> keep_alive(state_.sender);  // a handler may let go of the set
  const Ref<IDataSet> records = Query<IDataSet>(source);
  if (!records || records->TypeName() != kSourceClass) return false;
  const std::int32_t columns = records->Columns();
  if (records->Rows() == 0 || columns == 0) return false;
  Ref<IExtraSet> extra = records.As<IExtraSet>();
  if (extra && !extra->Exists()) extra.Reset();
  if (extra && data_set_type == data_set_type::kTimeSeriesTesting) return false;
  const Ref<IConnection> connection = ConnectionOf(state_);
  RequireTable(data_set_type, columns, kSource);

  const Ref<IParseEventArgs> arguments = MakeParseEventArgs();
  SetGuard before(state_);
  bool is_stored = false;
  try {
    Transaction transaction(*connection);
    Empty(*records, data_set_type);
    arguments->put_Rows(records->Rows());
    arguments->put_Columns(columns);
    state_.sinks.Fire([this, &arguments](IDataSetLiteEvents& sink) {
      sink.BeforeDataLoad(state_.sender, arguments.get());
    });
    if (arguments->Cancel()) {
      transaction.Commit([&is_stored] { is_stored = true; });
      return false;
    }
    if (state_.run != before.Run()) {
      throw Error(error_number::kInvalidCall, kSource,
                  "A handler attached the set to another run while it was being loaded.");
    }
    Filled filled = Fill(*records, extra.get());
    transaction.Commit([&] {
      TakeOver(std::move(filled));
      is_stored = true;
    });
  } catch (...) {
    if (!is_stored) {
      before.Restore();
      Finish(*arguments, kFailed);
    } else if (!arguments->Cancel()) {
      Conclude(*arguments);
    }
    throw;
  }
  Conclude(*arguments);
  return true;
}

void DataSetLoading::Conclude(IParseEventArgs& arguments) {
  Finish(arguments, "Data load succeded.");
  state_.is_ready = true;
}

/// The old table object stays as it is, for the case that its rows come back.
void DataSetLoading::Empty(IDataSet& source, std::int32_t data_set_type) {
  if (state_.table) {
    const Ref<TableLite> table = NewTable();
    table->Load(Variant(state_.run), state_.table->TypeCode());
    state_.table = table;
  }
  RecordAccess::Clear(state_);
  if (const Ref<IPropertySource> properties = Query<IPropertySource>(&source)) {
    for (const auto& [key, value] : properties->Properties().Entries()) {
      state_.properties.Put(key, value);
    }
  }
  state_.data_set_type = data_set_type;
  state_.is_dirty = true;
}

/// Raises 41019 when a listener stopped the fill.
DataSetLoading::Filled DataSetLoading::Fill(IDataSet& source, IExtraSet* extra) {
  Filled filled;
  filled.table = NewTable();
  filled.columns = source.Columns();
  filled.table->Create(filled.columns, state_.data_set_type, true);
  {
    const ScopedRecordForwarder forwarder(*filled.table, state_.sinks);
    if (!filled.table->ParseDataSet(source)) {
      throw Error(error_number::kTableRefused, kSource, kFailed);
    }
  }
  if (extra != nullptr) {
    filled.extra_table = NewTable();
    filled.extra_table->Create(1, data_set_type::kTimeSeriesTesting, false);
    filled.extra_table->ParseDoubleArray(ReadSeries(*extra));
    filled.extra_table->LoadRecordSet();
  }
  filled.has_labels = source.HasLabels();
  if (filled.has_labels) filled.labels = ReadLabels(source, filled.columns);
  LoadColumnFlags(state_);
  return filled;
}

void DataSetLoading::TakeOver(Filled filled) noexcept {
  state_.has_labels = filled.has_labels;
  state_.labels = std::move(filled.labels);
  state_.table = std::move(filled.table);
  state_.cached_columns = filled.columns;
  state_.statistics.Empty();  // a handler may have had them read
  state_.extra_table = std::move(filled.extra_table);
}

Ref<TableLite> DataSetLoading::NewTable() const {
  Ref<TableLite> table = MakeObject<TableLite>();
  table->Init2(state_.run.get());
  return table;
}

void DataSetLoading::Finish(IParseEventArgs& arguments, std::string_view message) {
  arguments.put_Message(message);
  arguments.put_Rows(state_.sender->Rows());  // which never raises
  state_.sinks.Fire([this, &arguments](IDataSetLiteEvents& sink) {
    sink.AfterDataLoad(state_.sender, &arguments);
  });
}

}  // namespace tslm5
