#ifndef TSLM5_ENGINE_IMAGE_TRANSFER_H_
#define TSLM5_ENGINE_IMAGE_TRANSFER_H_

#include <sqlite3.h>

#include <optional>

#include "engine/statement_watch.h"
#include "engine/table_image.h"

namespace tslm5 {

/// Brings images of records into the tables of one connection: SQLite itself copies them, whole,
/// with all its journalling. The schema that shows them is attached for the first one and detached
/// when the transaction has ended.
class ImageTransfer {
 public:
  ImageTransfer(sqlite3* database, StatementWatch& watch) : database_(database), watch_(watch) {}

  /// Whether images can be transferred; tried out at the first call.
  bool IsTrusted();

  enum class Outcome {
    kCopied,
    kRefused,  ///< SQLite does not take this image, or one of its records: `insert` got them all
    kUnable,   ///< images cannot be attached at present, or records of the table not be copied
               ///< whole: `insert` got them all, and further images will fare no better
  };
  /// Appends the records of `image` to the table `name` of the run, and clears the image. Where
  /// they cannot be copied, nothing is, and `insert` is called for each in turn, which raises what
  /// is wrong with one. Raises SQLite's passing errors.
  Outcome Run(const std::string& name, TableImage& image, const TableImage::Visit& insert);

  /// To be called when no transaction is open.
  void Detach() noexcept;

 private:
  bool Attach();

  sqlite3* database_;
  StatementWatch& watch_;
  std::optional<bool> is_trusted_;
  bool is_attached_ = false;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_IMAGE_TRANSFER_H_
