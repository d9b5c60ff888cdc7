#include "preparation/preparation_fixture.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<std::string> kWords = {"reset", "<run>"};

class RunResetTest : public PreparationFixture {
 protected:
  IRunReset& Operations() const { return Face<IRunReset>(); }

  void StoreSets() const {
    Store(data_set_type::kTraining, {"1", "2", "3"});
    Store(data_set_type::kTesting, {"8", "9"}, 4);
  }
};

TEST(RunPreparationWithoutARun, Raises) {
  const Ref<IUnknown> object = MakeRunPreparation();
  ResetResult result;
  try {
    object.As<IRunReset>()->Keep({}, result);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), 41001);
  }
}

TEST_F(RunResetTest, EveryFaceLeadsToEveryOther) {
  for (const Uuid& id : {IRunPreparation::kId, IRunReset::kId, IRunEmbedding::kId}) {
    void* face = nullptr;
    ASSERT_TRUE(object_->QueryInterface(id, &face));
    const auto held = Ref<IUnknown>::Adopt(static_cast<IUnknown*>(face));
    EXPECT_EQ(held.As<IUnknown>().get(), object_.get());
  }
}

TEST_F(RunResetTest, MakesTheTestingRecordsTheTrainingSet) {
  StoreSets();
  ResetResult result;
  Operations().Reset(kWords, nullptr, result);
  EXPECT_EQ(result.rows, 2);
  EXPECT_EQ(result.columns, 1);
  EXPECT_EQ(result.former_backup_rows, 0);
  EXPECT_EQ(result.backup_rows, 3);
  EXPECT_THAT(run_.Select("SELECT d0 FROM TrainingSet"), ElementsAre("8", "9"));
  EXPECT_THAT(run_.Select("SELECT Centroid FROM DataSetStatistics WHERE DataSetId = 1"),
              ElementsAre("8.5"));
  EXPECT_THAT(Steps(), ElementsAre("reset|1||{\"rows\":2,\"columns\":1,\"words\":[\"reset\","
                                   "\"<run>\"]}"));
}

TEST_F(RunResetTest, UndoRestoresTheFormerTrainingSet) {
  StoreSets();
  ResetResult result;
  Operations().Reset({}, nullptr, result);
  Operations().Undo({}, nullptr, result);
  EXPECT_EQ(result.rows, 3);
  EXPECT_EQ(result.former_backup_rows, 3);
  EXPECT_EQ(result.backup_rows, 0);
  EXPECT_THAT(run_.Select("SELECT d0 FROM TrainingSet"), ElementsAre("1", "2", "3"));
  EXPECT_THAT(Steps(), ElementsAre("reset|1||{\"rows\":2,\"columns\":1}",
                                   "undo|1||{\"rows\":3,\"columns\":1}"));
}

TEST_F(RunResetTest, KeepMakesTheResetFinal) {
  StoreSets();
  ResetResult result;
  Operations().Reset({}, nullptr, result);
  Operations().Keep({}, result);
  EXPECT_EQ(result.rows, 2);
  EXPECT_EQ(result.former_backup_rows, 3);
  EXPECT_THAT(run_.TableRows("TrainingSetBackup"), IsEmpty());
  const Raised raised = RaisedBy([&] { Operations().Undo({}, nullptr, result); });
  EXPECT_EQ(raised.number, 41028);
  EXPECT_EQ(raised.message, "nothing to undo: no reset is pending");
}

TEST_F(RunResetTest, ARunWithoutTheSetsStaysAsItWas) {
  ResetResult result;
  EXPECT_EQ(RaisedBy([&] { Operations().Reset({}, nullptr, result); }).message,
            "there is no training set");
  Store(data_set_type::kTraining, {"1", "2"});
  const Lines before = Content();
  const Raised raised = RaisedBy([&] { Operations().Reset({}, nullptr, result); });
  EXPECT_EQ(raised.number, 41028);
  EXPECT_EQ(raised.message,
            "there is no testing set, so there is nothing to reset the training set to");
  EXPECT_EQ(Content(), before);
}

TEST_F(RunResetTest, AStoppedResetChangesNothing) {
  StoreSets();
  const Lines before = Content();
  const auto feedback = MakeObject<StoppingFeedback>(true);
  ResetResult result;
  EXPECT_EQ(RaisedBy([&] { Operations().Reset({}, feedback.get(), result); }).number, 41029);
  EXPECT_EQ(Content(), before);
  EXPECT_EQ(result.rows, 0);
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(RunResetTest, AFailureOfTheHistoryUndoesTheReset) {
  StoreSets();
  const Lines before = Content();
  run_.Log().before = [](std::string_view statement) {
    if (statement.starts_with("INSERT INTO RunHistory")) throw Error(10, "TSLMRep5", "disk");
  };
  ResetResult result;
  EXPECT_EQ(RaisedBy([&] { Operations().Reset({}, nullptr, result); }).number, 10);
  run_.Log().before = nullptr;
  EXPECT_EQ(Content(), before);
}

}  // namespace
}  // namespace tslm5
