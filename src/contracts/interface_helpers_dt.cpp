#include "contracts/interface_helpers_dt.h"

#include "tslm5/contracts/lifecycle.h"
#include "tslm5/platform/error.h"

namespace tslm5::InterfaceHelpersDt {

namespace {

template <class I>
Ref<I> Cast(IUnknown* object) {
  Ref<I> face = Query<I>(object);
  if (!face) RaiseTypeMismatch();
  return face;
}

void ReplaceAll(std::string& text, std::string_view placeholder, const std::string& value) {
  for (auto place = text.find(placeholder); place != std::string::npos;
       place = text.find(placeholder, place + value.size())) {
    text.replace(place, placeholder.size(), value);
  }
}

}  // namespace

bool Save(IUnknown* object, const Variant& run_path, const Variant& params) {
  return Cast<IPersistable>(object)->Save(run_path, params);
}

bool Load(IUnknown* object, const Variant& run_path, const Variant& params) {
  return Cast<IPersistable>(object)->Load(run_path, params);
}

Ref<IUnknown> Clone(IUnknown* object, const Variant& params) {
  if (object == nullptr) return nullptr;
  return Cast<ICloneableEx>(object)->Clone(params);
}

void Dispose(IUnknown* object, bool is_disposing) {
  if (object != nullptr) Cast<IDisposable>(object)->Dispose(is_disposing);
}

std::string FillTemplate(std::string_view text, std::int32_t set_type, std::int32_t set_id) {
  std::string filled(text);
  ReplaceAll(filled, "<SET_TYPE>", std::to_string(set_type));
  ReplaceAll(filled, "<SET_ID>", std::to_string(set_id));
  return filled;
}

}  // namespace tslm5::InterfaceHelpersDt
