#ifndef TSLM5_RUN_RUN_PARAMETERS_H_
#define TSLM5_RUN_RUN_PARAMETERS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// The parameters of a run, a face of the class `RunCatalog`. Each has a namespace
/// (`parameter_space`), a name (`run_parameter`) and a whole number or a number.
class IRunParameters : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000035ULL, 0x8a1f4c0b6d2e7335ULL};

  /// A whole number; 0 where there is none.
  virtual std::int32_t ReadWhole(std::string_view pSpace, std::string_view pName) = 0;
  /// A number; 0 where there is none.
  virtual double ReadNumber(std::string_view pSpace, std::string_view pName) = 0;
  /// The names in a space, in the order in which they were written.
  virtual void ReadNames(std::string_view pSpace, std::vector<std::string>& pNames) = 0;
  /// Writes a whole number, in the place of a former one.
  virtual void WriteWhole(std::string_view pSpace, std::string_view pName, std::int32_t pValue) = 0;
  /// Writes a number, in the place of a former one.
  virtual void WriteNumber(std::string_view pSpace, std::string_view pName, double pValue) = 0;
  /// Writes a whole number where there is a former one; without one there is nothing to do.
  virtual void ReplaceWhole(std::string_view pSpace, std::string_view pName,
                            std::int32_t pValue) = 0;
  /// Drops one parameter.
  virtual void DropParameter(std::string_view pSpace, std::string_view pName) = 0;
  /// Drops every parameter of a space.
  virtual void DropSpace(std::string_view pSpace) = 0;

 protected:
  ~IRunParameters() = default;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_PARAMETERS_H_
