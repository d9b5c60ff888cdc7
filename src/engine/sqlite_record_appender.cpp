#include "engine/sqlite_record_appender.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "engine/sqlite_error.h"
#include "platform/only_errors.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr std::size_t kBatchSize = std::size_t{2} << 20;
constexpr std::size_t kLargestRecord = std::size_t{1} << 20;
constexpr std::size_t kFewestRecords = 32;  // fewer are bound sooner than an image is attached

void RequireFinite(double number) {
  if (std::isinf(number)) {
    throw Error(error_number::kOverflow, "TSLMRep5", "An infinite number cannot be stored.");
  }
}

void RequireStorable(const RecordCell& cell) {
  if (cell.kind == RecordCell::Kind::kNumber) RequireFinite(cell.number);
  if (cell.kind == RecordCell::Kind::kText && cell.text.find('\0') != std::string_view::npos) {
    RaiseEngineError(SQLITE_ERROR, "the text holds a NUL character", cell.text);
  }
}

}  // namespace

SqliteRecordAppender::SqliteRecordAppender(RunConnection& connection, AppendTarget target)
    : connection_(&connection),
      target_(std::move(target)),
      image_(target_.name, target_.create_sql) {
  TakeTarget(std::move(target_));
}

SqliteRecordAppender::~SqliteRecordAppender() {
  try {
    connection_->Guarded([this] { WriteAppended(); });
  } catch (const std::exception&) {  // noted: the transaction cannot be committed
    DropAppended();
  }
  connection_->ForgetAppended(this);
}

std::int32_t SqliteRecordAppender::Columns() {
  return static_cast<std::int32_t>(target_.cells.size());
}

void SqliteRecordAppender::TakeTarget(AppendTarget target) {
  StatementEffects effects;
  insert_ = connection_->Watch().Compile(InsertStatement(target), effects);
  effects_ = std::move(effects);
  if (target.name != image_.Table() || target.create_sql != image_.CreateSql()) {
    image_ = TableImage(target.name, target.create_sql);
  }
  target_ = std::move(target);
  is_bound_ = !target_.is_plain;
  version_ = connection_->Versions().Of(target_.name);
  seen_ = *version_;
}

void SqliteRecordAppender::KeepUp(std::size_t cells) {
  connection_->WriteRecordSets();
  if (seen_ != *version_) {
    connection_->WriteAppended();
    AppendTarget target;
    if (!ReadAppendTarget(connection_->Database(), target_.name, target)) {
      RaiseEngineError(SQLITE_ERROR, "no such table with a key: " + target_.name, {});
    }
    TakeTarget(std::move(target));
  }
  if (cells == target_.cells.size()) return;
  RaiseEngineError(SQLITE_ERROR,
                   "table " + target_.name + " has " + std::to_string(target_.cells.size() + 1) +
                       " columns but " + std::to_string(cells + 1) + " values were supplied",
                   {});
}

bool SqliteRecordAppender::MayCollect(std::int64_t key) const {
  if (is_bound_ || (!target_.is_empty && key <= target_.last_key)) return false;
  // In a transaction that has not written yet another program may still change the table.
  return image_.Records() != 0 ||
         sqlite3_txn_state(connection_->Database(), "main") == SQLITE_TXN_WRITE;
}

void SqliteRecordAppender::AppendNumbers(std::span<const double> pNumbers, std::int64_t pKey) {
  OnlyErrors([&] {
    connection_->Guarded([&] {
      KeepUp(pNumbers.size());
      if (MayCollect(pKey) && target_.is_all_real && Encode(pNumbers)) return Collect(pKey);
      std::vector<RecordCell> cells(pNumbers.size());
      std::transform(pNumbers.begin(), pNumbers.end(), cells.begin(), [](double number) {
        RequireFinite(number);
        return std::isnan(number) ? RecordCell{}
                                  : RecordCell{RecordCell::Kind::kNumber, number, {}};
      });
      AppendOrBind(cells, pKey);
    });
  });
}

void SqliteRecordAppender::AppendCells(std::span<const RecordCell> pCells, std::int64_t pKey) {
  OnlyErrors([&] {
    connection_->Guarded([&] {
      KeepUp(pCells.size());
      for (const RecordCell& cell : pCells) RequireStorable(cell);
      AppendOrBind(pCells, pKey);
    });
  });
}

void SqliteRecordAppender::AppendOrBind(std::span<const RecordCell> cells, std::int64_t key) {
  if (MayCollect(key) && Encode(cells)) return Collect(key);
  WriteAppended();
  for (std::size_t i = 0; i < cells.size(); ++i) BindCell(ParameterOf(i), cells[i]);
  RunBound(key);
  connection_->NoteWrite(effects_);
  seen_ = *version_;
  target_.last_key = target_.is_empty ? key : std::max(key, target_.last_key);
  target_.is_empty = false;
}

/// Encodes a record; the cells' columns are of REAL affinity.
bool SqliteRecordAppender::Encode(std::span<const double> numbers) {
  encoder_.Begin(numbers.size() + 1);
  const auto add = [this](std::span<const double> part) {
    for (const double number : part) {
      if (std::isnan(number)) {
        encoder_.AddNull();
      } else {
        RequireFinite(number);
        encoder_.AddNumber(number);
      }
    }
  };
  add(numbers.first(target_.key_column));
  encoder_.AddNull();
  add(numbers.subspan(target_.key_column));
  encoder_.End();
  return true;
}

/// False when a column converts what its cell holds, or for a record of unusual size.
bool SqliteRecordAppender::Encode(std::span<const RecordCell> cells) {
  using Storage = AppendTarget::Storage;
  encoder_.Begin(cells.size() + 1);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i == target_.key_column) encoder_.AddNull();
    const RecordCell& cell = cells[i];
    const bool is_number = cell.kind == RecordCell::Kind::kNumber;
    if (cell.kind == RecordCell::Kind::kNull || (is_number && std::isnan(cell.number))) {
      encoder_.AddNull();
    } else if (is_number && target_.cells[i] == Storage::kReal) {
      encoder_.AddNumber(cell.number);
    } else if (cell.kind == RecordCell::Kind::kText && target_.cells[i] == Storage::kText &&
               cell.text.size() <= kLargestRecord) {
      encoder_.AddText(cell.text);
    } else {
      return false;
    }
  }
  if (target_.key_column == cells.size()) encoder_.AddNull();
  encoder_.End();
  return encoder_.Header().size() + encoder_.Body().size() <= kLargestRecord;
}

void SqliteRecordAppender::Collect(std::int64_t key) {
  if (image_.Records() == 0) connection_->NoteAppending(this);
  image_.Append(key, encoder_.Header(), encoder_.Body());
  target_.last_key = key;
  target_.is_empty = false;
  connection_->Versions().Advance(version_);
  seen_ = *version_;
  if (image_.Size() >= kBatchSize) WriteAppended();
}

void SqliteRecordAppender::Flush() {
  OnlyErrors([this] { connection_->Guarded([this] { WriteAppended(); }); });
}

void SqliteRecordAppender::WriteAppended() {
  connection_->ForgetAppended(this);
  if (image_.Records() == 0) return;
  const TableImage::Visit insert = [this](std::int64_t key, std::string_view record) {
    BindRecord(key, record);
  };
  ImageTransfer& transfer = connection_->Transfer();
  try {
    if (image_.Records() < kFewestRecords) {
      image_.ForEach(image_.Data(), insert);
    } else if (!transfer.IsTrusted()) {
      is_bound_ = true;
      image_.ForEach(image_.Data(), insert);
    } else {
      const ImageTransfer::Outcome outcome = transfer.Run(target_.name, image_, insert);
      is_bound_ = outcome == ImageTransfer::Outcome::kUnable;
    }
    image_.Clear();
  } catch (const std::exception& failure) {
    image_.Clear();
    connection_->NoteLostChange(failure);
    throw;
  }
}

void SqliteRecordAppender::BindCell(int parameter, const RecordCell& cell) {
  switch (cell.kind) {
    case RecordCell::Kind::kNull:
      return insert_.BindNull(parameter);
    case RecordCell::Kind::kNumber:
      return insert_.BindDouble(parameter, cell.number);
    case RecordCell::Kind::kText:
      return insert_.BindText(parameter, cell.text);
  }
}

void SqliteRecordAppender::BindRecord(std::int64_t key, std::string_view record) {
  RecordDecoder cells(record);
  RecordFormatCell cell;
  for (int parameter = 1; cells.Next(cell); ++parameter) {
    switch (cell.kind) {
      case RecordFormatCell::Kind::kNull:
        insert_.BindNull(parameter);
        break;
      case RecordFormatCell::Kind::kInteger:
        insert_.BindInteger(parameter, cell.integer);
        break;
      case RecordFormatCell::Kind::kReal:
        insert_.BindDouble(parameter, cell.real);
        break;
      case RecordFormatCell::Kind::kText:
        insert_.BindText(parameter, cell.text);
        break;
    }
  }
  RunBound(key);
}

void SqliteRecordAppender::RunBound(std::int64_t key) try {
  insert_.BindInteger(static_cast<int>(target_.key_column) + 1, key);
  insert_.Run();
} catch (const SqliteFailure& failure) {
  throw SqliteFailure(failure.Number(), failure.Source(),
                      failure.Description() + "; the record with key " + std::to_string(key) +
                          " of table " + target_.name);
}

}  // namespace tslm5
