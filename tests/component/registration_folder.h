#ifndef TSLM5_TESTS_COMPONENT_REGISTRATION_FOLDER_H_
#define TSLM5_TESTS_COMPONENT_REGISTRATION_FOLDER_H_

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "support/temporary_folder.h"

namespace tslm5 {

/// An environment variable with another value, or none, for a while.
class ChangedVariable {
 public:
  ChangedVariable(const char* name, const char* value) : name_(name) {
    const char* former = std::getenv(name);
    was_set_ = former != nullptr;
    if (was_set_) former_ = former;
    Set(value);
  }
  ChangedVariable(const ChangedVariable&) = delete;
  ChangedVariable& operator=(const ChangedVariable&) = delete;
  ~ChangedVariable() { Set(was_set_ ? former_.c_str() : nullptr); }

 private:
  void Set(const char* value) {
    if (value == nullptr) {
      ::unsetenv(name_);
    } else {
      ::setenv(name_, value, 1);
    }
  }

  const char* name_;
  std::string former_;
  bool was_set_ = false;
};

/// A folder of registrations of the test's own.
struct RegistrationsOfTheTest {
  TemporaryFolder folder;
  ChangedVariable variable{"TSLM5_COMPONENTS", folder.PathOf("registered").c_str()};
  std::filesystem::path file = folder.PathOf("registered/TSLM5DataManager.component");

  std::string Text() const {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  void Write(const std::string& name, const std::string& text) const {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file.parent_path() / name) << text;
  }
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_COMPONENT_REGISTRATION_FOLDER_H_
