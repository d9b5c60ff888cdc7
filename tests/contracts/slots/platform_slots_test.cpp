#include <gtest/gtest.h>

#include "contracts/slots/slot_of.h"
#include "tslm5/platform/connection_point.h"
#include "tslm5/platform/dispatch.h"

namespace tslm5 {
namespace {

struct NotVirtual {
  void Operation() {}
};

TEST(SlotOf, TellsAnOrdinaryOperationFromAVirtualOne) {
  EXPECT_EQ(SlotOf(&NotVirtual::Operation), -1);
}

TEST(PlatformSlots, TheRootHasFour) {
  EXPECT_EQ(SlotOf(&IUnknown::QueryInterface), 0);
  EXPECT_EQ(SlotOf(&IUnknown::AddRef), 1);
  EXPECT_EQ(SlotOf(&IUnknown::Release), 2);
  EXPECT_EQ(SlotOf(&IUnknown::TypeName), 3);
  EXPECT_EQ(SlotOf(&OneMore<IUnknown>::More), 4);
}

TEST(PlatformSlots, ConnectionPoint) {
  ExpectSlots<IConnectionPoint>(&IConnectionPoint::Advise, &IConnectionPoint::Unadvise);
}

TEST(PlatformSlots, Dispatch) {
  ExpectSlots<IDispatch>(&IDispatch::Invoke);
}

}  // namespace
}  // namespace tslm5
