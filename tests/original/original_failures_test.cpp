// An open that fails: what is raised, and what is left.
#include "original/original_run.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using OriginalFailures = OriginalDataSetTest;

TEST_F(OriginalFailures, OfAnArgumentThatIsNoConnection) {
  view_.Open(run_, data_set_type::kTraining);
  const Variant wrong[] = {Variant(),  Variant(Null{}),          Variant("run.db"),
                           Variant(1), Variant(Ref<IUnknown>()), Variant(view_.Object())};
  for (const Variant& connection : wrong) {
    EXPECT_EQ(RaisedNumber([&] { view_->Open(connection, 1, false); }), 41001)
        << static_cast<int>(connection.GetKind());
    EXPECT_EQ(RaisedNumber([&] { view_.As<IPersistable>()->Load(connection, Variant()); }), 41001);
  }
  EXPECT_EQ(view_->Rows(), 2) << "what was loaded stays";
}

TEST_F(OriginalFailures, OfAnUnknownSetType) {
  view_.Open(run_, data_set_type::kTraining);
  for (const std::int32_t type : {0, 3, 5, -1, 99}) {
    const Error error = Raised([&] { view_.Open(run_, type); });
    EXPECT_EQ(error.Number(), 41001) << type;
    EXPECT_EQ(error.Source(), "Open") << type;
  }
  EXPECT_EQ(view_->Rows(), 2) << "what was loaded stays";
}

TEST_F(OriginalFailures, OfMissingTables) {
  struct Case {
    const char* table;
    std::int32_t set_type;
  };
  const Case cases[] = {{"OriginalData", 1},   {"OriginalData", 100}, {"OriginalData", 1000},
                        {"TrainingSet", 1},    {"TestingSet", 2},     {"TrainingSet", 100},
                        {"TrainingSet", 1000}, {"DataSetColumn", 1},  {"OriginalDataLabels", 1}};
  for (const Case& c : cases) {
    const OriginalRun run;
    run.Execute("DROP TABLE " + std::string(c.table));
    EXPECT_EQ(RaisedNumber([&] { view_.Open(run, c.set_type); }), 1) << c.table << c.set_type;
  }
}

TEST_F(OriginalFailures, OfOriginalsWithoutAKey) {
  run_.Execute("DROP TABLE OriginalData");
  run_.Execute("CREATE TABLE OriginalData (d0 TEXT, d1 TEXT)");
  EXPECT_EQ(RaisedNumber([&] { view_.Open(run_, data_set_type::kUnknown); }), 41011);
}

TEST_F(OriginalFailures, OfAKeyBeyond32Bits) {
  run_.Execute("UPDATE OriginalData SET row = 3000000000 WHERE row = 9");
  EXPECT_EQ(RaisedNumber([&] { view_.Open(run_, data_set_type::kUnknown); }), 6);
}

TEST_F(OriginalFailures, OfMoreRecordsThanCounted) {
  run_.Execute("DROP TABLE OriginalData");
  run_.Execute("CREATE TABLE OriginalData (d0 TEXT, row INTEGER)");
  run_.Execute("INSERT INTO OriginalData VALUES ('a', 3), ('b', 3), ('c', 8)");
  EXPECT_EQ(RaisedNumber([&] { view_.Open(run_, data_set_type::kTraining); }), 9);
}

TEST_F(OriginalFailures, OfAnyStatementPassOnAndLeaveAViewThatCanBeReadAndOpened) {
  view_.Open(run_, data_set_type::kTraining, true);
  run_.Log().Clear();
  view_.Open(run_, data_set_type::kTraining, true);
  const Lines statements = run_.Log().statements;
  for (std::size_t number = 1; number <= statements.size(); ++number) {
    run_.Log().FailAt(number, Error(10, "engine", "disk I/O error"));
    const bool is_ignored = statements[number - 1].rfind("SELECT Maximum", 0) == 0;
    EXPECT_EQ(RaisedNumber([&] { view_.Open(run_, data_set_type::kTraining, true); }),
              is_ignored ? 0 : 10)
        << statements[number - 1];
    run_.Log().before = nullptr;
    EXPECT_LE(view_.Records().size(), 2U);
    EXPECT_FALSE(run_.InTransaction());
    view_.Open(run_, data_set_type::kTraining, true);
    EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,0", "8,blue,2.25,1")) << number;
  }
}

TEST_F(OriginalFailures, KeepNoOlderRecords) {
  view_.Open(run_, data_set_type::kTraining);
  run_.Execute("DROP TABLE OriginalData");
  EXPECT_EQ(RaisedNumber([&] { view_.Open(run_, data_set_type::kUnknown); }), 1);
  EXPECT_EQ(view_->Rows(), 0);
  EXPECT_EQ(view_->Columns(), 0);
  EXPECT_FALSE(view_->HasMissingValues(0));
}

TEST_F(OriginalFailures, KeepWhatWasLoadedSoFar) {
  run_.Execute("DROP TABLE OriginalDataLabels");
  EXPECT_EQ(RaisedNumber([&] { view_.Open(run_, data_set_type::kTraining); }), 1);
  EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,no", "8,blue,2.25,yes"));
  EXPECT_EQ(view_->GetDataSetRows(1), 0) << "the sets are counted last";
}

/// A reader that breaks off, of a connection without the face for whole records of text.
class BrokenReader final : public CountedObject<IDataReader> {
 public:
  BrokenReader(Ref<IDataReader> real, std::int32_t good) : real_(std::move(real)), good_(good) {}
  std::string_view TypeName() override { return "DataReader"; }
  bool Read() override {
    if (good_-- == 0) throw Error(10, "Read", "disk I/O error");
    return real_->Read();
  }
  std::int32_t GetInteger(std::int32_t pIndex) override { return real_->GetInteger(pIndex); }
  double GetDouble(std::int32_t pIndex) override { return real_->GetDouble(pIndex); }
  std::string GetString(std::int32_t pIndex) override { return real_->GetString(pIndex); }
  void Close() override { real_->Close(); }
  std::int32_t FieldCount() override { return real_->FieldCount(); }
  std::string FieldName(std::int32_t pIndex) override { return real_->FieldName(pIndex); }
  Variant GetValue(std::int32_t pIndex) override { return real_->GetValue(pIndex); }
  bool IsNull(std::int32_t pIndex) override { return real_->IsNull(pIndex); }

 private:
  ~BrokenReader() override = default;
  Ref<IDataReader> real_;
  std::int32_t good_;
};

/// Gives broken readers of whole rows; all else is the real connection's.
class BrokenConnection final : public CountedObject<IConnection> {
 public:
  BrokenConnection(Ref<IConnection> real, std::int32_t good_records)
      : real_(std::move(real)), good_records_(good_records) {}
  std::string_view TypeName() override { return "Connection"; }
  void Execute(std::string_view pSql) override { real_->Execute(pSql); }
  Ref<IDataReader> ExecuteReader(std::string_view pSql) override {
    Ref<IDataReader> reader = real_->ExecuteReader(pSql);
    if (pSql != "SELECT * FROM OriginalData") return reader;
    return MakeObject<BrokenReader>(std::move(reader), good_records_);
  }
  Ref<IRecordSet> OpenRecordSet(std::string_view pSql) override {
    return real_->OpenRecordSet(pSql);
  }
  void BeginTrans() override { real_->BeginTrans(); }
  void CommitTrans() override { real_->CommitTrans(); }
  void RollbackTrans() override { real_->RollbackTrans(); }
  bool TableExists(std::string_view pTableName) override { return real_->TableExists(pTableName); }

 private:
  ~BrokenConnection() override = default;
  Ref<IConnection> real_;
  std::int32_t good_records_;
};

TEST_F(OriginalFailures, InTheMiddleOfTheRecordsLeaveTheRestEmpty) {
  const auto broken = MakeObject<BrokenConnection>(run_.Connection(), 2);
  EXPECT_EQ(RaisedNumber([&] { view_->Open(Variant(broken), 1000, false); }), 10);
  EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,no", "5,,.5,yes", "0,,,", "0,,,"));
}

TEST_F(OriginalFailures, DoNotComeOfAReaderWithoutTheFaceForTexts) {
  const auto whole = MakeObject<BrokenConnection>(run_.Connection(), -1);
  view_->Open(Variant(whole), 1000, false);
  EXPECT_THAT(view_.Records(),
              ElementsAre("3,red,1.5,no", "5,,.5,yes", "8,blue,2.25,yes", "9,green,7,no"));
}

}  // namespace
}  // namespace tslm5
