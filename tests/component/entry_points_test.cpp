// The exported functions.
#include "tslm5/component/entry_points.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tslm5/component/class_factory.h"
#include "tslm5/contracts/data_check.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/delimited_reader.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/contracts/event_args.h"
#include "tslm5/contracts/run_schema.h"
#include "tslm5/engine/connection_service.h"
#include "tslm5/preparation/run_preparation.h"
#include "tslm5/run/run_catalog.h"

namespace tslm5 {
namespace {

struct PublicClass {
  Uuid id;
  const char* type_name;
  Uuid default_interface;
};

constexpr PublicClass kClasses[] = {
    {class_id::kDataSetLite, "DataSetLite", IDataSet::kId},
    {class_id::kInMemorySet, "InMemorySet", IDataSet::kId},
    {class_id::kOriginalDataSet, "OriginalDataSet", IDeploymentDataSet::kId},
    {class_id::kParseEventArgs, "ParseEventArgs", IParseEventArgs::kId},
    {class_id::kRecordParsedEventArgs, "RecordParsedEventArgs", IRecordParsedEventArgs::kId},
    {class_id::kRunCatalog, "RunCatalog", IRunCatalog::kId},
    {class_id::kRunPreparation, "RunPreparation", IRunPreparation::kId},
    {class_id::kRunSchema, "RunSchema", IRunSchema::kId},
    {class_id::kDelimitedReader, "DelimitedReader", IDelimitedReader::kId},
    {class_id::kDataCheck, "DataCheck", IDataCheck::kId},
};

Ref<IClassFactory> ClassObject(const Uuid& id) {
  void* object = nullptr;
  EXPECT_EQ(DllGetClassObject(&id, &IClassFactory::kId, &object), TSLM5_OK);
  return Ref<IClassFactory>::Adopt(static_cast<IClassFactory*>(object));
}

TEST(DllGetClassObject, GivesAMakerForEachClass) {
  for (const PublicClass& entry : kClasses) {
    const Ref<IClassFactory> factory = ClassObject(entry.id);
    ASSERT_TRUE(factory) << entry.type_name;
    const Ref<IUnknown> made = factory->CreateInstance();
    EXPECT_EQ(made->TypeName(), entry.type_name);
    void* face = nullptr;
    EXPECT_TRUE(made->QueryInterface(entry.default_interface, &face)) << entry.type_name;
    if (face != nullptr) static_cast<IUnknown*>(face)->Release();
    EXPECT_NE(factory->CreateInstance().get(), made.get()) << "each object is a new one";
  }
}

TEST(DllGetClassObject, GivesTheRootOfAClassObjectToo) {
  void* object = nullptr;
  ASSERT_EQ(DllGetClassObject(&class_id::kDataSetLite, &IUnknown::kId, &object), TSLM5_OK);
  const auto root = Ref<IUnknown>::Adopt(static_cast<IUnknown*>(object));
  const Ref<IClassFactory> factory = root.As<IClassFactory>();
  ASSERT_TRUE(factory);
  EXPECT_EQ(factory->CreateInstance()->TypeName(), "DataSetLite");
}

TEST(DllGetClassObject, CountsTheObjectForTheCaller) {
  const Ref<IClassFactory> factory = ClassObject(class_id::kDataSetLite);
  EXPECT_EQ(factory->AddRef(), 2U);
  EXPECT_EQ(factory->Release(), 1U);
}

TEST(DllGetClassObject, KnowsNoOtherClass) {
  constexpr Uuid kUnknown[] = {{},
                               IDataSet::kId,
                               {class_id::kDataSetLite.high, class_id::kDataSetLite.low + 1},
                               {class_id::kDataSetLite.high + 0x100, class_id::kDataSetLite.low}};
  for (const Uuid& id : kUnknown) {
    void* object = &object;
    EXPECT_EQ(DllGetClassObject(&id, &IClassFactory::kId, &object), TSLM5_CLASS_NOT_AVAILABLE);
    EXPECT_EQ(object, nullptr);
  }
}

TEST(DllGetClassObject, GivesNoOtherInterface) {
  for (const PublicClass& entry : kClasses) {
    void* object = &object;
    EXPECT_EQ(DllGetClassObject(&entry.id, &entry.default_interface, &object), TSLM5_NO_INTERFACE);
    EXPECT_EQ(object, nullptr);
  }
  EXPECT_EQ(DllCanUnloadNow(), TSLM5_OK) << "nothing is left behind";
}

TEST(DllGetClassObject, TellsOfNullPointers) {
  void* object = &object;
  EXPECT_EQ(DllGetClassObject(nullptr, &IClassFactory::kId, &object), TSLM5_NULL_POINTER);
  EXPECT_EQ(object, nullptr);
  object = &object;
  EXPECT_EQ(DllGetClassObject(&class_id::kDataSetLite, nullptr, &object), TSLM5_NULL_POINTER);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(DllGetClassObject(&class_id::kDataSetLite, &IClassFactory::kId, nullptr),
            TSLM5_NULL_POINTER);
}

TEST(DllGetClassObject, ReadsIdentifiersAtAnyAddress) {
  alignas(Uuid) unsigned char bytes[2 * sizeof(Uuid) + 1];
  std::copy_n(reinterpret_cast<const unsigned char*>(&class_id::kDataSetLite), sizeof(Uuid),
              bytes + 1);
  std::copy_n(reinterpret_cast<const unsigned char*>(&IUnknown::kId), sizeof(Uuid),
              bytes + 1 + sizeof(Uuid));
  void* object = nullptr;
  ASSERT_EQ(DllGetClassObject(bytes + 1, bytes + 1 + sizeof(Uuid), &object), TSLM5_OK);
  static_cast<IUnknown*>(object)->Release();
}

TEST(DllCanUnloadNow, IsSoWhenNothingLives) {
  EXPECT_EQ(DllCanUnloadNow(), TSLM5_OK);
}

TEST(DllCanUnloadNow, IsNotSoWhileAClassObjectLives) {
  Ref<IClassFactory> factory = ClassObject(class_id::kRunSchema);
  EXPECT_EQ(DllCanUnloadNow(), TSLM5_FALSE);
  factory.Reset();
  EXPECT_EQ(DllCanUnloadNow(), TSLM5_OK);
}

TEST(DllCanUnloadNow, IsNotSoWhileAnObjectLivesInAnyOfItsFaces) {
  for (const PublicClass& entry : kClasses) {
    Ref<IUnknown> made = ClassObject(entry.id)->CreateInstance();
    EXPECT_EQ(DllCanUnloadNow(), TSLM5_FALSE) << entry.type_name;
    void* face = nullptr;
    ASSERT_TRUE(made->QueryInterface(entry.default_interface, &face));
    made.Reset();
    EXPECT_EQ(DllCanUnloadNow(), TSLM5_FALSE) << entry.type_name;
    static_cast<IUnknown*>(face)->Release();
    EXPECT_EQ(DllCanUnloadNow(), TSLM5_OK) << entry.type_name;
  }
}

TEST(DllCanUnloadNow, IsNotSoWhileALockIsHeld) {
  const auto lock = [](bool is_lock) { ClassObject(class_id::kDataSetLite)->LockServer(is_lock); };
  lock(true);
  lock(true);
  EXPECT_EQ(DllCanUnloadNow(), TSLM5_FALSE);
  lock(false);
  EXPECT_EQ(DllCanUnloadNow(), TSLM5_FALSE) << "one lock is left";
  lock(false);
  EXPECT_EQ(DllCanUnloadNow(), TSLM5_OK);
  lock(false);
  lock(true);
  EXPECT_EQ(DllCanUnloadNow(), TSLM5_FALSE) << "ending a lock that is not held did nothing";
  lock(false);
}

}  // namespace
}  // namespace tslm5
