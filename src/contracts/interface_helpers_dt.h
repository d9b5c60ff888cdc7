#ifndef TSLM5_SRC_CONTRACTS_INTERFACE_HELPERS_DT_H_
#define TSLM5_SRC_CONTRACTS_INTERFACE_HELPERS_DT_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/platform/ref.h"
#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

/// Calls through an interface of an object that is held as a plain reference, and the filling of
/// statement templates. An object without the interface raises 13.
namespace tslm5::InterfaceHelpersDt {

/// `IPersistable::Save` of `object`, which may not be null (13).
bool Save(IUnknown* object, const Variant& run_path, const Variant& params);

/// `IPersistable::Load` of `object`, which may not be null (13).
bool Load(IUnknown* object, const Variant& run_path, const Variant& params);

/// `ICloneableEx::Clone` of `object`; empty when `object` is null.
Ref<IUnknown> Clone(IUnknown* object, const Variant& params);

/// `IDisposable::Dispose` of `object`; nothing happens when `object` is null.
void Dispose(IUnknown* object, bool is_disposing);

/// `text` with every "<SET_TYPE>" replaced by `set_type` and every "<SET_ID>" by `set_id`, both in
/// decimal.
std::string FillTemplate(std::string_view text, std::int32_t set_type, std::int32_t set_id);

}  // namespace tslm5::InterfaceHelpersDt

#endif  // TSLM5_SRC_CONTRACTS_INTERFACE_HELPERS_DT_H_
