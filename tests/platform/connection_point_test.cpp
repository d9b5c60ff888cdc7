#include "tslm5/platform/connection_point.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "platform/raised.h"
#include "platform/test_objects.h"

namespace tslm5 {
namespace {

class IHeard : public IUnknown {
 public:
  static constexpr Uuid kId{2, 1};
  virtual void Heard() = 0;

 protected:
  ~IHeard() = default;
};

/// A sink that calls a function.
class Listener final : public CountedObject<IHeard> {
 public:
  explicit Listener(std::function<void()> action) : action_(std::move(action)) {}
  std::string_view TypeName() override { return "Listener"; }
  void Heard() override { action_(); }

 private:
  ~Listener() override = default;
  std::function<void()> action_;
};

class SinkListTest : public testing::Test {
 protected:
  /// Attaches a sink that notes `name` and then runs `action`.
  std::int32_t Attach(std::string name, std::function<void()> action = {}) {
    const auto sink = MakeObject<Listener>([this, name = std::move(name), action] {
      log_ += name;
      if (action) action();
    });
    return sinks_->Advise(sink.get());
  }

  /// The names that one event notes, in order.
  std::string Fire() {
    log_.clear();
    sinks_->Fire([](IHeard& sink) { sink.Heard(); });
    return log_;
  }

  std::unique_ptr<SinkList<IHeard>> sinks_ = std::make_unique<SinkList<IHeard>>();
  std::string log_;
};

TEST_F(SinkListTest, CallsSinksInTheOrderOfAttachment) {
  Attach("a");
  Attach("b");
  Attach("c");
  EXPECT_EQ(Fire(), "abc");
}

TEST_F(SinkListTest, KnowsWhetherAnybodyListens) {
  EXPECT_FALSE(sinks_->HasSinks());
  EXPECT_EQ(Fire(), "");
  const std::int32_t cookie = Attach("a");
  EXPECT_TRUE(sinks_->HasSinks());
  sinks_->Unadvise(cookie);
  EXPECT_FALSE(sinks_->HasSinks());
  EXPECT_EQ(Fire(), "");
}

TEST_F(SinkListTest, CookiesArePositiveAndNeverUsedAgain) {
  const std::int32_t first = Attach("a");
  EXPECT_GT(first, 0);
  sinks_->Unadvise(first);
  EXPECT_GT(Attach("b"), first);
}

TEST_F(SinkListTest, UnadviseTakesTheSinkOfItsCookieOnly) {
  Attach("a");
  const std::int32_t second = Attach("b");
  Attach("c");
  sinks_->Unadvise(second);
  EXPECT_EQ(Fire(), "ac");
}

TEST_F(SinkListTest, ASinkAttachedTwiceIsCalledTwice) {
  const auto sink = MakeObject<Listener>([this] { log_ += "a"; });
  const std::int32_t first = sinks_->Advise(sink.get());
  EXPECT_NE(sinks_->Advise(sink.get()), first);
  EXPECT_EQ(Fire(), "aa");
  sinks_->Unadvise(first);
  EXPECT_EQ(Fire(), "a");
}

TEST_F(SinkListTest, HoldsAReferenceUntilUnadvise) {
  const auto sink = MakeObject<Listener>([] {});
  const std::int32_t cookie = sinks_->Advise(sink.get());
  EXPECT_EQ(CountOf(*sink), 2u);
  sinks_->Unadvise(cookie);
  EXPECT_EQ(CountOf(*sink), 1u);
  sinks_->Advise(sink.get());
  sinks_.reset();
  EXPECT_EQ(CountOf(*sink), 1u);
}

TEST_F(SinkListTest, ASinkMayUnadviseItselfWhileItIsCalled) {
  std::int32_t own = 0;
  Attach("a");
  own = Attach("b", [&] { sinks_->Unadvise(own); });
  Attach("c");
  EXPECT_EQ(Fire(), "abc");
  EXPECT_EQ(Fire(), "ac");
}

TEST_F(SinkListTest, ASinkDetachedByAnEarlierOneStillGetsThisEvent) {
  std::int32_t other = 0;
  Attach("a", [&] {
    if (other != 0) sinks_->Unadvise(std::exchange(other, 0));
  });
  other = Attach("b");
  EXPECT_EQ(Fire(), "ab");
  EXPECT_EQ(Fire(), "a");
}

TEST_F(SinkListTest, ASinkAttachedWhileFiringGetsTheNextEvent) {
  bool attached = false;
  Attach("a", [&] {
    if (!std::exchange(attached, true)) Attach("n");
  });
  Attach("b");
  EXPECT_EQ(Fire(), "ab");
  EXPECT_EQ(Fire(), "abn");
}

TEST_F(SinkListTest, ASinkMayLetGoOfTheSource) {
  Attach("a", [this] { sinks_.reset(); });
  Attach("b");
  EXPECT_EQ(Fire(), "ab");
  EXPECT_EQ(sinks_, nullptr);
}

TEST_F(SinkListTest, AnEventMayBeFiredInsideAnother) {
  bool inside = false;
  Attach("a", [&] {
    if (!std::exchange(inside, true)) sinks_->Fire([](IHeard& sink) { sink.Heard(); });
  });
  Attach("b");
  EXPECT_EQ(Fire(), "aabb");
}

TEST_F(SinkListTest, WhatASinkThrowsPassesAndTheSinksAfterItMissTheEvent) {
  bool angry = true;
  Attach("a");
  Attach("b", [&] {
    if (angry) throw std::runtime_error("not now");
  });
  Attach("c");
  EXPECT_THROW(Fire(), std::runtime_error);
  EXPECT_EQ(log_, "ab");
  angry = false;
  EXPECT_EQ(Fire(), "abc");
}

TEST_F(SinkListTest, AWrongSinkRaisesThirteenAndIsNotAttached) {
  const Ref<OneFace> wrong = MakeObject<OneFace>();
  EXPECT_EQ(RaisedNumber([&] { sinks_->Advise(wrong.get()); }), 13);
  EXPECT_EQ(RaisedNumber([&] { sinks_->Advise(nullptr); }), 13);
  EXPECT_FALSE(sinks_->HasSinks());
  EXPECT_EQ(CountOf(*wrong), 1u);
}

TEST_F(SinkListTest, AnUnknownCookieRaisesFiveAndChangesNothing) {
  EXPECT_EQ(RaisedNumber([&] { sinks_->Unadvise(1); }), 5);
  const std::int32_t cookie = Attach("a");
  const Error error = Raised([&] { sinks_->Unadvise(cookie + 1); });
  EXPECT_EQ(error.Number(), 5);
  EXPECT_EQ(error.Source(), "Unadvise");
  EXPECT_EQ(RaisedNumber([&] { sinks_->Unadvise(0); }), 5);
  EXPECT_EQ(Fire(), "a");
  sinks_->Unadvise(cookie);
  EXPECT_EQ(RaisedNumber([&] { sinks_->Unadvise(cookie); }), 5);
}

}  // namespace
}  // namespace tslm5
