#ifndef TSLM5_PLATFORM_ERROR_H_
#define TSLM5_PLATFORM_ERROR_H_

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace tslm5 {

/// Every error number of the system, named once. Numbers of the storage engine are SQLite's
/// extended result codes, except `kNoCurrentRecord`.
namespace error_number {

/// A statement that the engine cannot run, or that a text would break.
inline constexpr std::int32_t kBrokenStatement = 1;
inline constexpr std::int32_t kInvalidCall = 5;  ///< missing key, or an argument of no meaning
/// A number outside 32 bits, or an infinite one for a table.
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;  ///< no room for what was to be made
/// An index outside an array, a record or the data in memory.
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kDivisionByZero = 11;  ///< a mean of no values, a scale of no width
/// A value that cannot be converted, an object of the wrong kind.
inline constexpr std::int32_t kTypeMismatch = 13;
/// An exception that is no `Error`, such as a handler's own; the description has its words.
inline constexpr std::int32_t kForeignException = 51;
inline constexpr std::int32_t kFileNotFound = 53;  ///< a run or a text to be loaded is not there
inline constexpr std::int32_t kFileAccess = 75;    ///< a file exists but cannot be read or written
/// A getter was called before the first or past the last record.
inline constexpr std::int32_t kNoCurrentRecord = 100;
/// No such class, or its library cannot be used.
inline constexpr std::int32_t kCannotCreateObject = 429;
inline constexpr std::int32_t kUnknownMember = 438;  ///< call by a name that is not there
inline constexpr std::int32_t kArgumentCount = 450;  ///< call by name, too many or too few
inline constexpr std::int32_t kKeyPresent = 457;     ///< a key that is to be new is there already
/// `Vectorize` of a column beyond the last one's neighbour.
inline constexpr std::int32_t kColumnTooLarge = 12125;
inline constexpr std::int32_t kColumnBelowZero = 12126;  ///< `Vectorize` of a negative column
/// An argument that the operation cannot work with, or no run.
inline constexpr std::int32_t kInvalidArgument = 41001;
inline constexpr std::int32_t kFileMissing = 41007;  ///< a text to be parsed is not there
/// A sample was asked for before `ResetIterator`.
inline constexpr std::int32_t kIteratorNotReset = 41010;
/// An absent cell or row, or data that cannot be loaded.
inline constexpr std::int32_t kInvalidData = 41011;
/// No separator code, or one that the text does not hold.
inline constexpr std::int32_t kUnknownSeparator = 41012;
inline constexpr std::int32_t kLabelCount = 41013;       ///< labels and fields differ in number
inline constexpr std::int32_t kCloneOfSameType = 41015;  ///< a clone needs a type code of its own
inline constexpr std::int32_t kTooManyRows = 41018;      ///< the data check takes 20,000,001 rows
inline constexpr std::int32_t kTableRefused = 41019;     ///< the table store took a load back
inline constexpr std::int32_t kColumnCount = 41020;      ///< a row of another width, or bad labels
inline constexpr std::int32_t kEmptyText = 41023;        ///< a text without records
inline constexpr std::int32_t kMixedSeparators = 41024;  ///< a text of several separators
inline constexpr std::int32_t kMissingResponse = 41025;  ///< a record without a response
inline constexpr std::int32_t kSingleClass = 41026;      ///< one response alone in training data
/// A categorical column of more than 10,000 texts.
inline constexpr std::int32_t kTooManyCategories = 41027;
/// A run that is not in a state for the operation.
inline constexpr std::int32_t kNotPossible = 41028;
/// The caller's feedback stopped an operation, of which nothing was done.
inline constexpr std::int32_t kStopped = 41029;
/// An operation that the class does not have.
inline constexpr std::int32_t kNotImplemented = -10000;

}  // namespace error_number

/// A raised failure: a number, the operation that failed, and words for the user.
/// Source and description may be empty where the contract gives only a number. One with texts of at
/// most 15 bytes allocates nothing, so that a lack of memory can still be raised.
class Error : public std::exception {
 public:
  /// `number` is one of `error_number` or an engine code.
  explicit Error(std::int32_t number, std::string source = {}, std::string description = {})
      : number_(number), source_(std::move(source)), description_(std::move(description)) {
    if (description_.empty()) number_text_ = "error " + std::to_string(number);
  }

  /// `Description()`, or "error <number>" without one.
  const char* what() const noexcept override {
    return description_.empty() ? number_text_.c_str() : description_.c_str();
  }
  /// What callers tell failures apart by.
  std::int32_t Number() const { return number_; }
  /// The operation, as the contract names it; lives as long as the error.
  const std::string& Source() const { return source_; }
  /// Words for the user, UTF-8; lives as long as the error.
  const std::string& Description() const { return description_; }

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
  std::string number_text_;  // empty beside a description
};

/// Raises 13.
[[noreturn]] inline void RaiseTypeMismatch() {
  throw Error(error_number::kTypeMismatch, "", "Type mismatch");
}

/// Raises 6.
[[noreturn]] inline void RaiseOverflow() {
  throw Error(error_number::kOverflow, "", "Overflow");
}

/// Raises 7, and needs no memory to do so.
[[noreturn]] inline void RaiseOutOfMemory() {
  throw Error(error_number::kOutOfMemory, "", "Out of memory");
}

/// Raises 9.
[[noreturn]] inline void RaiseSubscriptOutOfRange() {
  throw Error(error_number::kSubscriptOutOfRange, "", "Subscript out of range");
}

/// Raises 11.
[[noreturn]] inline void RaiseDivisionByZero() {
  throw Error(error_number::kDivisionByZero, "", "Division by zero");
}

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_ERROR_H_
