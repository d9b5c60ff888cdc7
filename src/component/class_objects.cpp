#include "component/class_objects.h"

#include <atomic>

#include "contracts/event_args_objects.h"
#include "datacheck/data_check_object.h"
#include "datasetlite/data_set_lite.h"
#include "delimited/reader_object.h"
#include "inmemory/in_memory_set.h"
#include "original/original_data_set.h"
#include "platform/only_errors.h"
#include "preparation/run_preparation_object.h"
#include "run/run_catalog_object.h"
#include "storage/run_tables.h"
#include "tslm5/platform/object.h"

namespace tslm5 {
namespace {

using Make = Ref<IUnknown> (*)();

struct PublicClass {
  std::string_view name;
  Uuid id;
  Make make;
};

// One line a class: its name, its identifier and the one function that makes its objects.
constexpr PublicClass kClasses[] = {
    {"DataSetLite", class_id::kDataSetLite, MakeDataSetLite},
    {"InMemorySet", class_id::kInMemorySet, MakeInMemorySet},
    {"OriginalDataSet", class_id::kOriginalDataSet, MakeOriginalDataSet},
    {"ParseEventArgs", class_id::kParseEventArgs,
     [] { return Ref<IUnknown>(MakeParseEventArgs()); }},
    {"RecordParsedEventArgs", class_id::kRecordParsedEventArgs,
     [] { return Ref<IUnknown>(MakeRecordParsedEventArgs()); }},
    {"RunCatalog", class_id::kRunCatalog, MakeRunCatalog},
    {"RunPreparation", class_id::kRunPreparation, MakeRunPreparation},
    {"RunSchema", class_id::kRunSchema, [] { return Ref<IUnknown>(MakeRunSchema()); }},
    {"DelimitedReader", class_id::kDelimitedReader,
     [] { return Ref<IUnknown>(delimited::MakeReaderObject()); }},
    {"DataCheck", class_id::kDataCheck, [] { return Ref<IUnknown>(MakeDataCheck()); }},
};

std::atomic<std::int64_t> server_locks{0};

class ClassObject final : public CountedObject<IClassFactory> {
 public:
  explicit ClassObject(Make make) : make_(make) {}

  std::string_view TypeName() override { return "ClassObject"; }
  Ref<IUnknown> CreateInstance() override { return OnlyErrors(make_); }
  void LockServer(bool pLock) override {
    if (pLock) {
      ++server_locks;
      return;
    }
    std::int64_t held = server_locks;
    while (held > 0 && !server_locks.compare_exchange_weak(held, held - 1)) {
    }
  }

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

std::int64_t ServerLocks() {
  return server_locks;
}

std::vector<PublicClassName> PublicClassNames() {
  std::vector<PublicClassName> names;
  for (const PublicClass& entry : kClasses) names.push_back({entry.name, entry.id});
  return names;
}

}  // namespace tslm5
