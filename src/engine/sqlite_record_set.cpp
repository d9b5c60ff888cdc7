#include "engine/sqlite_record_set.h"

#include <algorithm>
#include <cmath>

#include "engine/sqlite_statement.h"
#include "platform/only_errors.h"
#include "tslm5/platform/error.h"

namespace tslm5 {

SqliteRecordSet::SqliteRecordSet(RunConnection& connection, std::string_view sql)
    : connection_(&connection),
      source_(std::in_place, connection.Database(), sql),
      seen_writes_(connection.Writes()) {}

SqliteRecordSet::~SqliteRecordSet() {
  try {
    WritePending();
  } catch (const std::exception&) {  // nobody is left to be told; `Close` would have told
    connection_->ForgetPending(this);
  }
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
  return source_->BlockOf(index).Value(source_->OffsetInBlock(index), field);
} catch (...) {
  RaiseAsError();
}

void SqliteRecordSet::SetField(const Variant& pFieldIndex, const Variant& pValue) try {
  const std::size_t index = CurrentIndex();
  const int field = CheckedField(pFieldIndex);
  if (!source_->IsWholeTable() || source_->IsKey(field)) {
    throw Error(error_number::kInvalidCall, "SetField",
                "Only a field of a whole table that is not its key can be written.");
  }
  const double value = pValue.IsNull() ? std::nan("") : pValue.ToDouble();
  RecordBlock& block = source_->BlockOf(index);
  const std::size_t offset = source_->OffsetInBlock(index);
  if (pending_.empty()) {
    connection_->NotePending(this);
    seen_writes_ = connection_->Writes();
    source_->KeepAllBlocks(true);
  }
  pending_.push_back({block.Key(offset), field, value});
  block.Put(offset, field, value);
} catch (...) {
  RaiseAsError();
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
  *pValue = source_->BlockOf(index).Number(source_->OffsetInBlock(index), pFieldIndex);
  return true;
} catch (...) {
  RaiseAsError();
}

void SqliteRecordSet::Refresh() {
  connection_->WritePending();
  source_->Refresh();
  seen_writes_ = connection_->Writes();
}

void SqliteRecordSet::WritePending() {
  if (pending_.empty()) return;
  const bool was_current = seen_writes_ == connection_->Writes();
  bool buffer_is_exact = true;
  connection_->RunInTransaction([this, &buffer_is_exact](sqlite3* database) {
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
            SqliteStatement(database, "UPDATE " + source_->TableName() + " SET " +
                                          source_->FieldName(field) + " = ?1 WHERE rowid = ?2");
        buffer_is_exact = buffer_is_exact && source_->StoresDoubles(field);
      }
      if (std::isnan(change.value)) {
        update.BindNull(1);
      } else {
        update.BindDouble(1, change.value);
      }
      update.BindInteger(2, change.key);
      update.Run();
    }
  });
  DropPending();
  connection_->ForgetPending(this);
  connection_->CountWrite();
  if (was_current && buffer_is_exact) seen_writes_ = connection_->Writes();
}

void SqliteRecordSet::DropPending() {
  pending_.clear();
  source_->KeepAllBlocks(false);
}

}  // namespace tslm5
