#include "platform/only_errors.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/raised.h"

namespace tslm5 {
namespace {

TEST(OnlyErrors, GivesWhatTheOperationGives) {
  int value = 3;
  EXPECT_EQ(OnlyErrors([&] { return value + 1; }), 4);
  EXPECT_EQ(&OnlyErrors([&]() -> int& { return value; }), &value);
  OnlyErrors([&] { value = 5; });
  EXPECT_EQ(value, 5);
}

TEST(OnlyErrors, LetsAnErrorPassAsItIs) {
  const Error error =
      Raised([] { OnlyErrors([] { throw Error(41011, "GetItem", "Invalid Row or Column"); }); });
  EXPECT_EQ(error.Number(), 41011);
  EXPECT_EQ(error.Source(), "GetItem");
  EXPECT_EQ(error.Description(), "Invalid Row or Column");
}

TEST(OnlyErrors, RaisesAFailedAllocationAsOutOfMemory) {
  const auto raised = [](auto operation) {
    const Error error = Raised([&operation] { OnlyErrors(operation); });
    EXPECT_EQ(error.Source(), "");
    EXPECT_EQ(error.Description(), "Out of memory");
    return error.Number();
  };
  EXPECT_EQ(raised([] { throw std::bad_alloc(); }), 7);
  EXPECT_EQ(raised([] { throw std::bad_array_new_length(); }), 7);
  static const std::size_t too_many = std::vector<int>().max_size() + 1;
  EXPECT_EQ(raised([] { std::vector<int>().reserve(too_many); }), 7);
  EXPECT_EQ(raised([] { std::string().reserve(too_many * 4); }), 7);
}

TEST(OnlyErrors, RaisesAnythingElseAs51WithItsWords) {
  Error error = Raised([] { OnlyErrors([] { throw std::runtime_error("the printer is out"); }); });
  EXPECT_EQ(error.Number(), 51);
  EXPECT_EQ(error.Source(), "");
  EXPECT_EQ(error.Description(), "the printer is out");
  error = Raised([] { OnlyErrors([] { throw 4711; }); });
  EXPECT_EQ(error.Number(), 51);
  EXPECT_EQ(error.Description(), "An exception that tells nothing of itself.");
}

TEST(OrEmpty, GivesWhatTheOperationGives) {
  EXPECT_EQ(OrEmpty([] { return 4; }), 4);
  EXPECT_EQ(OrEmpty([] { return std::string("four"); }), "four");
}

TEST(OrEmpty, GivesTheEmptyValueOfAFailure) {
  EXPECT_EQ(OrEmpty([]() -> int { throw Error(5); }), 0);
  EXPECT_EQ(OrEmpty([]() -> std::string { throw std::bad_alloc(); }), "");
  EXPECT_FALSE(OrEmpty([]() -> bool { throw 4711; }));
}

TEST(Error, SaysItsNumberWhereItHasNoWords) {
  EXPECT_STREQ(Error(41010).what(), "error 41010");
  EXPECT_STREQ(Error(5, "Invoke", "its words").what(), "its words");
  EXPECT_EQ(Error(41010).Description(), "");
}

}  // namespace
}  // namespace tslm5
