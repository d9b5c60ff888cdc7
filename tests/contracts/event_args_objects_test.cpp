#include "contracts/event_args_objects.h"

#include <gtest/gtest.h>

namespace tslm5 {
namespace {

TEST(ParseEventArgs, StartsAtZeroFalseAndEmpty) {
  const Ref<IParseEventArgs> args = MakeParseEventArgs();
  EXPECT_FALSE(args->Cancel());
  EXPECT_EQ(args->Columns(), 0);
  EXPECT_EQ(args->Source(), "");
  EXPECT_EQ(args->Message(), "");
  EXPECT_EQ(args->Rows(), 0);
  EXPECT_EQ(args->ParseType(), 0);
}

TEST(ParseEventArgs, EachPropertyReadsAsLastWritten) {
  const Ref<IParseEventArgs> args = MakeParseEventArgs();
  args->put_Cancel(true);
  args->put_Columns(1);
  args->put_Source("file é.csv");
  args->put_Message("Checking row 1");
  args->put_Rows(2);
  args->put_ParseType(3);
  args->put_Columns(4);
  EXPECT_TRUE(args->Cancel());
  EXPECT_EQ(args->Columns(), 4);
  EXPECT_EQ(args->Source(), "file é.csv");
  EXPECT_EQ(args->Message(), "Checking row 1");
  EXPECT_EQ(args->Rows(), 2);
  EXPECT_EQ(args->ParseType(), 3);
  args->put_Cancel(false);
  EXPECT_FALSE(args->Cancel());
}

TEST(ParseEventArgs, IsACountedObjectOfItsOwn) {
  const Ref<IParseEventArgs> args = MakeParseEventArgs();
  const Ref<IParseEventArgs> other = MakeParseEventArgs();
  other->put_Rows(5);
  EXPECT_EQ(args->Rows(), 0);
  EXPECT_EQ(args->TypeName(), "ParseEventArgs");
  EXPECT_EQ(args.As<IUnknown>().get(), args.get());
  EXPECT_FALSE(args.As<IRecordParsedEventArgs>());
}

TEST(RecordParsedEventArgs, StartsAtZeroAndFalse) {
  const Ref<IRecordParsedEventArgs> args = MakeRecordParsedEventArgs();
  EXPECT_EQ(args->Current(), 0);
  EXPECT_FALSE(args->Cancel());
  EXPECT_EQ(args->Columns(), 0);
  EXPECT_EQ(args->Error(), 0);
}

TEST(RecordParsedEventArgs, EachPropertyReadsAsLastWritten) {
  const Ref<IRecordParsedEventArgs> args = MakeRecordParsedEventArgs();
  args->put_Current(1);
  args->put_Cancel(true);
  args->put_Columns(2);
  args->put_Error(3);
  args->put_Current(4);
  EXPECT_EQ(args->Current(), 4);
  EXPECT_TRUE(args->Cancel());
  EXPECT_EQ(args->Columns(), 2);
  EXPECT_EQ(args->Error(), 3);
  args->put_Cancel(false);
  EXPECT_FALSE(args->Cancel());
}

TEST(RecordParsedEventArgs, IsACountedObjectOfItsOwn) {
  const Ref<IRecordParsedEventArgs> args = MakeRecordParsedEventArgs();
  EXPECT_EQ(args->TypeName(), "RecordParsedEventArgs");
  EXPECT_EQ(args.As<IUnknown>().get(), args.get());
  EXPECT_FALSE(args.As<IParseEventArgs>());
}

}  // namespace
}  // namespace tslm5
