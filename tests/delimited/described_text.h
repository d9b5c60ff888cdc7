#ifndef TSLM5_TESTS_DELIMITED_DESCRIBED_TEXT_H_
#define TSLM5_TESTS_DELIMITED_DESCRIBED_TEXT_H_

#include <nlohmann/json.hpp>

#include "delimited/delimited_reader.h"

namespace tslm5::delimited {

/// How cells are shown: a number as a number, a missing value as null and a text as a string, or
/// all of them as their texts.
enum class CellForm { kByClass, kTexts };

/// Everything that a reader gives of a text, from its dialect to its findings; reads it to its end.
nlohmann::json Describe(DelimitedReader& reader, CellForm form);

/// The options that a case of the tests is read with: a JSON object with members of `ReadOptions`.
ReadOptions OptionsFrom(const nlohmann::json& json);

}  // namespace tslm5::delimited

#endif  // TSLM5_TESTS_DELIMITED_DESCRIBED_TEXT_H_
