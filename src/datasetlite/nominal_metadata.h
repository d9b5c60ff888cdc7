#ifndef TSLM5_DATASETLITE_NOMINAL_METADATA_H_
#define TSLM5_DATASETLITE_NOMINAL_METADATA_H_

#include <string>
#include <string_view>

#include "datasetlite/data_set_lite_state.h"
#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// `INominalDataSetMetadata` of a `DataSetLite`: the categories of its run, as the tables are now.
class NominalMetadataFacet final : public Facet<INominalDataSetMetadata> {
 public:
  NominalMetadataFacet(IUnknown& owner, DataSetLiteState& state) : Facet(owner), state_(state) {}
  Variant GetCategories(std::int32_t pColumnIndex) override;
  Variant GetCategoricalIndexes() override;
  Variant GetCategoricalNames() override;
  void UpdateCategory(std::string_view pName, std::string_view pNominal,
                      const Variant& pValue) override;
  bool AnalyseResponseCategories(std::string& pMessage) override;
  bool GetIsCategorical(std::int32_t pColumnIndex) override;
  double GetModeMapping(std::int32_t pColumnIndex) override;
  bool IsResponseMerging() override;
  void UpdateMergingResponseCategories() override;
  void GetResponseEncoding(std::string& pPositiveClass, double& pZeroValue,
                           double& pOneValue) override;
  void SavePositiveClass(std::string_view pPositiveClass) override;

 private:
  /// The response's column index in decimal; raises 41011 of `source` when the set has no data.
  std::string Response(const char* source) const;
  void Execute(const std::string& statement) const { ConnectionOf(state_)->Execute(statement); }
  bool TestingSetExists() const { return ConnectionOf(state_)->TableExists("TestingSet"); }

  DataSetLiteState& state_;
};

}  // namespace tslm5

#endif  // TSLM5_DATASETLITE_NOMINAL_METADATA_H_
