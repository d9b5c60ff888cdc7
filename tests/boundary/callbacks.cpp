#include "boundary/callbacks.h"

#include <cstdint>

#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/data_set_lite.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/in_memory_set.h"
#include "tslm5/contracts/is_dirty.h"
#include "tslm5/contracts/iterator.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/lr_services.h"
#include "tslm5/contracts/missing_metadata.h"
#include "tslm5/contracts/nominal_data_set.h"
#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/contracts/time_series.h"
#include "tslm5/contracts/vectorize.h"

namespace tslm5 {
namespace {

constexpr std::int32_t kComma = separator_code::kComma;
constexpr std::int32_t kType = data_set_type::kTraining;
constexpr std::int32_t kRows = layout_code::kRecordsInRows;

class CallbackList {
 public:
  /// Operations that only look.
  template <class I, class Action>
  void Reads(const char* name, Action action) {
    Add<I>(name, false, action);
  }
  /// Operations that may change something.
  template <class I, class Action>
  void Changes(const char* name, Action action) {
    Add<I>(name, true, action);
  }

  std::vector<Callback> list;

 private:
  template <class I, class Action>
  void Add(const char* name, bool changes, Action action) {
    list.push_back({name, changes, [action](IUnknown* set, const CallbackScene& scene) {
                      const Ref<I> face = Query<I>(set);
                      if (face) action(*face, scene);
                    }});
  }
};

using Scene = const CallbackScene&;

void AddReadingOfTheSet(CallbackList& add) {
  add.Reads<IDataSet>("Rows", [](IDataSet& set, Scene) { set.Rows(); });
  add.Reads<IDataSet>("Columns", [](IDataSet& set, Scene) { set.Columns(); });
  add.Reads<IDataSet>("TerminalCount", [](IDataSet& set, Scene) { set.TerminalCount(); });
  add.Reads<IDataSet>("IsReady", [](IDataSet& set, Scene) { set.IsReady(); });
  add.Reads<IDataSet>("Name", [](IDataSet& set, Scene) { set.Name(); });
  add.Reads<IDataSet>("GetProperty", [](IDataSet& set, Scene) { set.GetProperty("Separator"); });
  add.Reads<IDataSet>("GetItem", [](IDataSet& set, Scene) { set.GetItem(1, 1); });
  add.Reads<IDataSet>("GetItemString", [](IDataSet& set, Scene) { set.GetItemString(1, 1); });
  add.Reads<IDataSet>("GetLabel", [](IDataSet& set, Scene) { set.GetLabel(1); });
  add.Reads<IDataSet>("GetLongLabel", [](IDataSet& set, Scene) { set.GetLongLabel(1); });
  add.Reads<IDataSet>("GetMax", [](IDataSet& set, Scene) { set.GetMax(1, 0, 1); });
  add.Reads<IDataSet>("GetMin", [](IDataSet& set, Scene) { set.GetMin(1, 0, 0); });
  add.Reads<IDataSet>("GetTargetMinorityClassCount",
                      [](IDataSet& set, Scene) { set.GetTargetMinorityClassCount(); });
  add.Reads<IDataSet>("GetTargetClassCount",
                      [](IDataSet& set, Scene) { set.GetTargetClassCount(0); });
  add.Reads<IDataSet>("GetTargetMajorityClass",
                      [](IDataSet& set, Scene) { set.GetTargetMajorityClass(); });
  add.Reads<IDataSet>("GetAverageModel", [](IDataSet& set, Scene) {
    VariantArray means;
    set.GetAverageModel(means);
  });
  add.Reads<IDataSet>("GetGlobalCentroid", [](IDataSet& set, Scene) { set.GetGlobalCentroid(1); });
  add.Reads<IDataSet>("GetClassMedoid", [](IDataSet& set, Scene) {
    double class_value = 0;
    double value = 0;
    set.GetClassMedoid(0, 0, class_value, value);
  });
  add.Reads<IDataSet>("GetStandardDeviation",
                      [](IDataSet& set, Scene) { set.GetStandardDeviation(0); });
  add.Reads<IDataSet>("GetRowOriginalIndex",
                      [](IDataSet& set, Scene) { set.GetRowOriginalIndex(1); });
  add.Reads<IDataSet>("GetRowOriginalValue",
                      [](IDataSet& set, Scene) { set.GetRowOriginalValue(1, 0); });
  add.Reads<IDataSet>("IsValidDataSet", [](IDataSet& set, Scene scene) {
    std::int32_t separator = kComma;
    std::string message;
    set.IsValidDataSet(scene.file, false, separator, message);
  });
}

void AddChangingOfTheSet(CallbackList& add) {
  add.Changes<IDataSet>("Parse", [](IDataSet& set, Scene scene) {
    set.Parse(scene.file, kComma, false, kType, kRows);
  });
  add.Changes<IDataSet>("Parse of no file", [](IDataSet& set, Scene) {
    set.Parse("/no such file", kComma, false, kType, kRows);
  });
  add.Changes<IDataSet>("ParseString", [](IDataSet& set, Scene) {
    std::string text = "50,60\n70,80\n";
    set.ParseString(text, kComma, false, kType, kRows, nullptr);
  });
  add.Changes<IDataSet>("Replace",
                        [](IDataSet& set, Scene scene) { set.Replace(scene.file, kComma, false); });
  add.Changes<IDataSet>("SetData",
                        [](IDataSet& set, Scene scene) { set.SetData(scene.source, kType); });
  add.Changes<IDataSet>("Clear", [](IDataSet& set, Scene) { set.Clear(); });
  add.Changes<IDataSet>("FormatDataAs", [](IDataSet& set, Scene) { set.FormatDataAs(0); });
  add.Changes<IDataSet>("SetLabels", [](IDataSet& set, Scene) { set.SetLabels("p q"); });
  add.Changes<IDataSet>("ResetProperties", [](IDataSet& set, Scene) { set.ResetProperties(); });
  add.Changes<IDataSet>("SetProperty", [](IDataSet& set, Scene) { set.SetProperty("1", "Own"); });
  add.Changes<IDataSet>("DataSetType", [](IDataSet& set, Scene) { set.put_DataSetType(2); });
  add.Changes<IDataSet>("ProblemCategory",
                        [](IDataSet& set, Scene) { set.put_ProblemCategory(1); });
  add.Changes<IDataSet>("CalculateStatistics",
                        [](IDataSet& set, Scene) { set.CalculateStatistics(nullptr); });
  add.Changes<INominalDataSet>("Nominal.Parse", [](INominalDataSet& set, Scene scene) {
    set.Parse(scene.file, kComma, false, kType, kRows, 2, nullptr);
  });
  add.Reads<INominalDataSet>("Nominal.GetItem",
                             [](INominalDataSet& set, Scene) { set.GetItem(1, 1); });
  add.Changes<IInMemorySet>("SetDataSetType",
                            [](IInMemorySet& set, Scene) { set.SetDataSetType(5); });
  add.Reads<IInMemorySet>("Memory.Clone", [](IInMemorySet& set, Scene) { set.Clone(); });
}

void AddCompanions(CallbackList& add) {
  add.Reads<IIterator>("GetCurrentSample", [](IIterator& face, Scene) {
    Array<double> sample;
    face.GetCurrentSample(sample);
  });
  add.Reads<IVectorize>("Vectorize", [](IVectorize& face, Scene) {
    VariantArray values;
    face.Vectorize(0, values, 0, -1);
  });
  add.Reads<IExtraSet>("ExtraSet.Exists", [](IExtraSet& face, Scene) { face.Exists(); });
  add.Reads<IExtraSet>("ExtraSet.GetItem", [](IExtraSet& face, Scene) { face.GetItem(0, 0); });
  add.Changes<IExtraSet>("ExtraSet.SetItem", [](IExtraSet& face, Scene) { face.SetItem(0, 0, 5); });
  add.Changes<IIsDirty>("IsDirty", [](IIsDirty& face, Scene) { face.put_IsDirty(false); });
  add.Reads<ICloneableEx>("Clone", [](ICloneableEx& face, Scene) { face.Clone(Variant(kType)); });
  add.Reads<ILRServices>("IsBinary", [](ILRServices& face, Scene) { face.IsBinary(); });
  add.Changes<IPersistable>("Save",
                            [](IPersistable& face, Scene scene) { face.Save(scene.run, kType); });
  add.Changes<IPersistable>("Load",
                            [](IPersistable& face, Scene scene) { face.Load(scene.run, kType); });
  add.Changes<IConstructor>("Init", [](IConstructor& face, Scene scene) {
    face.Init(VariantArray({scene.run, Variant(kType)}));
  });
  add.Changes<IDisposable>("Dispose", [](IDisposable& face, Scene) { face.Dispose(true); });
  add.Reads<IDeploymentDataSet>("View.GetItem",
                                [](IDeploymentDataSet& face, Scene) { face.GetItem(0, 0); });
  add.Changes<IDeploymentDataSet>(
      "View.Open", [](IDeploymentDataSet& face, Scene scene) { face.Open(scene.run, 1, false); });
}

void AddMetadata(CallbackList& add) {
  using Nominal = INominalDataSetMetadata;
  using Missing = IMissingMetadata;
  add.Reads<Nominal>("GetCategories", [](Nominal& face, Scene) { face.GetCategories(0); });
  add.Reads<Nominal>("GetCategoricalNames",
                     [](Nominal& face, Scene) { face.GetCategoricalNames(); });
  add.Reads<Nominal>("GetModeMapping", [](Nominal& face, Scene) { face.GetModeMapping(0); });
  add.Changes<Nominal>("UpdateCategory",
                       [](Nominal& face, Scene) { face.UpdateCategory("d0", "x", Variant(5)); });
  add.Changes<Nominal>("SavePositiveClass",
                       [](Nominal& face, Scene) { face.SavePositiveClass("x"); });
  add.Changes<Nominal>("AnalyseResponseCategories", [](Nominal& face, Scene) {
    std::string message;
    face.AnalyseResponseCategories(message);
  });
  add.Reads<Missing>("GetMissingCount", [](Missing& face, Scene) { face.GetMissingCount(0); });
  add.Changes<Missing>("ApplyMissing", [](Missing& face, Scene) { face.ApplyMissing(0); });
  add.Changes<Missing>("UpdateMissing", [](Missing& face, Scene) {
    face.UpdateMissing(0, Variant("NA"), Variant(1.0), 1);
  });
}

void AddTimeSeries(CallbackList& add) {
  add.Changes<IDataSetLite>("CopyTimeSeries",
                            [](IDataSetLite& face, Scene) { face.CopyTimeSeries(); });
  add.Changes<IDataSetLite>("UndoCopy", [](IDataSetLite& face, Scene) { face.UndoCopy(); });
  add.Changes<IDataSetLite>("ClearUndo", [](IDataSetLite& face, Scene) { face.ClearUndo(); });
  add.Reads<IDataSetLite>("GetMissingStatisticsValue", [](IDataSetLite& face, Scene) {
    face.GetMissingStatisticsValue(0, "mean");
  });
  add.Changes<ITimeSeriesChanges>("ResetTimeSeries",
                                  [](ITimeSeriesChanges& face, Scene) { face.ResetTimeSeries(); });
  add.Changes<ITimeSeriesChanges>("UndoReset",
                                  [](ITimeSeriesChanges& face, Scene) { face.UndoReset(); });
  add.Changes<ITimeSeriesChanges>("ClearReset",
                                  [](ITimeSeriesChanges& face, Scene) { face.ClearReset(); });
  add.Changes<ITimeSeriesDataSet>(
      "LoadTimeSeriesLabel", [](ITimeSeriesDataSet& face, Scene) { face.LoadTimeSeriesLabel(); });
}

}  // namespace

const std::vector<Callback>& Callbacks() {
  static const std::vector<Callback> kCallbacks = [] {
    CallbackList add;
    AddReadingOfTheSet(add);
    AddChangingOfTheSet(add);
    AddCompanions(add);
    AddMetadata(add);
    AddTimeSeries(add);
    return add.list;
  }();
  return kCallbacks;
}

}  // namespace tslm5
