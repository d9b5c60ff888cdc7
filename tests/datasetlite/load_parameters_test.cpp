// The run and the type code that `IPersistable::Load` and `IPersistable::Save` are given.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

/// An object that is no run, with a type name of its own.
class Stranger final : public CountedObject<IUnknown> {
 public:
  explicit Stranger(std::string_view name) : name_(name) {}
  std::string_view TypeName() override { return name_; }

 private:
  ~Stranger() override = default;
  std::string_view name_;
};

class DataSetLiteRunParameters : public DataSetLiteTest {
 protected:
  DataSetLiteRunParameters() { Parse("1,2\n3,4\n"); }

  /// What is neither a run object nor the path of a file.
  std::vector<Variant> BadRuns() const {
    return {Variant(),
            Variant(""),
            Variant(folder_.PathOf("absent.db")),
            Variant(folder_.Path()),
            Variant(Null{}),
            Variant(7),
            Variant(Ref<IUnknown>()),
            Variant(Ref<IUnknown>(MakeObject<Stranger>("run"))),
            Variant(Ref<IUnknown>(MakeObject<Stranger>("Runs")))};
  }
};

constexpr const char* kNoFile = "Run path is empty or the file does not exist.";

TEST_F(DataSetLiteRunParameters, MustNameARunOrAFileToLoad) {
  for (const Variant& run : BadRuns()) {
    const Error error = Raised([&] { set_.Load(run, 2); });
    EXPECT_EQ(error.Number(), 41001);
    EXPECT_EQ(error.Source(), "ORVDtmgt_IPersistable_Load");
    EXPECT_EQ(error.Description(), kNoFile);
  }
  EXPECT_EQ(set_->DataSetType(), 1);
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "3,4"}));
}

TEST_F(DataSetLiteRunParameters, MustNameARunOrAFileToSave) {
  for (const Variant& run : BadRuns()) {
    const Error error = Raised([&] { set_.As<IPersistable>()->Save(run, 2); });
    EXPECT_EQ(error.Number(), 41001);
    EXPECT_EQ(error.Source(), "IPersistable_Save");
    EXPECT_EQ(error.Description(), kNoFile);
  }
  EXPECT_EQ(set_->DataSetType(), 1);
  EXPECT_TRUE(set_.IsDirty());
}

TEST_F(DataSetLiteRunParameters, AreTestedForTheRunFirst) {
  const Error error = Raised([&] { set_.Load("", Variant()); });
  EXPECT_EQ(error.Description(), kNoFile);
}

TEST_F(DataSetLiteRunParameters, MustHoldATypeToLoad) {
  const LiteSet set;
  set->put_DataSetType(2);
  const Error error = Raised([&] { set.Load(Variant(run_.Service()), Variant()); });
  EXPECT_EQ(error.Number(), 41001);
  EXPECT_EQ(error.Source(), "ORVDtmgt_IPersistable_Load");
  EXPECT_EQ(error.Description(), "Invalid parameter.");
  EXPECT_EQ(set->DataSetType(), 2);
  EXPECT_EQ(RaisedNumber([&] { set->GetRowOriginalValue(0, 0); }), 41001) << "still unattached";
}

TEST_F(DataSetLiteRunParameters, MustHoldATypeToSave) {
  const Error error =
      Raised([&] { set_.As<IPersistable>()->Save(Variant(run_.Service()), Variant()); });
  EXPECT_EQ(error.Number(), 41001);
  EXPECT_EQ(error.Source(), "IPersistable_Save");
  EXPECT_EQ(error.Description(), "Invalid parameter.");
  EXPECT_TRUE(set_.IsDirty());
}

TEST_F(DataSetLiteRunParameters, MustHoldATypeThatIsANumber) {
  EXPECT_EQ(RaisedNumber([&] { set_.Load(Variant(run_.Service()), "one"); }), 13);
  EXPECT_EQ(RaisedNumber([&] { set_.As<IPersistable>()->Save(Variant(run_.Service()), "one"); }),
            13);
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "3,4"}));
  EXPECT_TRUE(set_.IsDirty());
}

TEST_F(DataSetLiteRunParameters, MayHoldTheTypeAsAText) {
  const LiteSet set;
  EXPECT_TRUE(set.Load(Variant(run_.Service()), "1"));
  EXPECT_EQ(set->DataSetType(), 1);
}

TEST_F(DataSetLiteRunParameters, GoOnWithTheRunHeldWhereAPathNamesAFile) {
  const Variant path(folder_.Write("run.db", "any file"));
  EXPECT_TRUE(set_.Load(path, 1));
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "3,4"}));
  EXPECT_TRUE(set_.As<IPersistable>()->Save(path, 1));
}

TEST_F(DataSetLiteRunParameters, NeedARunHeldWhereAPathNamesAFile) {
  const LiteSet set;
  const Error error = Raised([&] { set.Load(folder_.Write("run.db", "any file"), 1); });
  EXPECT_EQ(error.Number(), 41001);
  EXPECT_EQ(error.Source(), "ORVDtmgt_IPersistable_Load");
  EXPECT_EQ(error.Description(), "Invalid parameter.");
}

}  // namespace
}  // namespace tslm5
