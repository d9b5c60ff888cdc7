#include "datasetlite/lifecycle_facets.h"

#include <string>
#include <utility>
#include <vector>

#include "datasetlite/data_set_lite.h"
#include "datasetlite/run_labels.h"
#include "platform/only_errors.h"
#include "storage/restore_guard.h"
#include "storage/run_tables.h"
#include "storage/table_names.h"
#include "support/file_helpers.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr const char* kLoadSource = "ORVDtmgt_IPersistable_Load";
constexpr const char* kSaveSource = "IPersistable_Save";
constexpr std::string_view kRunTypeName = "Run";

[[noreturn]] void RaiseInvalidParameter(const char* source) {
  throw Error(error_number::kInvalidArgument, source, "Invalid parameter.");
}

/// The run object in `run_path`; empty when it holds the path of an existing file instead. What is
/// neither raises 41001.
Ref<IUnknown> RunIn(const Variant& run_path, const char* source) {
  std::string path;
  if (run_path.GetKind() == Variant::Kind::kObject) {
    Ref<IUnknown> run = run_path.ToObject();
    if (run && run->TypeName() == kRunTypeName) return run;
  } else if (run_path.GetKind() == Variant::Kind::kString) {
    path = run_path.ToString();
  }
  if (!FileHelpers::FileExists(path)) {
    throw Error(error_number::kInvalidArgument, source,
                "Run path is empty or the file does not exist.");
  }
  return nullptr;
}

/// The run's table of a type; none when the run has no such table.
Ref<TableLite> OpenTable(const Ref<IUnknown>& run, std::int32_t type) {
  Ref<TableLite> table = MakeObject<TableLite>();
  if (!table->Load(Variant(run), type)) table.Reset();
  return table;
}

/// Writes the pending changes of a table; false when they cannot be written.
bool WritePending(const Ref<TableLite>& table) {
  return !table || table->SaveIfOpen();
}

}  // namespace

bool PersistableFacet::Load(const Variant& pRunPath, const Variant& pParams) try {
  Ref<IUnknown> run = RunIn(pRunPath, kLoadSource);
  if (pParams.IsEmpty() || (!run && !state_.run)) RaiseInvalidParameter(kLoadSource);
  const std::int32_t type = pParams.ToInteger();
  if (!run) run = state_.run;

  // All that can fail comes first: a failure leaves the set as it was.
  Ref<TableLite> table = OpenTable(run, type);
  Ref<TableLite> extra_table;
  if (type != data_set_type::kTimeSeriesTesting) {
    extra_table = OpenTable(run, data_set_type::kTimeSeriesTesting);
  }
  const Ref<IConnection> connection = ConnectionOf(run.get());
  std::vector<std::string> labels = RunLabels::Read(*connection);
  ColumnFlags flags = ReadColumnFlags(*connection);

  state_.statistics.ExpectTables();
  state_.run = std::move(run);
  state_.data_set_type = type;
  state_.table = std::move(table);
  state_.extra_table = std::move(extra_table);
  state_.labels = std::move(labels);
  state_.has_labels = !state_.labels.empty();
  state_.Take(std::move(flags));
  state_.wrote_column_records = false;
  state_.cached_columns = -1;
  state_.is_dirty = false;
  state_.is_ready = static_cast<bool>(state_.table);
  return state_.is_ready;
} catch (...) {
  RaiseAsError();
}

bool PersistableFacet::Save(const Variant& pRunPath, const Variant& pParams) try {
  // Also without data of its own a set may have an extra set.
  const bool extra_is_written = WritePending(state_.extra_table);
  if (!state_.table) return false;
  if (pParams.IsEmpty()) RaiseInvalidParameter(kSaveSource);
  const std::int32_t type = pParams.ToInteger();
  Ref<IUnknown> run = RunIn(pRunPath, kSaveSource);
  if (!WritePending(state_.table) || !extra_is_written) return false;

  RestoreGuard old_run(state_.run);
  RestoreGuard old_type(state_.data_set_type);
  if (run) state_.run = std::move(run);
  state_.data_set_type = type;
  OnceStored([this] { RunLabels::Save(state_); },
             [&] {
               old_run.Keep();
               old_type.Keep();
               state_.is_dirty = false;
             });
  return true;
} catch (...) {
  RaiseAsError();
}

Ref<IUnknown> CloneableFacet::Clone(const Variant& pParams) try {
  const std::int32_t type = pParams.ToInteger();
  if (type == state_.data_set_type) {
    throw Error(error_number::kCloneOfSameType, "CloneExt",
                "A clone of a dataset cannot of the same type as the original.");
  }
  if (type == data_set_type::kTimeSeriesTesting && state_.extra_table) {
    throw Error(error_number::kCloneOfSameType, "CloneExt",
                "The clone would take the table of the set's extra set.");
  }
  if (!state_.table) return CloneDataSetLite(state_, type, nullptr);
  const Ref<IConnection> connection = ConnectionOf(state_);
  Transaction transaction(*connection);
  Ref<IUnknown> clone = CloneDataSetLite(state_, type, state_.table->Clone(type));
  transaction.Commit();
  return clone;
} catch (...) {
  RaiseAsError();
}

Variant ConstructorFacet::Init(const VariantArray& pParams) try {
  if (pParams.Size() < 2) RaiseInvalidParameter("Init");
  const Ref<IUnknown> run = pParams[pParams.LowerBound()].ToObject();
  const std::int32_t type = pParams[pParams.LowerBound() + 1].ToInteger();
  state_.run = run;
  state_.data_set_type = type;
  state_.cached_columns = -1;
  return true;
} catch (...) {
  RaiseAsError();
}

void DisposableFacet::Dispose(bool pIsDisposing) try {
  if (state_.table) state_.table->Dispose(pIsDisposing);
  if (state_.extra_table) state_.extra_table->Dispose(pIsDisposing);
} catch (...) {
  RaiseAsError();
}

}  // namespace tslm5
