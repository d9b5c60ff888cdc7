#include "contracts/interface_helpers_dt.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/raised.h"
#include "platform/test_objects.h"
#include "tslm5/contracts/lifecycle.h"

namespace tslm5 {
namespace {

/// Notes the calls that it gets.
class Recorder final : public FacetOwner {
 public:
  explicit Recorder(bool result) : result_(result) {}
  std::string_view TypeName() override { return "Recorder"; }

  std::string log;

 protected:
  void* FindFacet(const Uuid& pId) override {
    if (pId == IPersistable::kId) return static_cast<IPersistable*>(&persistable_);
    if (pId == ICloneableEx::kId) return static_cast<ICloneableEx*>(&cloneable_);
    if (pId == IDisposable::kId) return static_cast<IDisposable*>(&disposable_);
    return nullptr;
  }

 private:
  struct PersistableFacet final : Facet<IPersistable> {
    explicit PersistableFacet(Recorder& owner) : Facet(owner), recorder(owner) {}
    bool Save(const Variant& pRunPath, const Variant& pParams) override {
      recorder.log += "Save(" + pRunPath.ToString() + "," + pParams.ToString() + ")";
      return recorder.result_;
    }
    bool Load(const Variant& pRunPath, const Variant& pParams) override {
      recorder.log += "Load(" + pRunPath.ToString() + "," + pParams.ToString() + ")";
      return recorder.result_;
    }
    Recorder& recorder;
  };
  struct CloneableFacet final : Facet<ICloneableEx> {
    explicit CloneableFacet(Recorder& owner) : Facet(owner), recorder(owner) {}
    Ref<IUnknown> Clone(const Variant& pParams) override {
      recorder.log += "Clone(" + pParams.ToString() + ")";
      return MakeObject<OneFace>();
    }
    Recorder& recorder;
  };
  struct DisposableFacet final : Facet<IDisposable> {
    explicit DisposableFacet(Recorder& owner) : Facet(owner), recorder(owner) {}
    void Dispose(bool pIsDisposing) override {
      recorder.log += pIsDisposing ? "Dispose(true)" : "Dispose(false)";
    }
    Recorder& recorder;
  };

  ~Recorder() override = default;

  bool result_;
  PersistableFacet persistable_{*this};
  CloneableFacet cloneable_{*this};
  DisposableFacet disposable_{*this};
};

TEST(InterfaceHelpersDt, SavePassesBothVariantsAndTheResult) {
  const auto yes = MakeObject<Recorder>(true);
  const auto no = MakeObject<Recorder>(false);
  EXPECT_TRUE(InterfaceHelpersDt::Save(yes.get(), "run", 2));
  EXPECT_FALSE(InterfaceHelpersDt::Save(no.get(), "other", 1));
  EXPECT_EQ(yes->log, "Save(run,2)");
  EXPECT_EQ(no->log, "Save(other,1)");
}

TEST(InterfaceHelpersDt, LoadPassesBothVariantsAndTheResult) {
  const auto yes = MakeObject<Recorder>(true);
  const auto no = MakeObject<Recorder>(false);
  EXPECT_TRUE(InterfaceHelpersDt::Load(yes.get(), "run", 2));
  EXPECT_FALSE(InterfaceHelpersDt::Load(no.get(), "other", 1));
  EXPECT_EQ(yes->log, "Load(run,2)");
  EXPECT_EQ(no->log, "Load(other,1)");
}

TEST(InterfaceHelpersDt, CloneGivesTheNewObject) {
  const auto object = MakeObject<Recorder>(true);
  const Ref<IUnknown> clone = InterfaceHelpersDt::Clone(object.get(), 5);
  ASSERT_TRUE(clone);
  EXPECT_EQ(clone->TypeName(), "OneFace");
  EXPECT_EQ(object->log, "Clone(5)");
}

TEST(InterfaceHelpersDt, DisposePassesItsFlag) {
  const auto object = MakeObject<Recorder>(true);
  InterfaceHelpersDt::Dispose(object.get(), true);
  InterfaceHelpersDt::Dispose(object.get(), false);
  EXPECT_EQ(object->log, "Dispose(true)Dispose(false)");
}

TEST(InterfaceHelpersDt, NothingIsClonedToNothingAndNotDisposed) {
  EXPECT_FALSE(InterfaceHelpersDt::Clone(nullptr, 5));
  EXPECT_EQ(RaisedNumber([] { InterfaceHelpersDt::Dispose(nullptr, true); }), 0);
}

TEST(InterfaceHelpersDt, AnObjectWithoutTheInterfaceRaisesThirteen) {
  const auto object = MakeObject<OneFace>();
  IUnknown* const raw = object.get();
  EXPECT_EQ(RaisedNumber([=] { InterfaceHelpersDt::Save(raw, "run", 1); }), 13);
  EXPECT_EQ(RaisedNumber([=] { InterfaceHelpersDt::Load(raw, "run", 1); }), 13);
  EXPECT_EQ(RaisedNumber([=] { InterfaceHelpersDt::Clone(raw, 1); }), 13);
  EXPECT_EQ(RaisedNumber([=] { InterfaceHelpersDt::Dispose(raw, true); }), 13);
  EXPECT_EQ(RaisedNumber([] { InterfaceHelpersDt::Save(nullptr, "run", 1); }), 13);
  EXPECT_EQ(RaisedNumber([] { InterfaceHelpersDt::Load(nullptr, "run", 1); }), 13);
  EXPECT_EQ(CountOf(*raw), 1u);
}

TEST(InterfaceHelpersDt, FillTemplateFillsEveryPlaceholder) {
  struct Case {
    const char* text;
    const char* filled;
  };
  for (const Case& c : {
           Case{"", ""},
           {"SELECT 1", "SELECT 1"},
           {"DELETE FROM DataSetLabels Where SetId = <SET_ID>;",
            "DELETE FROM DataSetLabels Where SetId = 12;"},
           {"<SET_TYPE>", "-3"},
           {"<SET_TYPE><SET_ID><SET_TYPE>, <SET_ID>", "-312-3, 12"},
           {"<<SET_ID>>", "<12>"},
           {"<set_id> <SET_ID <SET_TYPE>>", "<set_id> <SET_ID -3>"},
       }) {
    EXPECT_EQ(InterfaceHelpersDt::FillTemplate(c.text, -3, 12), c.filled) << c.text;
  }
}

}  // namespace
}  // namespace tslm5
