#ifndef TSLM5_TESTS_ENGINE_ENGINE_FIXTURE_H_
#define TSLM5_TESTS_ENGINE_ENGINE_FIXTURE_H_

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/raised.h"
#include "tslm5/engine/connection.h"
#include "tslm5/engine/open_run.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// How a failed comparison shows a variant.
inline void PrintTo(const Variant& value, std::ostream* stream) {
  *stream << "kind " << static_cast<int>(value.GetKind());
  if (value.IsNumber() || value.GetKind() == Variant::Kind::kString) {
    *stream << ": " << value.ToString();
  }
}

/// A folder of one test's own, gone with it.
class TempFolder {
 public:
  TempFolder() : path_(testing::TempDir() + "tslm5_engine_XXXXXX") {
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no folder " + path_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& Path() const { return path_; }
  std::string File(std::string_view name) const { return path_ + "/" + std::string(name); }

 private:
  std::string path_;
};

inline RunOptions Creating() {
  RunOptions options;
  options.mode = RunOptions::Mode::kReadWriteCreate;
  options.busy_timeout_ms = 20;
  return options;
}

inline RunOptions InMemory() {
  RunOptions options;
  options.in_memory = true;
  return options;
}

inline Ref<IConnection> ConnectionOf(const Ref<IConnectionService>& run) {
  return run->GetConnection().ToObject().As<IConnection>();
}

/// The first field of every record, as text and "NULL" for NULL, with a blank between.
inline std::string Listed(const Ref<IConnection>& connection, std::string_view sql) {
  std::string list;
  const Ref<IDataReader> reader = connection->ExecuteReader(sql);
  while (reader->Read()) {
    if (!list.empty()) list += ' ';
    list += reader->IsNull(0) ? "NULL" : reader->GetString(0);
  }
  return list;
}

/// A test with a connection to a run in memory.
class EngineTest : public testing::Test {
 protected:
  void Execute(std::string_view sql) { connection_->Execute(sql); }
  std::string Listed(std::string_view sql) { return tslm5::Listed(connection_, sql); }
  Ref<IRecordSet> Open(std::string_view sql) { return connection_->OpenRecordSet(sql); }

  Ref<IConnection> connection_ = ConnectionOf(OpenRun("", InMemory()));
};

/// A test with a connection to a new run in a file.
class FileEngineTest : public testing::Test {
 protected:
  void Execute(std::string_view sql) { connection_->Execute(sql); }
  std::string Listed(std::string_view sql) { return tslm5::Listed(connection_, sql); }
  Ref<IConnection> OpenSecond() { return ConnectionOf(OpenRun(path_, Creating())); }

  TempFolder folder_;
  std::string path_ = folder_.File("run.db");
  Ref<IConnection> connection_ = ConnectionOf(OpenRun(path_, Creating()));
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_ENGINE_ENGINE_FIXTURE_H_
