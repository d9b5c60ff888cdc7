#include "trust/api_operations.h"

#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set_lite.h"
#include "tslm5/contracts/deployment_data_set.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/in_memory_set.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/missing_metadata.h"
#include "tslm5/contracts/nominal_data_set.h"
#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/contracts/run_schema.h"
#include "tslm5/contracts/time_series.h"
#include "tslm5/engine/connection.h"

namespace tslm5::trust {
namespace {

constexpr std::int32_t kTraining = data_set_type::kTraining;
constexpr std::int32_t kTesting = data_set_type::kTesting;

void OpenRunOf(Subject& subject) {
  RunOptions options;
  options.mode = RunOptions::Mode::kReadWriteCreate;
  options.busy_timeout_ms = 0;
  subject.run = OpenRun(subject.run_path, options);
}

Ref<IRunSchema> Schema() {
  return CreateObject<IRunSchema>(class_id::kRunSchema);
}

Ref<IConnection> ConnectionOf(const Subject& subject) {
  return Query<IConnection>(subject.run->GetConnection().ToObject());
}

/// A set that is attached to the run and has nothing loaded.
void Attach(Subject& subject) {
  OpenRunOf(subject);
  subject.set = CreateObject<IDataSet>(class_id::kDataSetLite);
  subject.set.As<IConstructor>()->Init(VariantArray({Variant(subject.run), Variant(kTraining)}));
}

/// The training set of the run.
void LoadTraining(Subject& subject) {
  OpenRunOf(subject);
  subject.set = CreateObject<IDataSet>(class_id::kDataSetLite);
  subject.set.As<IPersistable>()->Load(Variant(subject.run), kTraining);
}

void MakeInMemory(Subject& subject) {
  subject.set = CreateObject<IDataSet>(class_id::kInMemorySet);
}

bool ParseInto(IDataSet& set, const Subject& subject, std::int32_t type = kTraining) {
  set.Parse(subject.file, separator_code::kComma, true, type, layout_code::kRecordsInRows);
  return true;
}

/// Another set in memory with the records of the file, for `SetData`.
void ReadSource(Subject& subject) {
  const auto source = CreateObject<IDataSet>(class_id::kInMemorySet);
  ParseInto(*source, subject);
  subject.source = source.As<IUnknown>();
}

void PrepareEmbedding(Subject& subject) {
  LoadTraining(subject);
  subject.set->SetProperty("3", property_key::kEmbeddingDimension);
  subject.set->SetProperty("2", property_key::kDelayTime);
  subject.set->SetProperty("4", property_key::kTestingSamples);
}

bool SaveTraining(Subject& subject) {
  return subject.set.As<IPersistable>()->Save(Variant(subject.run), kTraining);
}

/// `change()` in a transaction of the caller's own, as the operation asks for one.
template <class Change>
bool InTransaction(Subject& subject, Change change) {
  const Ref<IConnection> connection = ConnectionOf(subject);
  connection->BeginTrans();
  try {
    change();
    connection->CommitTrans();
  } catch (...) {
    try {
      connection->RollbackTrans();
    } catch (const std::exception&) {  // the first failure is the one that is told
    }
    throw;
  }
  return true;
}

void WriteExtraSet(Subject& subject) {
  const auto extra = subject.set.As<IExtraSet>();
  for (std::int32_t row = 0; row < extra->Rows(); ++row) extra->SetItem(0, row, row + 0.5);
  SaveTraining(subject);
}

void WriteThroughRecordSet(const Subject& subject) {
  const auto records = ConnectionOf(subject)->OpenRecordSet("SELECT * FROM TrainingSet");
  for (std::int32_t i = 1; i <= records->RecordCount(); ++i) {
    records->MoveTo(i, 0);
    records->SetField(0, 1000.5 + i);
  }
  records->Update();
}

const Operation kOperations[] = {
    {"create-schema", OpenRunOf,
     [](Subject& subject) {
       Schema()->CreateSchema(subject.run.get());
       return true;
     }},
    {"parse", Attach, [](Subject& subject) { return ParseInto(*subject.set, subject); }},
    {"parse-over", LoadTraining, [](Subject& subject) { return ParseInto(*subject.set, subject); }},
    {"parse-testing", Attach,
     [](Subject& subject) { return ParseInto(*subject.set, subject, kTesting); }},
    {"replace", LoadTraining,
     [](Subject& subject) {
       subject.set->Replace(subject.file, separator_code::kComma, true);
       return true;
     }},
    {"set-data",
     [](Subject& subject) {
       Attach(subject);
       ReadSource(subject);
     },
     [](Subject& subject) { return subject.set->SetData(subject.source.get(), kTraining); }},
    {"set-data-over",
     [](Subject& subject) {
       LoadTraining(subject);
       ReadSource(subject);
     },
     [](Subject& subject) { return subject.set->SetData(subject.source.get(), kTraining); }},
    {"save",
     [](Subject& subject) {
       LoadTraining(subject);
       std::string labels;
       for (std::int32_t i = 0; i < subject.set->Columns(); ++i) {
         labels += (i > 0 ? " new" : "new") + std::to_string(i);
       }
       subject.set->SetLabels(labels);
     },
     SaveTraining},
    {"set-item", LoadTraining,
     [](Subject& subject) {
       return InTransaction(subject, [&subject] { WriteExtraSet(subject); });
     }},
    {"record-set", LoadTraining,
     [](Subject& subject) {
       return InTransaction(subject, [&subject] { WriteThroughRecordSet(subject); });
     }},
    {"format-data-as", PrepareEmbedding,
     [](Subject& subject) { return subject.set->FormatDataAs(0); }},
    {"clone", LoadTraining,
     [](Subject& subject) {
       subject.source = subject.set.As<ICloneableEx>()->Clone(kTesting);
       return static_cast<bool>(subject.source);
     }},
    {"reset-time-series", LoadTraining,
     [](Subject& subject) { return subject.set.As<ITimeSeriesChanges>()->ResetTimeSeries(); }},
    {"undo-reset", LoadTraining,
     [](Subject& subject) {
       subject.set.As<ITimeSeriesChanges>()->UndoReset();
       return true;
     }},
    {"clear-reset", LoadTraining,
     [](Subject& subject) {
       subject.set.As<ITimeSeriesChanges>()->ClearReset();
       return true;
     }},
    {"rename-training-labels", PrepareEmbedding,
     [](Subject& subject) {
       return InTransaction(
           subject, [&subject] { subject.set.As<ITimeSeriesDataSet>()->RenameTrainingLabels(); });
     }},
    {"save-column-data", LoadTraining,
     [](Subject& subject) {
       subject.set.As<IDataSetLite>()->SaveTimeSeriesDataSetColumnData(0);
       return true;
     }},
    {"update-category", LoadTraining,
     [](Subject& subject) {
       return InTransaction(subject, [&subject] {
         subject.set.As<INominalDataSetMetadata>()->UpdateCategory("d0", "red", 7.5);
       });
     }},
    {"update-merging", LoadTraining,
     [](Subject& subject) {
       return InTransaction(subject, [&subject] {
         subject.set.As<INominalDataSetMetadata>()->UpdateMergingResponseCategories();
       });
     }},
    {"save-positive-class", LoadTraining,
     [](Subject& subject) {
       subject.set.As<INominalDataSetMetadata>()->SavePositiveClass("yes");
       return true;
     }},
    {"update-missing", LoadTraining,
     [](Subject& subject) {
       subject.set.As<IMissingMetadata>()->UpdateMissing(1, "NA", 4.25, 5);
       return true;
     }},
    {"apply-missing", LoadTraining,
     [](Subject& subject) { return subject.set.As<IMissingMetadata>()->ApplyMissing(1); }},
    {"calculate-statistics", LoadTraining,
     [](Subject& subject) {
       return InTransaction(subject, [&subject] { subject.set->CalculateStatistics(nullptr); });
     }},
    {"clear", LoadTraining,
     [](Subject& subject) {
       subject.set->Clear();
       return true;
     }},
    {"memory-parse", MakeInMemory,
     [](Subject& subject) { return ParseInto(*subject.set, subject); }},
    {"memory-parse-over",
     [](Subject& subject) {
       MakeInMemory(subject);
       std::string text = "x,y\n1,2\n3,4\n";
       subject.set->ParseString(text, separator_code::kComma, true, kTraining,
                                layout_code::kRecordsInRows, nullptr);
     },
     [](Subject& subject) { return ParseInto(*subject.set, subject); }},
    {"nominal-parse", MakeInMemory,
     [](Subject& subject) {
       subject.set.As<INominalDataSet>()->Parse(subject.file, separator_code::kComma, true,
                                                kTraining, layout_code::kRecordsInRows,
                                                problem_category::kClassification, nullptr);
       return true;
     }},
    {"memory-clone",
     [](Subject& subject) {
       MakeInMemory(subject);
       ParseInto(*subject.set, subject);
     },
     [](Subject& subject) {
       subject.source = subject.set.As<IInMemorySet>()->Clone().As<IUnknown>();
       return static_cast<bool>(subject.source);
     }},
    {"memory-format-data-as",
     [](Subject& subject) {
       MakeInMemory(subject);
       subject.set->Parse(subject.file, separator_code::kNone, true, kTraining,
                          layout_code::kRecordsInRows);
       subject.set->SetProperty("3", property_key::kEmbeddingDimension);
       subject.set->SetProperty("2", property_key::kDelayTime);
       subject.set->SetProperty("4", property_key::kTestingSamples);
     },
     [](Subject& subject) { return subject.set->FormatDataAs(0); }},
};

}  // namespace

std::span<const Operation> Operations() {
  return kOperations;
}

}  // namespace tslm5::trust
