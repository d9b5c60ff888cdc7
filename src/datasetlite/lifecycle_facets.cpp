#include "datasetlite/lifecycle_facets.h"

#include <string>

#include "datasetlite/data_set_lite.h"
#include "datasetlite/run_labels.h"
#include "platform/only_errors.h"
#include "storage/table_names.h"
#include "support/file_helpers.h"
#include "tslm5/contracts/codes.h"
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

/// A table handle on the set's run under `type`, loaded if the run has that table.
Ref<TableLite> OpenTable(const Ref<IUnknown>& run, std::int32_t type, bool& loaded) {
  Ref<TableLite> table = MakeObject<TableLite>();
  table->Init2(run.get());
  loaded = table->Load(Variant(run), type);
  return table;
}

}  // namespace

bool PersistableFacet::Load(const Variant& pRunPath, const Variant& pParams) try {
  Ref<IUnknown> run = RunIn(pRunPath, kLoadSource);
  if (pParams.IsEmpty() || (!run && !state_.run)) RaiseInvalidParameter(kLoadSource);
  const std::int32_t type = pParams.ToInteger();
  if (run) state_.run = run;
  state_.data_set_type = type;
  state_.table.Reset();
  state_.extra_table.Reset();
  state_.cached_columns = -1;
  state_.statistics.ExpectTables();

  bool loaded = false;
  state_.table = OpenTable(state_.run, type, loaded);
  if (type != data_set_type::kTimeSeriesTesting) {
    bool has_extra = false;
    Ref<TableLite> extra = OpenTable(state_.run, data_set_type::kTimeSeriesTesting, has_extra);
    if (has_extra) state_.extra_table = std::move(extra);
  }
  RunLabels::Load(state_);
  LoadColumnFlags(state_);
  state_.is_dirty = false;
  state_.is_ready = loaded;
  return loaded;
} catch (...) {
  RaiseAsError();
}

bool PersistableFacet::Save(const Variant& pRunPath, const Variant& pParams) try {
  if (!state_.table) return false;
  if (pParams.IsEmpty()) RaiseInvalidParameter(kSaveSource);
  const std::int32_t type = pParams.ToInteger();
  const Ref<IUnknown> run = RunIn(pRunPath, kSaveSource);
  if (run) state_.run = run;
  state_.data_set_type = type;
  if (!state_.table->Save() && state_.extra_table) state_.extra_table->Save();
  if (state_.has_labels) RunLabels::Save(state_);
  state_.is_dirty = false;
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
  Ref<TableLite> table = state_.table ? state_.table->Clone(type) : Ref<TableLite>();
  return CloneDataSetLite(state_, type, std::move(table));
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
