// `IDataSet` without loading: defaults, settings, cells, labels, figures.
#include <cmath>
#include <limits>

#include "conformance/set_under_test.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class DataSetConformance : public ConformanceTest {
 protected:
  /// The error of reading a cell, which must be the same as text and as a number where it is one.
  std::int32_t ErrorOfItem(std::int32_t column, std::int32_t row) const {
    return RaisedNumber([&] { set_->GetItem(column, row); });
  }
  std::int32_t ErrorOfText(std::int32_t column, std::int32_t row) const {
    return RaisedNumber([&] { EXPECT_EQ(set_->GetItemString(column, row), ""); });
  }
};
TSLM5_CONFORMANCE_SUITE(DataSetConformance);

TEST_P(DataSetConformance, HasTheTypeNameOfItsClass) {
  EXPECT_EQ(set_->TypeName(), GetParam().name);
}

TEST_P(DataSetConformance, IsOneObjectBehindAllItsFaces) {
  EXPECT_EQ(Query<IUnknown>(As<IExtraSet>()), Query<IUnknown>(As<IVectorize>()));
  EXPECT_EQ(Query<IUnknown>(As<IIterator>()), Query<IUnknown>(As<IIsDirty>()));
  EXPECT_EQ(Query<IUnknown>(set_), Query<IUnknown>(As<IIterator>()));
}

TEST_P(DataSetConformance, StartsEmpty) {
  EXPECT_EQ(set_->Rows(), 0);
  EXPECT_EQ(set_->Columns(), 0);
  EXPECT_EQ(set_->TerminalCount(), Means().new_terminal_count);
  EXPECT_EQ(set_->HasLabels(), Means().new_set_has_labels);
  EXPECT_FALSE(set_->IsReady());
  EXPECT_EQ(set_->IndependentVarsPrefix(), "d");
  EXPECT_EQ(set_->DependentVarName(), "y");
  EXPECT_EQ(set_->ProblemCategory(), 0);
}

TEST_P(DataSetConformance, CountsItsColumnsOnceThereAreAny) {
  EXPECT_EQ(set_->Columns(), 0);
  Parse("1,2,3\n");
  EXPECT_EQ(set_->Columns(), 3);
}

TEST_P(DataSetConformance, KeepsItsSettings) {
  set_->put_DataSetType(3);
  set_->put_IndependentVarsPrefix("x");
  set_->put_DependentVarName("target");
  set_->put_ProblemCategory(4);
  EXPECT_EQ(set_->DataSetType(), 3);
  EXPECT_EQ(set_->IndependentVarsPrefix(), "x");
  EXPECT_EQ(set_->DependentVarName(), "target");
  EXPECT_EQ(set_->ProblemCategory(), 4);
}

TEST_P(DataSetConformance, NamesTheTrainingAndTheTestingSetOnly) {
  const struct {
    std::int32_t type;
    const char* name;
  } kCases[] = {{1, "Training"}, {2, "Testing"}, {0, ""}, {3, ""}, {5, ""}, {1000, ""}};
  for (const auto& [type, name] : kCases) {
    set_->put_DataSetType(type);
    EXPECT_EQ(set_->Name(), name) << type;
  }
}

TEST_P(DataSetConformance, GivesTheTextOfASeparator) {
  EXPECT_EQ(set_->SeparatorToString(-1), "");
  EXPECT_EQ(set_->SeparatorToString(1), "\t");
  EXPECT_EQ(set_->SeparatorToString(4), "|");
  EXPECT_EQ(RaisedNumber([&] { set_->SeparatorToString(5); }), 41012);
}

TEST_P(DataSetConformance, CountsRowsForPeopleWithoutLookingAtTheData) {
  EXPECT_EQ(set_->GetRowNumber(0), 1);
  EXPECT_EQ(set_->GetRowNumber(41), 42);
  EXPECT_EQ(set_->GetRowNumber(2147483646), 2147483647);
  EXPECT_EQ(RaisedNumber([&] { set_->GetRowNumber(2147483647); }), 6);
  EXPECT_EQ(set_->GetColumnIndex(5), 5);
  EXPECT_TRUE(set_->HasLabelPrefix());
}

TEST_P(DataSetConformance, TakesTheColumnOfACellFirst) {
  Parse("1,2,3,4\n5,6,7,8\n9,10,11,12\n");
  EXPECT_EQ(set_->GetItem(2, 1), 7);
  EXPECT_EQ(set_->GetItem(1, 2), 10);
  EXPECT_EQ(set_->GetItemString(3, 0), "4");
}

TEST_P(DataSetConformance, WritesCellsInTheUsersFormat) {
  Parse("1.5,1e300\n-0.25,1e-7\n");
  EXPECT_THAT(Records(), ElementsAre("1.5,1E+300", "-0.25,1E-07"));
  const ScopedLocale german("de_DE");
  EXPECT_EQ(set_->GetItemString(0, 1), "-0,25");
}

TEST_P(DataSetConformance, HasNoCellOutsideItsData) {
  Parse("1,2\n3,4\n");
  for (const auto& [column, row] : {std::pair(0, 2), {3, 0}}) {
    EXPECT_EQ(ErrorOfItem(column, row), Means().absent_cell_error) << column << ' ' << row;
    EXPECT_EQ(ErrorOfText(column, row), Means().absent_text_error) << column << ' ' << row;
  }
  for (const auto& [column, row] : {std::pair(-1, 0), {0, -1}}) {
    EXPECT_EQ(ErrorOfItem(column, row), Means().absent_cell_error) << column << ' ' << row;
    EXPECT_EQ(ErrorOfText(column, row), Means().negative_text_error) << column << ' ' << row;
  }
}

TEST_P(DataSetConformance, HasNoColumnBehindTheLastButThatOfTheRowKeys) {
  Parse("1,2\n3,4\n");
  if (Means().behind_the_columns_are_row_keys) {
    EXPECT_EQ(set_->GetItem(2, 1), 2);
  } else {
    EXPECT_EQ(ErrorOfItem(2, 1), Means().absent_cell_error);
  }
}

TEST_P(DataSetConformance, ReadsAMissingCellAsNoNumber) {
  Parse("1,2\n3,4\n");
  made_->MakeMissing(1, 0);
  EXPECT_TRUE(std::isnan(set_->GetItem(1, 0)));
  EXPECT_EQ(set_->GetItemString(1, 0), "");
}

TEST_P(DataSetConformance, KeysItsRowsFromOne) {
  Parse("1,2\n3,4\n");
  EXPECT_EQ(set_->GetRowOriginalIndex(0), 1);
  EXPECT_EQ(set_->GetRowOriginalIndex(1), 2);
  EXPECT_EQ(RaisedNumber([&] { set_->GetRowOriginalIndex(2); }),
            Means().absent_original_index_error);
}

TEST_P(DataSetConformance, LabelsColumnsByTheNamesOfVariables) {
  Parse("1,2,3\n");
  EXPECT_FALSE(set_->HasLabels());
  EXPECT_THAT(Labels(), ElementsAre("d0", "d1", "y"));
}

TEST_P(DataSetConformance, TakesLabelsFromAText) {
  Parse("1,2\n");
  set_->SetLabels("my\x05label x");
  EXPECT_TRUE(set_->HasLabels());
  EXPECT_THAT(Labels(), ElementsAre("my label", "x"));
  EXPECT_EQ(set_->GetLongLabel(1), Means().long_label_has_the_name ? "y:x" : "x");
  for (const std::int32_t column : {-1, 2}) {
    EXPECT_EQ(RaisedNumber([&] { EXPECT_EQ(set_->GetLabel(column), ""); }),
              Means().absent_label_error);
  }
}

TEST_P(DataSetConformance, GivesTheExtremesOfARangeOfRows) {
  Parse("5,1\n-3,2\n9,3\n7,4\n");
  EXPECT_EQ(set_->GetMax(0, 0, 0), 9);
  EXPECT_EQ(set_->GetMin(0, 0, 0), -3);
  EXPECT_EQ(set_->GetMax(0, 0, 1), 5);
  EXPECT_EQ(set_->GetMin(0, 2, 99), 7);
  EXPECT_EQ(set_->GetMax(0, 3, 0), 7);
  EXPECT_EQ(set_->GetMax(0, 3, 1), -1.79769313486231E308) << "no row is in the range";
  EXPECT_EQ(set_->GetMin(0, 3, 1), 1.69769313486232E308);
}

TEST_P(DataSetConformance, StartsAMinimumBelowTheLargestNumber) {
  Parse("1.7E308,1\n1.75E308,2\n");
  EXPECT_EQ(set_->GetMin(0, 0, 0), 1.69769313486232E308);
}

TEST_P(DataSetConformance, CountsTheRarestResponseAnew) {
  EXPECT_EQ(set_->GetTargetMinorityClassCount(), 0);
  Parse("7,0\n7,0\n8,1\n9,1\n9,1\n");
  EXPECT_EQ(set_->GetTargetMinorityClassCount(), 2);
  made_->MakeMissing(1, 0);
  EXPECT_EQ(set_->GetTargetMinorityClassCount(), 1);
}

TEST_P(DataSetConformance, AveragesTheInputsOfEachRow) {
  VariantArray averages(std::vector<Variant>{"x"}, 7);
  Parse("2,4,9\n5,4,8\n");
  made_->MakeMissing(0, 1);
  set_->GetAverageModel(averages);
  EXPECT_EQ(averages, VariantArray({Variant(3.0), Variant(2.0)}));
}

TEST_P(DataSetConformance, AveragesNoInputsOnlyWhereThereAreNoRows) {
  VariantArray averages(std::vector<Variant>{"x"});
  set_->GetAverageModel(averages);
  EXPECT_EQ(averages.Size(), 0u);
  Parse("1\n2\n", false, separator_code::kNone);
  EXPECT_EQ(RaisedNumber([&] { set_->GetAverageModel(averages); }), 11);
}

TEST_P(DataSetConformance, KnowsItsTargetWhereItHasARun) {
  Parse("7,0\n7,0\n8,1\n");
  const bool has_figures = Means().has_target_figures;
  EXPECT_EQ(set_->GetTargetMajorityClass(), has_figures ? 1 : 0);
  EXPECT_EQ(set_->GetTargetClassCount(0), has_figures ? 2 : 0);
  EXPECT_EQ(set_->GetTargetClassCount(1), has_figures ? 1 : 0);
}

TEST_P(DataSetConformance, HasNoStatisticsThatWereNotComputed) {
  double class_value = 7;
  double value = 8;
  set_->GetClassCentroid(0, 2, class_value, value);
  set_->GetClassMedoid(0, 2, class_value, value);
  EXPECT_EQ(class_value, 7);
  EXPECT_EQ(value, 8);
  EXPECT_EQ(set_->GetGlobalCentroid(0), 0);
  EXPECT_EQ(set_->GetGlobalMedoid(0), 0);
  EXPECT_EQ(set_->GetStandardDeviation(0), 0);
}

}  // namespace
}  // namespace tslm5
