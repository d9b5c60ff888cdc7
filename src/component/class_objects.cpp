#include "component/class_objects.h"

#include "contracts/event_args_objects.h"
#include "datasetlite/data_set_lite.h"
#include "inmemory/in_memory_set.h"
#include "storage/run_tables.h"
#include "tslm5/platform/object.h"

namespace tslm5 {
namespace {

using Make = Ref<IUnknown> (*)();

struct PublicClass {
  Uuid id;
  Make make;
};

// One line a class: its identifier and the one function that makes its objects.
constexpr PublicClass kClasses[] = {
    {class_id::kDataSetLite, MakeDataSetLite},
    {class_id::kInMemorySet, MakeInMemorySet},
    {class_id::kParseEventArgs, [] { return Ref<IUnknown>(MakeParseEventArgs()); }},
    {class_id::kRecordParsedEventArgs, [] { return Ref<IUnknown>(MakeRecordParsedEventArgs()); }},
    {class_id::kRunSchema, [] { return Ref<IUnknown>(MakeRunSchema()); }},
};

class ClassObject final : public CountedObject<IClassFactory> {
 public:
  explicit ClassObject(Make make) : make_(make) {}

  std::string_view TypeName() override { return "ClassObject"; }
  Ref<IUnknown> CreateInstance() override { return make_(); }

 private:
  ~ClassObject() override = default;

  Make make_;
};

}  // namespace

Ref<IClassFactory> MakeClassObject(const Uuid& id) {
  for (const PublicClass& entry : kClasses) {
    if (entry.id == id) return MakeObject<ClassObject>(entry.make);
  }
  return nullptr;
}

}  // namespace tslm5
