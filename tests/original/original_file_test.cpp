// Opening by a path: the storage engine is found at run time, and failures are swallowed.
#include <filesystem>

#include "original/engine_library.h"
#include "original/original_run.h"
#include "support/temporary_folder.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class OriginalFile : public testing::Test {
 protected:
  /// Changes the run in the file by one statement.
  void Change(const std::string& sql) const {
    const Ref<IConnectionService> run = OpenRun(path_);
    Query<IConnection>(run->GetConnection().ToObject())->Execute(sql);
  }

  /// Whether this process has the file open.
  bool IsOpen() const {
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
      std::error_code gone;
      if (std::filesystem::read_symlink(entry.path(), gone) == path_) return true;
    }
    return false;
  }

  TemporaryFolder folder_;
  std::string path_ = [this] {
    std::string path = folder_.PathOf("run.db");
    const OriginalRun made(OpenRun(path, {.mode = RunOptions::Mode::kReadWriteCreate}));
    return path;
  }();
  OriginalView view_;
};

TEST_F(OriginalFile, IsLoadedAndClosed) {
  view_->OpenFromFile(path_, data_set_type::kTraining, true);
  EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,0", "8,blue,2.25,1"));
  EXPECT_THAT(view_.Labels(), ElementsAre("d0", "d1", "y"));
  EXPECT_EQ(view_->GetDataSetRows(2), 2);
  EXPECT_FALSE(IsOpen());
}

TEST_F(OriginalFile, IsSeenOpenByThisTest) {
  const Ref<IConnectionService> run = EngineLibrary::OpenRunFile(path_);
  EXPECT_EQ(run->TypeName(), "Run");
  EXPECT_TRUE(IsOpen());
}

TEST_F(OriginalFile, TakesEverySetType) {
  for (const std::int32_t type : {1, 2, 100, 1000}) {
    view_->OpenFromFile(path_, type, false);
    EXPECT_EQ(view_->Rows(), type < 100 ? 2 : 4) << type;
  }
}

TEST_F(OriginalFile, KeepsWhatWasLoadedBeforeAFailureAndIsClosed) {
  Change("DROP TABLE OriginalDataLabels");
  view_->OpenFromFile(path_, data_set_type::kTraining, false);
  EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,no", "8,blue,2.25,yes"));
  EXPECT_EQ(view_->GetDataSetRows(1), 0) << "the sets are counted last";
  EXPECT_FALSE(IsOpen());
}

TEST_F(OriginalFile, ThatCannotBeOpenedGivesAnEmptyView) {
  const std::string text =
      folder_.Write("text.db", "this is no database, but a text of some length");
  for (const std::string& wrong : {folder_.PathOf("missing.db"), text, folder_.Path(),
                                   std::string(), std::string(":memory:")}) {
    view_->OpenFromFile(path_, data_set_type::kTraining, false);
    ASSERT_EQ(view_->Rows(), 2);
    view_->OpenFromFile(wrong, data_set_type::kTraining, false);
    EXPECT_EQ(view_->Rows(), 0) << wrong << ": no records of another run";
    EXPECT_EQ(view_->Columns(), 0) << wrong;
  }
  EXPECT_FALSE(std::filesystem::exists(folder_.PathOf("missing.db"))) << "nothing is made";
}

TEST_F(OriginalFile, SwallowsAnUnknownSetTypeAndAWordForAClass) {
  view_->OpenFromFile(path_, 7, false);
  EXPECT_EQ(view_->Rows(), 0);
  view_->OpenFromFile(path_, data_set_type::kCombined, true);
  EXPECT_EQ(view_->Rows(), 4);
  EXPECT_FALSE(IsOpen());
}

TEST_F(OriginalFile, IsReadAlsoWhereNobodyMayWrite) {
  std::filesystem::permissions(path_, std::filesystem::perms::owner_read);
  view_->OpenFromFile(path_, data_set_type::kTesting, false);
  EXPECT_THAT(view_.Records(), ElementsAre("5,,.5,yes", "9,green,7,no"));
}

TEST_F(OriginalFile, RaisesBelowWhatTheViewSwallows) {
  EXPECT_EQ(RaisedNumber([&] { EngineLibrary::OpenRunFile(folder_.PathOf("missing.db")); }), 53);
  const Ref<IConnectionService> run = EngineLibrary::OpenRunFile(path_);
  const Ref<IConnection> connection = Query<IConnection>(run->GetConnection().ToObject());
  EXPECT_EQ(RaisedNumber([&] { connection->Execute("DELETE FROM OriginalData"); }) & 0xff, 8)
      << "opened for reading alone";
}

}  // namespace
}  // namespace tslm5
