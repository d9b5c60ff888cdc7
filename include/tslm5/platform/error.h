#ifndef TSLM5_PLATFORM_ERROR_H_
#define TSLM5_PLATFORM_ERROR_H_

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace tslm5 {

/// Every error number of the system, named once. Numbers of the storage engine are SQLite's
/// extended result codes, except `kNoCurrentRecord`.
namespace error_number {

inline constexpr std::int32_t kInvalidCall = 5;  ///< missing key, or an argument of no meaning
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kDivisionByZero = 11;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kFileAccess = 75;  ///< a file exists but cannot be read or written
inline constexpr std::int32_t kNoCurrentRecord = 100;
inline constexpr std::int32_t kCannotCreateObject = 429;
inline constexpr std::int32_t kUnknownMember = 438;  ///< call by a name that is not there
inline constexpr std::int32_t kArgumentCount = 450;  ///< call by name, too many or too few
inline constexpr std::int32_t kKeyPresent = 457;
inline constexpr std::int32_t kColumnTooLarge = 12125;
inline constexpr std::int32_t kColumnBelowZero = 12126;
inline constexpr std::int32_t kInvalidArgument = 41001;
inline constexpr std::int32_t kFileMissing = 41007;  ///< a text to be parsed is not there
inline constexpr std::int32_t kIteratorNotReset = 41010;
inline constexpr std::int32_t kInvalidData = 41011;
inline constexpr std::int32_t kUnknownSeparator = 41012;
inline constexpr std::int32_t kLabelCount = 41013;  ///< labels and fields differ in number
inline constexpr std::int32_t kCloneOfSameType = 41015;
inline constexpr std::int32_t kTooManyRows = 41018;
inline constexpr std::int32_t kTableRefused = 41019;
inline constexpr std::int32_t kColumnCount = 41020;  ///< a row of another width, or bad labels
inline constexpr std::int32_t kEmptyText = 41023;
inline constexpr std::int32_t kMixedSeparators = 41024;
inline constexpr std::int32_t kMissingResponse = 41025;
inline constexpr std::int32_t kSingleClass = 41026;
inline constexpr std::int32_t kTooManyCategories = 41027;
inline constexpr std::int32_t kNotImplemented = -10000;

}  // namespace error_number

/// A raised failure: a number, the operation that failed, and words for the user.
/// Source and description may be empty where the contract gives only a number.
class Error : public std::runtime_error {
 public:
  explicit Error(std::int32_t number, std::string source = {}, std::string description = {})
      : std::runtime_error(description.empty() ? "error " + std::to_string(number) : description),
        number_(number),
        source_(std::move(source)),
        description_(std::move(description)) {}

  std::int32_t Number() const { return number_; }
  const std::string& Source() const { return source_; }
  const std::string& Description() const { return description_; }

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
};

[[noreturn]] inline void RaiseTypeMismatch() {
  throw Error(error_number::kTypeMismatch, "", "Type mismatch");
}

[[noreturn]] inline void RaiseOverflow() {
  throw Error(error_number::kOverflow, "", "Overflow");
}

[[noreturn]] inline void RaiseSubscriptOutOfRange() {
  throw Error(error_number::kSubscriptOutOfRange, "", "Subscript out of range");
}

[[noreturn]] inline void RaiseDivisionByZero() {
  throw Error(error_number::kDivisionByZero, "", "Division by zero");
}

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_ERROR_H_
