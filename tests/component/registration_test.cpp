// How a program finds the registered components.
#include "tslm5/component/registration.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "component/registration_folder.h"

namespace tslm5 {
namespace {

TEST(Registration, IsReadLineByLine) {
  const RegistrationsOfTheTest registrations;
  registrations.Write("TSLM5DataManager.component",
                      "component C\nversion 1.2\nlibrary /a b/c.so\nfuture key\n"
                      "class One 00000000000000a1-00000000000000B2\nclass Bad 12\nnonsense\n");
  const auto read = ReadRegistration(registrations.file);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->name, "C");
  EXPECT_EQ(read->version, "1.2");
  EXPECT_EQ(read->library, "/a b/c.so");
  EXPECT_EQ(read->file, registrations.file);
  ASSERT_EQ(read->classes.size(), 1U);
  EXPECT_EQ(read->classes[0].name, "One");
  EXPECT_EQ(read->classes[0].id, (Uuid{0xa1, 0xb2}));
}

TEST(Registration, WithoutANameOrALibraryIsNone) {
  const RegistrationsOfTheTest registrations;
  EXPECT_FALSE(ReadRegistration(registrations.file)) << "there is no such file";
  for (const char* text : {"", "component C\n", "library /c.so\n", "component \nlibrary /c.so\n"}) {
    registrations.Write("TSLM5DataManager.component", text);
    EXPECT_FALSE(ReadRegistration(registrations.file)) << text;
  }
}

TEST(Registration, MayEndItsLinesAsOtherSystemsDo) {
  const RegistrationsOfTheTest registrations;
  registrations.Write("TSLM5DataManager.component",
                      "component C\r\nlibrary /a/c.so\r\n"
                      "class One 00000000000000a1-00000000000000b2\r\n");
  const auto read = ReadRegistration(registrations.file);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->name, "C");
  EXPECT_EQ(read->library, "/a/c.so");
  ASSERT_EQ(read->classes.size(), 1U);
  EXPECT_EQ(read->classes[0].id, (Uuid{0xa1, 0xb2}));
}

TEST(Registration, FindsALibraryByAPathFromItsOwnFolder) {
  const RegistrationsOfTheTest registrations;
  const auto library = [&registrations](const std::string& written) {
    registrations.Write("TSLM5DataManager.component", "component C\nlibrary " + written + "\n");
    return ReadRegistration(registrations.file)->library;
  };
  const std::filesystem::path folder = registrations.file.parent_path();
  EXPECT_EQ(library("../lib/c.so"), folder / "../lib/c.so");
  EXPECT_EQ(library("./Größe.so"), folder / "./Größe.so");
  EXPECT_EQ(library("c.so.6"), "c.so.6") << "a name alone is looked for by the system";
  EXPECT_EQ(library("/lib/c.so"), "/lib/c.so");
}

TEST(Registration, ThatIsNoSmallFileIsNone) {
  const RegistrationsOfTheTest registrations;
  const std::string text = "component C\nlibrary /c.so\n";
  registrations.Write("TSLM5DataManager.component", text + std::string(1 << 20, 'x'));
  EXPECT_FALSE(ReadRegistration(registrations.file)) << "larger than any registration";
  registrations.Write("TSLM5DataManager.component", std::string("\0\xff \xfe\n", 5) + text);
  EXPECT_TRUE(ReadRegistration(registrations.file)) << "other bytes are passed over";
  std::filesystem::remove(registrations.file);
  std::filesystem::create_directory(registrations.file);
  EXPECT_FALSE(ReadRegistration(registrations.file)) << "a folder";
  std::filesystem::remove(registrations.file);
  std::filesystem::create_symlink("/dev/zero", registrations.file);
  EXPECT_FALSE(ReadRegistration(registrations.file)) << "a device without an end";
  std::filesystem::remove(registrations.file);
  ASSERT_EQ(::mkfifo(registrations.file.c_str(), 0600), 0);
  EXPECT_FALSE(ReadRegistration(registrations.file)) << "a pipe that nobody writes to";
}

TEST(Registration, IdentifiersAreReadWholeOrNotAtAll) {
  const Uuid id{0x54534c4d350000c1ULL, 0x000000000000000fULL};
  EXPECT_EQ(UuidText(id), "54534c4d350000c1-000000000000000f");
  EXPECT_EQ(ParseUuid(UuidText(id)), id);
  for (const char* text :
       {"", "54534c4d350000c1-000000000000000", "54534c4d350000c1-000000000000000f0",
        "54534c4d350000c1_000000000000000f", "54534c4d350000g1-000000000000000f",
        "-4534c4d350000c1-000000000000000f", "54534c4d350000c1-00000000000000 f"}) {
    EXPECT_FALSE(ParseUuid(text)) << text;
  }
}

TEST(RegisteredComponents, AreThoseOfTheFolderInTheOrderOfTheirNames) {
  const RegistrationsOfTheTest registrations;
  EXPECT_TRUE(RegisteredComponents().empty()) << "there is no folder";
  registrations.Write("b.component", "component B\nlibrary /b.so\n");
  registrations.Write("a.component", "component A\nlibrary /a.so\n");
  registrations.Write("c.component", "component A\nlibrary /other.so\n");
  registrations.Write("d.component", "no registration");
  registrations.Write("e.txt", "component E\nlibrary /e.so\n");
  const auto components = RegisteredComponents();
  ASSERT_EQ(components.size(), 2U);
  EXPECT_EQ(components[0].library, "/a.so") << "the first of a name";
  EXPECT_EQ(components[1].name, "B");
}

TEST(RegistrationFolders, AreTheUsersBeforeTheSystems) {
  const ChangedVariable none("TSLM5_COMPONENTS", nullptr);
  const ChangedVariable data("XDG_DATA_HOME", "/data");
  const ChangedVariable home("HOME", "/home/u");
  using Paths = std::vector<std::filesystem::path>;
  const Paths system{"/usr/local/share/tslm5/components", "/usr/share/tslm5/components"};
  EXPECT_EQ(RegistrationFolders(), (Paths{"/data/tslm5/components", system[0], system[1]}));
  EXPECT_EQ(RegistrationFolder(),
            ::geteuid() == 0 ? system[0] : Paths::value_type("/data/tslm5/components"));
  const ChangedVariable relative("XDG_DATA_HOME", "not/absolute");
  EXPECT_EQ(RegistrationFolders().front(), "/home/u/.local/share/tslm5/components");
  const ChangedVariable homeless("HOME", nullptr);
  EXPECT_EQ(RegistrationFolders(), system);
  EXPECT_EQ(RegistrationFolder(), ::geteuid() == 0 ? system[0] : Paths::value_type());
}

TEST(RegistrationFolders, AreOneWhenItIsChosen) {
  const ChangedVariable chosen("TSLM5_COMPONENTS", "/chosen");
  EXPECT_EQ(RegistrationFolders(), std::vector<std::filesystem::path>{"/chosen"});
  EXPECT_EQ(RegistrationFolder(), "/chosen");
}

}  // namespace
}  // namespace tslm5
