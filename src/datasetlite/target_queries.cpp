// `IDataSet`: what is not built yet. Each operation says so by its error.
#include "datasetlite/data_set_facet.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

[[noreturn]] void RaiseNotImplemented(const char* operation) {
  throw Error(error_number::kNotImplemented, operation, "NOT IMPLEMENTED");
}

}  // namespace

bool DataSetFacet::FormatDataAs(std::int32_t) {
  RaiseNotImplemented("FormatDataAs");
}
bool DataSetFacet::SetData(IUnknown*, std::int32_t) {
  RaiseNotImplemented("SetData");
}
double DataSetFacet::GetMax(std::int32_t, std::int32_t, std::int32_t) {
  RaiseNotImplemented("GetMax");
}
double DataSetFacet::GetMin(std::int32_t, std::int32_t, std::int32_t) {
  RaiseNotImplemented("GetMin");
}
std::int32_t DataSetFacet::GetTargetMinorityClassCount() {
  RaiseNotImplemented("GetTargetMinorityClassCount");
}
void DataSetFacet::GetAverageModel(VariantArray&) {
  RaiseNotImplemented("GetAverageModel");
}
double DataSetFacet::GetGlobalCentroid(std::int32_t) {
  RaiseNotImplemented("GetGlobalCentroid");
}
double DataSetFacet::GetGlobalMedoid(std::int32_t) {
  RaiseNotImplemented("GetGlobalMedoid");
}
void DataSetFacet::GetClassCentroid(std::int32_t, std::int32_t, double&, double&) {
  RaiseNotImplemented("GetClassCentroid");
}
void DataSetFacet::GetClassMedoid(std::int32_t, std::int32_t, double&, double&) {
  RaiseNotImplemented("GetClassMedoid");
}
bool DataSetFacet::HasClassRecordStatistics() {
  RaiseNotImplemented("HasClassRecordStatistics");
}
bool DataSetFacet::HasGlobalRecordStatistics() {
  RaiseNotImplemented("HasGlobalRecordStatistics");
}
void DataSetFacet::CalculateStatistics(IFeedback*) {
  RaiseNotImplemented("CalculateStatistics");
}
std::int32_t DataSetFacet::GetTargetClassCount(std::int32_t) {
  RaiseNotImplemented("GetTargetClassCount");
}
double DataSetFacet::GetStandardDeviation(std::int32_t) {
  RaiseNotImplemented("GetStandardDeviation");
}
double DataSetFacet::GetTargetMajorityClass() {
  RaiseNotImplemented("GetTargetMajorityClass");
}

}  // namespace tslm5
