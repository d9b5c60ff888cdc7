#include "host/program/failure.h"

#include <fmt/format.h>

#include "host/program/shown_text.h"
#include "tslm5/engine/transaction.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kEngineSource = "TSLMRep5";
constexpr std::string_view kOpeningSource = "OpenRun";  // SQLite's codes beside two of our own
constexpr std::int32_t kPrimaryCodeMask = 0xFF;
constexpr std::int32_t kSqlError = 1;

struct Meaning {
  std::int32_t number;
  ExitCode code;
  std::string_view words;  ///< put before the error's own description; may be empty
};

/// SQLite's primary result codes.
constexpr Meaning kEngineMeanings[] = {
    {3, ExitCode::kTrouble, "the run cannot be opened"},
    {4, ExitCode::kTrouble, "the change was cut off, and nothing of it is stored"},
    {5, ExitCode::kTrouble, "the run is locked by another program; try again when it is done"},
    {6, ExitCode::kTrouble, "a table of the run is in use"},
    {7, ExitCode::kTrouble, "not enough memory"},
    {8, ExitCode::kTrouble, "the run can only be read, not written"},
    {10, ExitCode::kTrouble, "the run's file could not be read or written"},
    {11, ExitCode::kTrouble, "the run's file is damaged"},
    {13, ExitCode::kTrouble, "no space is left for the run: the disk is full"},
    {14, ExitCode::kTrouble, "the run's file or its journal cannot be opened"},
    {18, ExitCode::kRefused, "a value is too big for the run"},
    {19, ExitCode::kRefused, "a value breaks a rule of the run's tables"},
    {20, ExitCode::kRefused, "a value does not fit its column"},
    {26, ExitCode::kTrouble, "the file is not a run database"},
};

/// The component's own numbers.
constexpr Meaning kComponentMeanings[] = {
    {error_number::kOverflow, ExitCode::kRefused, ""},
    {error_number::kSubscriptOutOfRange, ExitCode::kRefused, ""},
    {error_number::kTypeMismatch, ExitCode::kRefused, ""},
    {error_number::kInvalidData, ExitCode::kRefused, ""},
    {error_number::kUnknownSeparator, ExitCode::kRefused, ""},
    {error_number::kTooManyRows, ExitCode::kRefused, ""},
    {error_number::kTableRefused, ExitCode::kRefused, ""},
    {error_number::kMissingResponse, ExitCode::kRefused, ""},
    {error_number::kSingleClass, ExitCode::kRefused, ""},
    {error_number::kNotPossible, ExitCode::kRefused, ""},
};

template <std::size_t N>
const Meaning* Find(const Meaning (&table)[N], std::int32_t number) {
  for (const Meaning& meaning : table) {
    if (meaning.number == number) return &meaning;
  }
  return nullptr;
}

}  // namespace

void Refuse(const std::string& message) {
  throw Failure(ExitCode::kRefused, message);
}

void Misuse(const std::string& message) {
  throw Failure(ExitCode::kUsage, message);
}

bool IsEngineError(const Error& error) {
  return error.Source() == kEngineSource;
}

bool IsRefusedStatement(const Error& error) {
  if (!IsEngineError(error)) return false;
  const std::int32_t primary = error.Number() & kPrimaryCodeMask;
  const Meaning* meaning = Find(kEngineMeanings, primary);
  return primary == kSqlError || (meaning != nullptr && meaning->code == ExitCode::kRefused);
}

Failure FailureOf(const Error& error) {
  if (error.Number() == error_number::kStoredUnsynced) {
    return Failure(
        ExitCode::kTrouble,
        "the change is stored in the run, but a power loss may still undo it: its folder "
        "cannot be written to the disk");
  }
  const bool engine = IsEngineError(error);
  const Meaning* meaning = engine || error.Source() == kOpeningSource
                               ? Find(kEngineMeanings, error.Number() & kPrimaryCodeMask)
                               : Find(kComponentMeanings, error.Number());
  std::string description = Escaped(error.what());
  if (engine) description += fmt::format(" (SQLite code {})", error.Number());
  if (meaning == nullptr) return Failure(ExitCode::kTrouble, description);
  if (meaning->words.empty()) return Failure(meaning->code, description);
  return Failure(meaning->code, fmt::format("{}: {}", meaning->words, description));
}

}  // namespace tslm5::host
