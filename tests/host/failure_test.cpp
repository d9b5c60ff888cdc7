#include "host/program/failure.h"

#include <gtest/gtest.h>

namespace tslm5::host {
namespace {

Failure OfEngine(std::int32_t number) {
  return FailureOf(Error(number, "TSLMRep5", "said SQLite"));
}

TEST(Failure, OfTheEngineIsToldByTheKindOfCode) {
  struct Case {
    std::int32_t number;
    ExitCode code;
    const char* text;
  };
  const Case cases[] = {
      {1, ExitCode::kTrouble, "said SQLite (SQLite code 1)"},
      {5, ExitCode::kTrouble,
       "the run is locked by another program; try again when it is done: said SQLite (SQLite code "
       "5)"},
      {261, ExitCode::kTrouble,
       "the run is locked by another program; try again when it is done: said SQLite (SQLite code "
       "261)"},
      {8, ExitCode::kTrouble, "the run can only be read, not written: said SQLite (SQLite code 8)"},
      {13, ExitCode::kTrouble,
       "no space is left for the run: the disk is full: said SQLite (SQLite code 13)"},
      {26, ExitCode::kTrouble, "the file is not a run database: said SQLite (SQLite code 26)"},
      {1299, ExitCode::kRefused,
       "a value breaks a rule of the run's tables: said SQLite (SQLite code 1299)"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(OfEngine(one.number).Code(), one.code) << one.number;
    EXPECT_STREQ(OfEngine(one.number).what(), one.text);
  }
}

TEST(Failure, OfTheComponentIsToldByItsOwnNumbers) {
  struct Case {
    std::int32_t number;
    ExitCode code;
  };
  const Case cases[] = {
      {error_number::kFileNotFound, ExitCode::kTrouble},
      {error_number::kFileAccess, ExitCode::kTrouble},
      {error_number::kInvalidArgument, ExitCode::kTrouble},
      {error_number::kInvalidData, ExitCode::kRefused},
      {error_number::kTypeMismatch, ExitCode::kRefused},  // 13, but not the engine's
      {error_number::kTooManyRows, ExitCode::kRefused},
  };
  for (const Case& one : cases) {
    const Failure failure = FailureOf(Error(one.number, "Parse", "in\nwords"));
    EXPECT_EQ(failure.Code(), one.code) << one.number;
    EXPECT_STREQ(failure.what(), "in\\nwords");
  }
}

TEST(Failure, ToOpenARunIsNeverTheDatas) {
  for (const std::int32_t number : {5, 6, 13, 14, 26, 53, 75, 41001}) {
    EXPECT_EQ(FailureOf(Error(number, "OpenRun", "")).Code(), ExitCode::kTrouble) << number;
  }
  EXPECT_STREQ(FailureOf(Error(26, "OpenRun", "Cannot be opened.")).what(),
               "the file is not a run database: Cannot be opened.");
  EXPECT_STREQ(FailureOf(Error(53, "OpenRun", "There is no run.")).what(), "There is no run.");
}

TEST(Failure, ToSyncTheFolderIsToldAsStored) {
  const Failure failure = FailureOf(Error(1290, "TSLMRep5", "The change is stored"));
  EXPECT_EQ(failure.Code(), ExitCode::kTrouble);
  EXPECT_STREQ(failure.what(),
               "the change is stored in the run, but a power loss may still undo it: its folder "
               "cannot be written to the disk");
}

TEST(Failure, KnowsARefusedStatement) {
  EXPECT_TRUE(IsRefusedStatement(Error(1, "TSLMRep5", "")));
  EXPECT_TRUE(IsRefusedStatement(Error(1555, "TSLMRep5", "")));
  EXPECT_FALSE(IsRefusedStatement(Error(13, "TSLMRep5", "")));
  EXPECT_FALSE(IsRefusedStatement(Error(1, "Parse", "")));
}

}  // namespace
}  // namespace tslm5::host
