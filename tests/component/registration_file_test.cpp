// What the component writes of itself, through the exported functions.
#include "component/registration_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <atomic>
#include <csignal>
#include <fstream>
#include <thread>
#include <vector>

#include "component/registration_folder.h"
#include "tslm5/component/class_factory.h"
#include "tslm5/component/entry_points.h"
#include "tslm5/component/registration.h"

namespace tslm5 {
namespace {

/// No file of this process can grow, for a while: a file can be made, but nothing written to it.
class FullDisk {
 public:
  FullDisk() : former_action_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &former_);
    const rlimit none{0, former_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &none);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &former_);
    std::signal(SIGXFSZ, former_action_);
  }

 private:
  void (*former_action_)(int);
  rlimit former_{};
};

TEST(RegistrationText, NamesTheLibraryAndEveryClass) {
  const std::string text = RegistrationText("/some where/lib.so");
  EXPECT_EQ(text.find("component TSLM5DataManager\nversion "), 0U) << text;
  EXPECT_NE(text.find("\nlibrary /some where/lib.so\n"), std::string::npos) << text;
  for (const char* name :
       {"DataSetLite", "InMemorySet", "OriginalDataSet", "ParseEventArgs", "RecordParsedEventArgs",
        "RunCatalog", "RunPreparation", "RunSchema", "DelimitedReader", "DataCheck"}) {
    EXPECT_NE(text.find("\nclass " + std::string(name) + " "), std::string::npos) << text;
  }
  EXPECT_NE(text.find("class InMemorySet 54534c4d350000c2-8a1f4c0b6d2e73c2\n"), std::string::npos);
}

TEST(DllRegisterServer, WritesAFileThatIsRead) {
  const RegistrationsOfTheTest registrations;
  ASSERT_EQ(DllRegisterServer(), TSLM5_OK);
  const auto read = ReadRegistration(registrations.file);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->name, "TSLM5DataManager");
  EXPECT_EQ(read->library, std::filesystem::canonical("/proc/self/exe")) << "its code is in here";
  ASSERT_FALSE(read->classes.empty());
  EXPECT_EQ(read->classes.front().name, "DataSetLite");
  EXPECT_EQ(read->classes.front().id, class_id::kDataSetLite);
}

TEST(DllRegisterServer, TakesThePlaceOfAnOlderFile) {
  const RegistrationsOfTheTest registrations;
  registrations.Write("TSLM5DataManager.component", "component Old\n" + std::string(5000, 'x'));
  ASSERT_EQ(DllRegisterServer(), TSLM5_OK);
  const std::string text = registrations.Text();
  EXPECT_EQ(text.find("component TSLM5DataManager\n"), 0U);
  EXPECT_EQ(text.find("xxx"), std::string::npos);
  ASSERT_EQ(DllRegisterServer(), TSLM5_OK);
  EXPECT_EQ(registrations.Text(), text);
  const std::filesystem::directory_iterator files(registrations.file.parent_path());
  EXPECT_EQ(std::distance(files, {}), 1) << "nothing else is left in the folder";
}

TEST(DllRegisterServer, MayBeCalledByManyAtOnce) {
  const RegistrationsOfTheTest registrations;
  std::atomic<int> failures{0};
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&failures] {
      for (int k = 0; k < 200; ++k) failures += DllRegisterServer() != TSLM5_OK;
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failures, 0);
  EXPECT_TRUE(ReadRegistration(registrations.file));
  const std::filesystem::directory_iterator files(registrations.file.parent_path());
  EXPECT_EQ(std::distance(files, {}), 1) << "nothing else is left in the folder";
}

TEST(DllRegisterServer, OnAFullDiskLeavesTheOlderFile) {
  const RegistrationsOfTheTest registrations;
  ASSERT_EQ(DllRegisterServer(), TSLM5_OK);
  const std::string text = registrations.Text();
  {
    const FullDisk full;
    EXPECT_EQ(DllRegisterServer(), TSLM5_REGISTRATION_FAILED);
  }
  EXPECT_EQ(registrations.Text(), text);
  const std::filesystem::directory_iterator files(registrations.file.parent_path());
  EXPECT_EQ(std::distance(files, {}), 1) << "nothing else is left in the folder";
}

TEST(DllRegisterServer, OnAFullDiskLeavesNoEmptyFile) {
  const RegistrationsOfTheTest registrations;
  {
    const FullDisk full;
    EXPECT_EQ(DllRegisterServer(), TSLM5_REGISTRATION_FAILED);
  }
  EXPECT_FALSE(std::filesystem::exists(registrations.file));
}

TEST(DllRegisterServer, FailsWhereNoFolderCanBe) {
  const RegistrationsOfTheTest registrations;
  std::ofstream(registrations.file.parent_path()) << "a file where the folder should be";
  EXPECT_EQ(DllRegisterServer(), TSLM5_REGISTRATION_FAILED);
  EXPECT_EQ(DllUnregisterServer(), TSLM5_OK) << "nothing was registered";
}

TEST(DllUnregisterServer, RemovesTheFile) {
  const RegistrationsOfTheTest registrations;
  ASSERT_EQ(DllRegisterServer(), TSLM5_OK);
  EXPECT_EQ(DllUnregisterServer(), TSLM5_OK);
  EXPECT_FALSE(std::filesystem::exists(registrations.file));
  EXPECT_EQ(DllUnregisterServer(), TSLM5_OK) << "a second time";
}

TEST(DllUnregisterServer, FailsWhenTheFileCannotBeRemoved) {
  const RegistrationsOfTheTest registrations;
  std::filesystem::create_directories(registrations.file / "not empty");
  EXPECT_EQ(DllUnregisterServer(), TSLM5_REGISTRATION_FAILED);
  EXPECT_EQ(DllRegisterServer(), TSLM5_REGISTRATION_FAILED);
}

}  // namespace
}  // namespace tslm5
