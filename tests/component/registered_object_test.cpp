// Objects made by name, in a program that is not linked to the component's library.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "component/registration_folder.h"
#include "platform/raised.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/run_schema.h"

namespace tslm5 {
namespace {

constexpr const char* kLibrary = TSLM5_LIBRARY;

bool IsLoaded() {
  void* handle = ::dlopen(kLibrary, RTLD_LAZY | RTLD_NOLOAD);
  if (handle != nullptr) ::dlclose(handle);
  return handle != nullptr;
}

/// Calls an exported function of the library, which is loaded for the call.
std::int32_t Call(const char* function, const std::string& library = kLibrary) {
  void* handle = ::dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) throw std::runtime_error(::dlerror());
  const auto call = reinterpret_cast<decltype(&::DllRegisterServer)>(::dlsym(handle, function));
  const std::int32_t code = call();
  ::dlclose(handle);
  return code;
}

class RegisteredObject : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(Call("DllRegisterServer"), TSLM5_OK); }
  void TearDown() override { UnloadUnusedComponents(); }

  RegistrationsOfTheTest registrations_;
};

TEST_F(RegisteredObject, IsMadeByItsName) {
  const auto set = CreateObject<IDataSet>("TSLM5DataManager.DataSetLite");
  EXPECT_EQ(set->TypeName(), "DataSetLite");
  EXPECT_EQ(CreateObject<IDataSet>("TSLM5DataManager.InMemorySet")->TypeName(), "InMemorySet");
  EXPECT_EQ(CreateObject<IRunSchema>("TSLM5DataManager.RunSchema")->NewestVersion(), 1);
}

TEST_F(RegisteredObject, TellsWhyItCannotBeMade) {
  const auto message = [](const char* name) {
    const Error error = Raised([name] { CreateObject<IDataSet>(name); });
    EXPECT_EQ(error.Number(), 429);
    EXPECT_EQ(error.Source(), "CreateObject");
    return error.Description();
  };
  EXPECT_EQ(message("Other.DataSetLite"),
            "\"Other.DataSetLite\" cannot be made: no component of that name is registered");
  EXPECT_EQ(message("TSLM5DataManager.Nothing"),
            "\"TSLM5DataManager.Nothing\" cannot be made: the component has no such class (" +
                registrations_.file.string() + ")");
  EXPECT_NE(message("TSLM5DataManager").find("no such class"), std::string::npos);
  EXPECT_NE(message("").find("is registered"), std::string::npos);
  EXPECT_NE(message("TSLM5DataManager.RunSchema").find("no such interface"), std::string::npos);
}

TEST_F(RegisteredObject, OfALibraryThatIsGoneTellsWhichOne) {
  registrations_.Write("gone.component",
                       "component Gone\nlibrary /nowhere/gone.so\n"
                       "class Thing 0000000000000001-0000000000000002\n");
  const Error error = Raised([] { CreateObject<IDataSet>("Gone.Thing"); });
  EXPECT_EQ(error.Number(), 429);
  EXPECT_NE(error.Description().find("/nowhere/gone.so"), std::string::npos);
}

TEST_F(RegisteredObject, OfALibraryThatIsNoComponentIsRefused) {
  registrations_.Write("plain.component",
                       "component Plain\nlibrary libm.so.6\n"
                       "class Thing 0000000000000001-0000000000000002\n");
  const Error error = Raised([] { CreateObject<IDataSet>("Plain.Thing"); });
  EXPECT_NE(error.Description().find("it has no DllGetClassObject"), std::string::npos)
      << error.Description();
}

TEST_F(RegisteredObject, OfALibraryThatThrowsWhileItIsLoadedTellsWhat) {
  registrations_.Write("throwing.component", "component Throwing\nlibrary " TSLM5_THROWING_LIBRARY
                                             "\nclass Thing 0000000000000001-0000000000000002\n");
  const Error error = Raised([] { CreateObject<IDataSet>("Throwing.Thing"); });
  EXPECT_EQ(error.Number(), 429);
  EXPECT_NE(error.Description().find("there is no licence"), std::string::npos)
      << error.Description();
}

TEST_F(RegisteredObject, IsMadeByALibraryWhateverItsFolderIsCalled) {
  const std::filesystem::path folder = registrations_.folder.PathOf("Größe ☂");
  std::filesystem::create_directory(folder);
  std::filesystem::copy_file(kLibrary, folder / "c.so");
  ASSERT_EQ(Call("DllRegisterServer", folder / "c.so"), TSLM5_OK);
  EXPECT_EQ(RegisteredComponents().at(0).library, folder / "c.so");
  EXPECT_EQ(CreateObject<IDataSet>("TSLM5DataManager.InMemorySet")->TypeName(), "InMemorySet");
}

TEST_F(RegisteredObject, IsNotRegisteredByAPathThatBreaksALine) {
  const std::string former = registrations_.Text();
  for (const char* name : {"a\nclass b", "a\r"}) {
    const std::string library = registrations_.folder.PathOf(name);
    std::filesystem::copy_file(kLibrary, library);
    EXPECT_EQ(Call("DllRegisterServer", library), TSLM5_REGISTRATION_FAILED) << name;
    EXPECT_EQ(registrations_.Text(), former) << name;
  }
}

TEST_F(RegisteredObject, RaisesErrorsThatThisProgramCatches) {
  const auto set = CreateObject<IDataSet>("TSLM5DataManager.InMemorySet");
  EXPECT_EQ(RaisedNumber([&set] { set->Parse("", 3, false, 1, 1); }), 41001);
}

TEST_F(RegisteredObject, KeepsItsLibraryUntilTheLastObjectGoes) {
  auto set = CreateObject<IDataSet>("TSLM5DataManager.DataSetLite");
  EXPECT_EQ(UnloadUnusedComponents(), 0);
  EXPECT_EQ(set->Rows(), 0) << "its code is still there";
  set.Reset();
  EXPECT_TRUE(IsLoaded());
  EXPECT_EQ(UnloadUnusedComponents(), 1);
  EXPECT_FALSE(IsLoaded());
  EXPECT_EQ(UnloadUnusedComponents(), 0);
}

TEST_F(RegisteredObject, LeavesNothingBehindAThousandTimes) {
  for (int i = 0; i < 1000; ++i) {
    const auto set = CreateObject<IDataSet>("TSLM5DataManager.DataSetLite");
    ASSERT_EQ(UnloadUnusedComponents(), 0) << i;
  }
  EXPECT_EQ(UnloadUnusedComponents(), 1);
  for (int i = 0; i < 1000; ++i) {
    CreateObject<IDataSet>("TSLM5DataManager.InMemorySet");
    ASSERT_EQ(UnloadUnusedComponents(), 1) << i;
  }
  EXPECT_FALSE(IsLoaded());
}

TEST_F(RegisteredObject, IsNoMoreAfterTheComponentIsUnregistered) {
  ASSERT_EQ(Call("DllUnregisterServer"), TSLM5_OK);
  EXPECT_EQ(RaisedNumber([] { CreateObject<IDataSet>("TSLM5DataManager.DataSetLite"); }), 429);
}

}  // namespace
}  // namespace tslm5
