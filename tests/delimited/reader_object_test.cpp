#include "delimited/reader_object.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tslm5/platform/error.h"

namespace tslm5::delimited {
namespace {

template <class Work>
std::int32_t NumberOf(Work work) {
  try {
    work();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

TEST(ReaderObject, GivesRecordsInBlocksWithTheirLines) {
  const Ref<IDelimitedReader> reader = MakeReaderObject();
  reader->OpenText("a,b\n1,x\n\n2.5,\"y,z\"\n", "t", {});
  EXPECT_EQ(reader->Dialect().separator, ',');
  EXPECT_EQ(reader->Header().labels, (std::vector<std::string>{"a", "b"}));
  DelimitedBlock block;
  ASSERT_TRUE(reader->Next(block));
  ASSERT_EQ(block.records, 2u);
  ASSERT_EQ(block.columns, 2u);
  EXPECT_EQ(block.first_record, 0);
  EXPECT_EQ(block.lines[0], 2);
  EXPECT_EQ(block.lines[1], 4);
  EXPECT_EQ(block.Record(1)[0].value, 2.5);
  EXPECT_EQ(block.Record(1)[1].Text(), "y,z");
  EXPECT_TRUE(block.Record(1)[1].is_quoted);
  EXPECT_FALSE(reader->Next(block));
  EXPECT_EQ(block.records, 0u);
  EXPECT_EQ(reader->Counts().first_gap, 3);
}

TEST(ReaderObject, PutsFindingsIntoWords) {
  const Ref<IDelimitedReader> reader = MakeReaderObject();
  reader->OpenText("a,b\n1,2\n3\n4,5\n", "t", {});
  DelimitedBlock block;
  while (reader->Next(block)) {
  }
  ASSERT_EQ(reader->FindingCount(FindingCode::kUnevenRecord), 1);
  ASSERT_EQ(reader->Findings().size(), 1u);
  EXPECT_EQ(reader->Findings().front().line, 3);
  EXPECT_EQ(reader->MessageOf(reader->Findings().front()).find("line 3: the record has 1 fields"),
            0u);
}

TEST(ReaderObject, RefusesQuestionsBeforeATextIsOpen) {
  const Ref<IDelimitedReader> reader = MakeReaderObject();
  DelimitedBlock block;
  EXPECT_EQ(NumberOf([&] { reader->Next(block); }), error_number::kInvalidArgument);
  EXPECT_EQ(NumberOf([&] { reader->Dialect(); }), error_number::kInvalidArgument);
}

TEST(ReaderObject, KeepsTheTextItHasWhereAnotherCannotBeOpened) {
  const Ref<IDelimitedReader> reader = MakeReaderObject();
  reader->OpenText("1,2\n", "t", {});
  EXPECT_EQ(NumberOf([&] { reader->OpenFile("/nowhere/at/all.csv", {}); }),
            error_number::kFileNotFound);
  DelimitedBlock block;
  ASSERT_TRUE(reader->Next(block));
  EXPECT_EQ(block.Record(0)[1].value, 2.0);
}

}  // namespace
}  // namespace tslm5::delimited
