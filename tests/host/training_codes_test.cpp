#include "host/preparation/training_codes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "host/preparation/record_split.h"
#include "tests/host/table_of.h"
#include "tslm5/component/class_factory.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/nominal_data_set.h"

namespace tslm5::host {
namespace {

/// A text of random records: numbers, words that look alike, missing tokens; no blanks, so that the
/// component takes it as it stands.
std::string RandomText(std::mt19937_64& engine) {
  constexpr const char* kInputs[] = {"red", "Red", "1", "1.0", "?", "NA", ".x", "2e1", "-3", "b"};
  constexpr const char* kResponses[] = {"no", "yes", "1", "2.5"};
  const std::size_t columns = 2 + engine() % 4;
  const std::size_t records = 2 + engine() % 40;
  std::string text;
  for (std::size_t record = 0; record < records; ++record) {
    for (std::size_t column = 0; column + 1 < columns; ++column) {
      text += kInputs[engine() % (3 + column * 2)];
      text += ',';
    }
    text += record < 2 ? kResponses[record] : kResponses[engine() % 4];
    text += '\n';
  }
  return text;
}

TEST(TrainingCodes, AreThoseOfTheComponentForTheFileItself) {
  std::mt19937_64 engine(20);
  for (int trial = 0; trial < 200; ++trial) {
    const std::string text = RandomText(engine);
    SCOPED_TRACE(text);
    const FieldTable table = TableOf(text, ',', false);
    const CodedRecords coded =
        CodeTraining(table, NoSplit(table.Records()).training, CellRule('.', {}), 0);

    const auto set = CreateObject<INominalDataSet>(class_id::kInMemorySet);
    std::string raw = text;
    set->ParseString(raw, separator_code::kComma, false, 1, 1, 0, nullptr);
    const Ref<IDataSet> numbers = set.As<IDataSet>();
    ASSERT_EQ(coded.values.size(), table.fields.size());
    for (std::size_t i = 0; i < coded.values.size(); ++i) {
      const double wanted = numbers->GetItem(static_cast<std::int32_t>(i % table.columns),
                                             static_cast<std::int32_t>(i / table.columns));
      EXPECT_EQ(std::isnan(coded.values[i]), std::isnan(wanted)) << i;
      if (!std::isnan(wanted)) {
        EXPECT_EQ(coded.values[i], wanted) << i;
      }
    }
  }
}

TEST(TrainingCodes, WritesNoSeparatorInsideAField) {
  const FieldTable table = TableOf("x y|a,b;c|1\nxby|?|-9\n|none|3\n", '|', false);
  const std::string composed = ComposeTraining(table, NoSplit(3).training, CellRule('.', {"none"}));
  EXPECT_EQ(composed,
            "x\x0f"
            "ay\ta\x0f"
            "cb\x0f"
            "dc\t1\nxby\t?\t-9\n?\t?\t3\n");
}

TEST(TrainingCodes, CodesTheRecordsAskedForAlone) {
  const FieldTable table = TableOf("a,1\nb,2\nc,3\nb,4\n", ',', false);
  const CodedRecords coded = CodeTraining(table, {1, 2, 3}, CellRule('.', {}), 0);
  EXPECT_EQ(coded.values, (std::vector<double>{1, 2, 2, 3, 1, 4}));
  EXPECT_EQ(coded.is_nominal, (std::vector<bool>{true, false}));
}

}  // namespace
}  // namespace tslm5::host
