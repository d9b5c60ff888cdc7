#include "tslm5/engine/open_run.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>

#include "engine/engine_fixture.h"

namespace tslm5 {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

RunOptions Opening(RunOptions::Mode mode) {
  RunOptions options;
  options.mode = mode;
  options.busy_timeout_ms = 20;
  return options;
}

void WriteFile(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Makes a run with a table t of 2,000 records and schema version 3.
void MakeRun(const std::string& path) {
  const Ref<IConnection> connection = ConnectionOf(OpenRun(path, Creating()));
  connection->Execute("CREATE TABLE t (a TEXT)");
  connection->Execute(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000)"
      " INSERT INTO t SELECT 'record ' || i FROM n");
  connection->Execute("PRAGMA user_version = 3");
}

TEST(OpenRun, RefusesAPathThatNamesNoFile) {
  for (const std::string& path :
       {std::string(), std::string(":memory:"), std::string("file:x?mode=memory"),
        std::string("file:run.db"), std::string("run\0.db", 7)}) {
    for (const auto mode : {RunOptions::Mode::kReadWrite, RunOptions::Mode::kReadWriteCreate,
                            RunOptions::Mode::kReadOnly}) {
      const Error error = Raised([&] { OpenRun(path, Opening(mode)); });
      EXPECT_EQ(error.Number(), error_number::kInvalidArgument) << path;
      EXPECT_EQ(error.Description(),
                "The path of a run must name a file; \"" + path + "\" does not.");
      EXPECT_EQ(error.Source(), "OpenRun");
    }
  }
}

TEST(OpenRun, RefusesAPathForARunInMemory) {
  const Error error = Raised([] { OpenRun("run.db", InMemory()); });
  EXPECT_EQ(error.Number(), error_number::kInvalidArgument);
  EXPECT_EQ(error.Description(), "A run in memory has no path, but one was given: run.db");
}

TEST(OpenRun, ToldOfAMissingFileAndMakesNone) {
  const TempFolder folder;
  const std::string path = folder.File("none.db");
  for (const auto mode : {RunOptions::Mode::kReadWrite, RunOptions::Mode::kReadOnly}) {
    const Error error = Raised([&] { OpenRun(path, Opening(mode)); });
    EXPECT_EQ(error.Number(), error_number::kFileNotFound);
    EXPECT_EQ(error.Description(), "There is no run " + path + ".");
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(OpenRun, TellsOfAMissingFolder) {
  const TempFolder folder;
  const std::string path = folder.File("none/run.db");
  const Error error = Raised([&] { OpenRun(path, Creating()); });
  EXPECT_EQ(error.Number(), error_number::kFileNotFound);
  EXPECT_EQ(error.Description(),
            "The run " + path + " cannot be made: there is no folder " + folder.File("none") + ".");
}

TEST(OpenRun, RefusesAFolder) {
  const TempFolder folder;
  const Error error = Raised([&] { OpenRun(folder.Path(), Creating()); });
  EXPECT_EQ(error.Number(), error_number::kFileAccess);
  EXPECT_EQ(error.Description(), "The run " + folder.Path() + " is a folder; a file was expected.");
}

TEST(OpenRun, RefusesAPathThroughAFile) {
  const TempFolder folder;
  WriteFile(folder.File("plain"), "x");
  const std::string path = folder.File("plain/run.db");
  const Error error = Raised([&] { OpenRun(path, Creating()); });
  EXPECT_EQ(error.Number(), error_number::kFileAccess);
  EXPECT_THAT(error.Description(), HasSubstr(path));
}

TEST(OpenRun, RefusesWhatIsNeitherFileNorFolder) {
  const TempFolder folder;
  const std::string path = folder.File("pipe");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  const Error error = Raised([&] { OpenRun(path, Creating()); });
  EXPECT_EQ(error.Number(), error_number::kFileAccess);
  EXPECT_EQ(error.Description(), "The run " + path + " is not a file.");
}

TEST(OpenRun, RefusesAFileThatIsNoDatabase) {
  const TempFolder folder;
  const std::string path = folder.File("data.txt");
  const std::string text = "Age,Weight\n1,2\n3,4\n";
  WriteFile(path, text);
  for (const auto mode : {RunOptions::Mode::kReadWrite, RunOptions::Mode::kReadOnly}) {
    const Error error = Raised([&] { OpenRun(path, Opening(mode)); });
    EXPECT_EQ(error.Number(), 26);
    EXPECT_THAT(error.Description(), EndsWith(" cannot be opened: file is not a database."));
    EXPECT_THAT(error.Description(), HasSubstr(path));
  }
  EXPECT_EQ(BytesOf(path), text);
}

TEST(OpenRun, RefusesATruncatedDatabase) {
  const TempFolder folder;
  const std::string path = folder.File("run.db");
  MakeRun(path);
  const auto size = std::filesystem::file_size(path);
  for (const auto kept : {size / 2, size / 2 + 100, size * 0 + 60}) {
    std::filesystem::resize_file(path, kept);
    const Error error = Raised([&] { OpenRun(path, Opening(RunOptions::Mode::kReadWrite)); });
    EXPECT_EQ(error.Number(), 11) << kept << " bytes of " << size;
    EXPECT_EQ(error.Description(),
              "The run " + path + " cannot be opened: database disk image is malformed.");
  }
}

TEST(OpenRun, TakesAnEmptyFileForANewRun) {
  const TempFolder folder;
  const std::string path = folder.File("run.db");
  WriteFile(path, "");
  const auto run = OpenRun(path, Opening(RunOptions::Mode::kReadWrite));
  ConnectionOf(run)->Execute("CREATE TABLE t (a FLOAT)");
  EXPECT_TRUE(ConnectionOf(run)->TableExists("t"));
}

TEST(OpenRun, RefusesASchemaNewerThanAskedFor) {
  const TempFolder folder;
  const std::string path = folder.File("run.db");
  MakeRun(path);
  RunOptions options;
  options.newest_schema_version = 2;
  const Error error = Raised([&] { OpenRun(path, options); });
  EXPECT_EQ(error.Number(), error_number::kInvalidArgument);
  EXPECT_EQ(error.Description(), "The run " + path +
                                     " has schema version 3, which is newer than 2, the newest "
                                     "that this program understands.");
  for (const int newest : {0, 3, 4}) {
    options.newest_schema_version = newest;
    EXPECT_TRUE(ConnectionOf(OpenRun(path, options))->TableExists("t")) << newest;
  }
}

TEST(OpenRun, TellsOfALockedRun) {
  const TempFolder folder;
  const std::string path = folder.File("run.db");
  MakeRun(path);
  const Ref<IConnection> holder = ConnectionOf(OpenRun(path, Creating()));
  holder->Execute("BEGIN EXCLUSIVE");
  const Error error = Raised([&] { OpenRun(path, Opening(RunOptions::Mode::kReadWrite)); });
  EXPECT_EQ(error.Number() & 0xFF, 5);
  EXPECT_THAT(error.Description(), HasSubstr(path));
}

TEST(OpenRun, ReadOnlyReadsAndRefusesEveryWrite) {
  const TempFolder folder;
  const std::string path = folder.File("run.db");
  MakeRun(path);
  const std::string before = BytesOf(path);
  {
    const Ref<IConnection> connection =
        ConnectionOf(OpenRun(path, Opening(RunOptions::Mode::kReadOnly)));
    EXPECT_EQ(Listed(connection, "SELECT count(*) FROM t"), "2000");
    for (const char* sql : {"INSERT INTO t VALUES ('x')", "DELETE FROM t", "DROP TABLE t",
                            "CREATE TABLE u (a FLOAT)"}) {
      EXPECT_EQ(RaisedNumber([&] { connection->Execute(sql); }), 8) << sql;
    }
    const Ref<IRecordSet> records = connection->OpenRecordSet("SELECT * FROM t");
    EXPECT_EQ(RaisedNumber([&] { records->SetField(0, 1.0); }), 8);
    EXPECT_EQ(RaisedNumber([&] { records->Update(); }), 0);
  }
  EXPECT_EQ(BytesOf(path), before);
}

TEST(OpenRun, MakesAMissingFileWhenAskedTo) {
  const TempFolder folder;
  const std::string path = folder.File("run.db");
  ConnectionOf(OpenRun(path, Creating()))->Execute("CREATE TABLE t (a FLOAT)");
  RunOptions existing;
  EXPECT_TRUE(ConnectionOf(OpenRun(path, existing))->TableExists("t"));
}

TEST(OpenRun, RunsInMemoryShareNothingAndLeaveNothing) {
  const TempFolder folder;
  const auto here = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  {
    const Ref<IConnection> one = ConnectionOf(OpenRun("", InMemory()));
    const Ref<IConnection> other = ConnectionOf(OpenRun("", InMemory()));
    one->Execute("CREATE TABLE t (a FLOAT)");
    EXPECT_TRUE(one->TableExists("t"));
    EXPECT_FALSE(other->TableExists("t"));
  }
  std::filesystem::current_path(here);
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(OpenRun, GivesARunThatLendsOneConnection) {
  const Ref<IConnectionService> run = OpenRun("", InMemory());
  EXPECT_EQ(run->TypeName(), "Run");
  EXPECT_EQ(run->GetConnection(), run->GetConnection());
  EXPECT_EQ(ConnectionOf(run)->TypeName(), "Connection");
}

}  // namespace
}  // namespace tslm5
