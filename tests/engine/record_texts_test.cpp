// The reader's face for whole records of text.
#include "tslm5/engine/record_texts.h"

#include <gmock/gmock.h>

#include <vector>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class RecordTexts : public EngineTest {
 protected:
  /// The texts of the reader's current record.
  static std::vector<std::string> TextsOf(const Ref<IDataReader>& reader, std::size_t fields) {
    std::vector<std::string_view> texts(fields, "not written");
    reader.As<IRecordTexts>()->GetTexts(texts);
    return {texts.begin(), texts.end()};
  }
};

TEST_F(RecordTexts, AreWhatGetStringGivesForEveryKind) {
  const auto reader = connection_->ExecuteReader(
      "SELECT NULL, 42, 0.1 + 0.2, 'word', 1e300, '', 5.0, 'Größe', -7, x'414243',"
      " 'a' || char(0) || 'b', 9e999, -1.0 / 3");
  ASSERT_TRUE(reader->Read());
  std::vector<std::string> strings;
  for (std::int32_t field = 0; field < reader->FieldCount(); ++field) {
    strings.push_back(reader->GetString(field));
  }
  EXPECT_EQ(TextsOf(reader, strings.size()), strings);
  EXPECT_EQ(strings[2], "0.30000000000000004");
  EXPECT_EQ(strings[10], std::string("a\0b", 3));
}

TEST_F(RecordTexts, AreOfTheFirstFieldsAsManyAsAskedFor) {
  const auto reader = connection_->ExecuteReader("SELECT 1.5, 'b', 2.5");
  ASSERT_TRUE(reader->Read());
  EXPECT_THAT(TextsOf(reader, 2), ElementsAre("1.5", "b"));
  EXPECT_THAT(TextsOf(reader, 3), ElementsAre("1.5", "b", "2.5"));
  EXPECT_THAT(TextsOf(reader, 1), ElementsAre("1.5"));
  EXPECT_THAT(TextsOf(reader, 0), ElementsAre());
}

TEST_F(RecordTexts, FollowTheReader) {
  const auto reader = connection_->ExecuteReader("SELECT 1.5, 'a' UNION ALL SELECT 22.25, NULL");
  ASSERT_TRUE(reader->Read());
  EXPECT_THAT(TextsOf(reader, 2), ElementsAre("1.5", "a"));
  ASSERT_TRUE(reader->Read());
  EXPECT_THAT(TextsOf(reader, 2), ElementsAre("22.25", ""));
  EXPECT_EQ(reader->GetDouble(0), 22.25);
}

TEST_F(RecordTexts, Raise100OffARecordAnd9BeyondTheFields) {
  const auto reader = connection_->ExecuteReader("SELECT 1, 2");
  EXPECT_EQ(RaisedNumber([&] { TextsOf(reader, 2); }), 100);
  ASSERT_TRUE(reader->Read());
  EXPECT_EQ(RaisedNumber([&] { TextsOf(reader, 3); }), 9);
  EXPECT_FALSE(reader->Read());
  EXPECT_EQ(RaisedNumber([&] { TextsOf(reader, 2); }), 100);
  reader->Close();
  EXPECT_EQ(RaisedNumber([&] { TextsOf(reader, 2); }), 100);
}

TEST_F(RecordTexts, AreAFaceOfTheReader) {
  const auto reader = connection_->ExecuteReader("SELECT 1");
  const Ref<IRecordTexts> texts = reader.As<IRecordTexts>();
  ASSERT_TRUE(texts);
  EXPECT_EQ(texts.As<IDataReader>().get(), reader.get());
  EXPECT_EQ(texts.As<IUnknown>().get(), reader.As<IUnknown>().get());
  EXPECT_EQ(texts->TypeName(), "DataReader");
  EXPECT_FALSE(texts.As<IConnection>());
}

TEST_F(RecordTexts, KeepTheReaderAlive) {
  auto reader = connection_->ExecuteReader("SELECT 7");
  ASSERT_TRUE(reader->Read());
  const Ref<IRecordTexts> texts = reader.As<IRecordTexts>();
  reader.Reset();
  std::string_view text;
  texts->GetTexts({&text, 1});
  EXPECT_EQ(text, "7");
}

}  // namespace
}  // namespace tslm5
