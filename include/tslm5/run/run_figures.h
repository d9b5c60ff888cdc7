#ifndef TSLM5_RUN_RUN_FIGURES_H_
#define TSLM5_RUN_RUN_FIGURES_H_

#include <cstdint>
#include <vector>

#include "tslm5/platform/unknown.h"
#include "tslm5/run/run_records.h"

namespace tslm5 {

/// The figures that a run keeps of its columns, a face of the class `RunCatalog`: those of the
/// statistics, and those by which columns are scaled.
class IRunFigures : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000036ULL, 0x8a1f4c0b6d2e7336ULL};

  /// The statistics of a set by column; none when they were not computed.
  virtual void ReadFigures(std::int32_t pType, std::vector<RunFigures>& pFigures) = 0;
  /// The same class by class; none for a response of more than two values.
  virtual void ReadClassFigures(std::int32_t pType, std::vector<RunClassFigures>& pClasses) = 0;
  /// Drops the statistics of a set, those of its classes too.
  virtual void DropFigures(std::int32_t pType) = 0;
  /// Whether the run has figures that a column is scaled by.
  virtual bool HasScaleFigures() = 0;
  /// The figures that each column is scaled by, one element a column of the run.
  virtual void ReadScaleFigures(std::vector<ScaleFigures>& pFigures) = 0;
  /// Replaces them, one element a column.
  virtual void WriteScaleFigures(const std::vector<ScaleFigures>& pFigures) = 0;
  /// Replaces them by those of the training set's first `pColumns` columns as they stand there;
  /// without a training set by none.
  virtual void ComputeScaleFigures(std::int32_t pColumns) = 0;
  /// Renews those of one column by the codes that stand in the training set, cells with a
  /// missing-value token left out.
  virtual void RenewScaleFigures(std::int32_t pColumn) = 0;
  /// Drops them.
  virtual void DropScaleFigures() = 0;

 protected:
  ~IRunFigures() = default;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_FIGURES_H_
