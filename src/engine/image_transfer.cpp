#include "engine/image_transfer.h"

#include <string>

#include "engine/batch_schema.h"
#include "engine/sqlite_error.h"
#include "engine/sqlite_statement.h"
#include "engine/transfer_probe.h"

namespace tslm5 {
namespace {

/// An image in its schema, and gone from there on the way out.
class LentImage {
 public:
  LentImage(sqlite3* database, StatementWatch& watch, TableImage& image)
      : database_(database), watch_(watch), image_(image) {
    bytes_ = watch_.Quietly([&] { return batch_schema::Lend(database_, image_); });
  }
  LentImage(const LentImage&) = delete;
  LentImage& operator=(const LentImage&) = delete;
  ~LentImage() {
    watch_.Quietly([this] { batch_schema::Release(database_); });
    image_.Clear();
  }

  const unsigned char* Bytes() const { return bytes_; }

 private:
  sqlite3* database_;
  StatementWatch& watch_;
  TableImage& image_;
  const unsigned char* bytes_;
};

}  // namespace

bool ImageTransfer::IsTrusted() {
  if (!is_trusted_) is_trusted_ = CanTransferImages(database_);
  return *is_trusted_;
}

bool ImageTransfer::Attach() try {
  if (!is_attached_) watch_.Quietly([this] { batch_schema::Attach(database_); });
  is_attached_ = true;
  return true;
} catch (const SqliteFailure& failure) {
  if (IsPassing(failure.Number()) && (failure.Number() & 0xFF) != SQLITE_LOCKED) throw;
  return false;  // other schemas take all the places, for instance
}

ImageTransfer::Outcome ImageTransfer::Run(const std::string& name, TableImage& image,
                                          const TableImage::Visit& insert) {
  image.Finish();
  if (!Attach()) {
    image.ForEach(image.Data(), insert);
    image.Clear();
    return Outcome::kUnable;
  }
  const LentImage lent(database_, watch_, image);
  const std::string copy = batch_schema::CopyStatement(name);
  Outcome outcome = Outcome::kUnable;
  try {
    watch_.Quietly([&] {
      if (!batch_schema::CopiesWholeRecords(database_, copy)) return;
      outcome = Outcome::kRefused;
      SqliteStatement(database_, copy).Run();
      outcome = Outcome::kCopied;
    });
  } catch (const SqliteFailure& failure) {
    if (IsPassing(failure.Number())) throw;
  }
  if (outcome != Outcome::kCopied) image.ForEach(lent.Bytes(), insert);
  return outcome;
}

void ImageTransfer::Detach() noexcept {
  if (!is_attached_) return;
  try {
    watch_.Quietly([this] { batch_schema::Detach(database_); });
    is_attached_ = false;
  } catch (const std::exception&) {  // it stays, empty, until the next transaction ends
    return;
  }
}

}  // namespace tslm5
