#include "engine/sqlite_record_set.h"

#include <algorithm>
#include <cmath>

#include "engine/sqlite_statement.h"
#include "platform/only_errors.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {

SqliteRecordSet::SqliteRecordSet(RunConnection& connection, std::string_view sql)
    : connection_(&connection),
      source_(std::in_place, connection.Database(), sql),
      version_(Version()),
      seen_(*version_) {}

SqliteRecordSet::~SqliteRecordSet() {
  while (!pending_.empty()) {
    const std::size_t count = pending_.size();
    try {
      WritePending();
    } catch (const std::exception& failure) {  // `Close` would have told; now only the commit can
      connection_->NoteLostChange(failure);
      if (pending_.size() == count) break;
    }
  }
  connection_->ForgetPending(this);
}

void SqliteRecordSet::Close() try {
  WritePending();
  source_.reset();
} catch (...) {
  RaiseAsError();
}

void SqliteRecordSet::MoveTo(std::int32_t pRecordNumber, std::int32_t pOrigin) try {
  if (pOrigin != 0) {
    throw Error(error_number::kInvalidCall, "MoveTo", "The origin of a move can only be 0.");
  }
  position_ = pRecordNumber;
} catch (...) {
  RaiseAsError();
}

bool SqliteRecordSet::EndOfFile() try {
  if (!IsOpen()) return true;
  KeepUp();
  return !HasRecord(position_);
} catch (...) {
  RaiseAsError();
}

std::size_t SqliteRecordSet::CurrentIndex() {
  if (EndOfFile()) throw Error(error_number::kNoCurrentRecord, "TSLMRep5", "no current record");
  return static_cast<std::size_t>(position_ - 1);
}

int SqliteRecordSet::CheckedField(const Variant& field_index) const {
  const std::int32_t field = field_index.ToInteger();
  if (field < 0 || field >= source_->FieldCount()) RaiseSubscriptOutOfRange();
  return field;
}

Variant SqliteRecordSet::GetField(const Variant& pFieldIndex) try {
  const std::size_t index = CurrentIndex();
  const int field = CheckedField(pFieldIndex);
  return BlockOf(index).Value(source_->OffsetInBlock(index), field);
} catch (...) {
  RaiseAsError();
}

void SqliteRecordSet::SetField(const Variant& pFieldIndex, const Variant& pValue) try {
  const std::size_t index = CurrentIndex();
  const int field = CheckedField(pFieldIndex);
  if (!source_->IsWholeTable() || source_->IsFixed(field)) {
    throw Error(error_number::kInvalidCall, "SetField",
                "Only a field of a whole table that is not its key can be written.");
  }
  if (sqlite3_db_readonly(connection_->Database(), "main") == 1) {
    RaiseEngineError(
        SQLITE_READONLY,
        "table " + source_->TableName() + " cannot be written: the run was opened for reading only",
        "");
  }
  TableVersions& versions = connection_->Versions();
  const double value = pValue.IsNull() ? std::nan("") : pValue.ToDouble();
  RecordBlock& block = BlockOf(index);
  const std::size_t offset = source_->OffsetInBlock(index);
  if (pending_.size() == pending_.capacity()) pending_.reserve(2 * pending_.size() + 16);
  if (pending_.empty()) {
    connection_->NotePending(this);
    if (source_->HasSideEffects()) {
      connection_->NoteChange();
    } else {
      versions.Advance(versions.Of(source_->PlainName()));
    }
    seen_ = *version_;
    source_->KeepAllBlocks(true);
  }
  try {
    block.Put(offset, field, value);
  } catch (...) {
    Outdate();
    throw;
  }
  pending_.push_back({block.Key(offset), field, value});
} catch (...) {
  RaiseAsError();
}

const TableVersions::Counter* SqliteRecordSet::Version() {
  TableVersions& versions = connection_->Versions();
  return source_->IsWholeTable() ? versions.Of(source_->PlainName()) : versions.OfAll();
}

RecordBlock& SqliteRecordSet::BlockOf(std::size_t index) {
  if (source_->HasBlockOf(index)) return source_->BlockOf(index);
  return connection_->Guarded([this, index]() -> RecordBlock& { return source_->BlockOf(index); });
}

std::int32_t SqliteRecordSet::FieldCount() try {
  if (!IsOpen()) return 0;
  KeepUp();
  return source_->FieldCount();
} catch (...) {
  RaiseAsError();
}

std::int32_t SqliteRecordSet::RecordCount() try {
  if (!IsOpen()) return 0;
  KeepUp();
  return source_->RecordCount();
} catch (...) {
  RaiseAsError();
}

void SqliteRecordSet::Update() {
  OnlyErrors([&] { WritePending(); });
}

bool SqliteRecordSet::ReadNumber(std::int32_t pRecordNumber, std::int32_t pFieldIndex,
                                 double* pValue) try {
  if (!IsOpen()) return false;
  KeepUp();
  if (!HasRecord(pRecordNumber) || pFieldIndex < 0 || pFieldIndex >= source_->FieldCount()) {
    return false;
  }
  const auto index = static_cast<std::size_t>(pRecordNumber - 1);
  *pValue = BlockOf(index).Number(source_->OffsetInBlock(index), pFieldIndex);
  return true;
} catch (...) {
  RaiseAsError();
}

void SqliteRecordSet::Refresh() {
  connection_->Guarded([this] {
    connection_->WritePending();
    source_->Refresh();
  });
  version_ = Version();
  seen_ = *version_;
}

void SqliteRecordSet::WritePending() {
  if (pending_.empty()) return connection_->ForgetPending(this);
  const bool was_current = seen_ == *version_;
  bool buffer_is_exact = !source_->HasSideEffects();
  std::size_t current = pending_.size();  // the change that is being written, if any
  StatementEffects effects;
  try {
    connection_->RunInTransaction([&] { RunUpdates(current, effects, buffer_is_exact); });
  } catch (const SqliteFailure& failure) {
    if (failure.Number() == error_number::kStoredUnsynced) {
      DropPending();
      connection_->ForgetPending(this);
      connection_->NoteWrite(effects);
    }
    if (IsPassing(failure.Number())) throw;
    DropChange(current, failure);
  }
  DropPending();
  connection_->ForgetPending(this);
  connection_->NoteWrite(effects);
  if (was_current && buffer_is_exact) seen_ = *version_;
}

void SqliteRecordSet::RunUpdates(std::size_t& current, StatementEffects& effects,
                                 bool& buffer_is_exact) {
  // One statement a field; of several changes of a cell the last one.
  std::stable_sort(pending_.begin(), pending_.end(), [](const Change& a, const Change& b) {
    return std::pair(a.field, a.key) < std::pair(b.field, b.key);
  });
  SqliteStatement update;
  int field = -1;
  for (std::size_t i = 0; i < pending_.size(); ++i) {
    const Change& change = pending_[i];
    if (i + 1 < pending_.size() && pending_[i + 1].key == change.key &&
        pending_[i + 1].field == change.field) {
      continue;
    }
    if (change.field != field) {
      field = change.field;
      update =
          connection_->Watch().Compile("UPDATE " + source_->TableName() + " SET " +
                                           source_->FieldName(field) + " = ?1 WHERE rowid = ?2",
                                       effects);
      buffer_is_exact = buffer_is_exact && source_->StoresDoubles(field);
    }
    if (std::isnan(change.value)) {
      update.BindNull(1);
    } else {
      update.BindDouble(1, change.value);
    }
    update.BindInteger(2, change.key);
    current = i;
    update.Run();
    current = pending_.size();
  }
}

void SqliteRecordSet::DropChange(std::size_t index, const SqliteFailure& failure) {
  Outdate();
  const int reason = failure.Number() & 0xFF;
  const bool is_one =
      index < pending_.size() && (reason == SQLITE_CONSTRAINT || reason == SQLITE_MISMATCH);
  if (!is_one) {  // the table is gone, for instance
    DropPending();
    connection_->ForgetPending(this);
    throw SqliteFailure(failure.Number(), failure.Source(),
                        failure.Description() + "; the pending changes of table " +
                            source_->TableName() + " are dropped");
  }
  const Change change = pending_[index];
  std::erase_if(pending_, [&change](const Change& other) {
    return other.key == change.key && other.field == change.field;
  });
  if (pending_.empty()) {
    DropPending();
    connection_->ForgetPending(this);
  }
  throw SqliteFailure(failure.Number(), failure.Source(),
                      failure.Description() + "; the change of " + source_->TableName() + "." +
                          source_->FieldName(change.field) + " in the record with key " +
                          std::to_string(change.key) + " to " +
                          (std::isnan(change.value) ? "NULL" : NumberText(change.value)) +
                          " is dropped");
}

void SqliteRecordSet::DropPending() noexcept {
  pending_.clear();
  source_->KeepAllBlocks(false);
}

}  // namespace tslm5
