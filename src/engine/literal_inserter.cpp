#include "engine/literal_inserter.h"

#include <algorithm>
#include <cmath>

#include "engine/column_affinity.h"
#include "engine/sqlite_error.h"
#include "engine/sqlite_value.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

constexpr std::size_t kKeptStatements = 8;

}  // namespace

const StatementEffects* LiteralInserter::TryRun(std::string_view sql) {
  Kept* kept = Find(sql);
  if (kept == nullptr || !Bind(*kept, sql.substr(kept->head.size()))) return nullptr;
  kept->statement.RunFor(sql);
  return &kept->effects;
}

const StatementEffects* LiteralInserter::TryRunNumbers(std::string_view head,
                                                       std::span<const double> numbers,
                                                       std::int32_t row) {
  Kept* kept = Find(head);
  const std::size_t count = numbers.size();
  if (kept == nullptr || kept->head != head || kept->is_real.size() != count + 1) return nullptr;
  for (std::size_t i = 0; i < count; ++i) {
    if (kept->is_real[i] == 0 || std::isinf(numbers[i])) return nullptr;
  }
  int parameter = 0;
  for (const double number : numbers) {
    ++parameter;
    if (std::isnan(number)) {
      kept->statement.BindNull(parameter);
    } else {
      kept->statement.BindDouble(parameter, number);
    }
  }
  kept->statement.BindInteger(parameter + 1, row);
  kept->statement.RunFor(head);
  return &kept->effects;
}

LiteralInserter::Kept* LiteralInserter::Find(std::string_view sql) {
  if (!kept_.empty() && sql.starts_with(kept_.front()->head)) return kept_.front().get();
  auto place = std::find_if(kept_.begin(), kept_.end(),
                            [sql](const auto& kept) { return sql.starts_with(kept->head); });
  if (place == kept_.end()) {
    std::unique_ptr<Kept> made = Make(sql);
    if (made == nullptr) return nullptr;
    if (kept_.size() == kKeptStatements) kept_.pop_back();
    kept_.push_back(std::move(made));
    place = kept_.end() - 1;
  }
  std::rotate(kept_.begin(), place, place + 1);
  return kept_.front().get();
}

std::unique_ptr<LiteralInserter::Kept> LiteralInserter::Make(std::string_view sql) {
  std::string_view table;
  std::size_t head_size = 0;
  if (!SplitInsertHead(sql, table, head_size)) return nullptr;

  auto kept = std::make_unique<Kept>();
  kept->head = sql.substr(0, head_size);
  const std::string name(table);
  SqliteStatement columns(database_,
                          "SELECT t.type FROM pragma_table_info(?1) AS t, sqlite_master AS m"
                          " WHERE m.type = 'table' AND m.name = ?1 COLLATE NOCASE");
  columns.BindText(1, name);
  while (columns.Step()) {
    kept->is_real.push_back(AffinityOf(ColumnText(columns.Handle(), 0)) == Affinity::kReal);
  }
  if (kept->is_real.empty()) return nullptr;

  std::string text = kept->head;
  for (std::size_t i = 0; i < kept->is_real.size(); ++i) text += i == 0 ? "?" : ",?";
  text += ")";
  kept->statement = watch_.Compile(text, kept->effects);
  kept->unquoted.resize(kept->is_real.size());
  return kept;
}

bool LiteralInserter::Bind(Kept& kept, std::string_view list) {
  InsertLiterals literals(list);
  InsertLiteral literal;
  const int columns = static_cast<int>(kept.is_real.size());
  for (int column = 0; column < columns; ++column) {
    if (!literals.Next(literal)) return false;
    BindOne(kept, column, literal);
  }
  return literals.AtEnd();
}

void LiteralInserter::BindOne(Kept& kept, int column, const InsertLiteral& literal) {
  SqliteStatement& statement = kept.statement;
  const auto index = static_cast<std::size_t>(column);
  switch (literal.kind) {
    case InsertLiteral::Kind::kNull:
      return statement.BindNull(column + 1);
    case InsertLiteral::Kind::kInteger:
      return statement.BindInteger(column + 1, literal.integer);
    case InsertLiteral::Kind::kReal:
      return statement.BindDouble(column + 1, literal.real);
    case InsertLiteral::Kind::kText: {
      double number = 0.0;
      if (kept.is_real[index] && ParseNumber(literal.text, '.', number, literal.readable_end)) {
        return statement.BindDouble(column + 1, number);
      }
      return statement.BindText(column + 1, literal.text);
    }
    case InsertLiteral::Kind::kQuotedText: {
      std::string& text = kept.unquoted[index];
      text.clear();
      for (std::size_t i = 0; i < literal.text.size(); ++i) {
        text += literal.text[i];
        if (literal.text[i] == '\'') ++i;
      }
      return statement.BindText(column + 1, text);
    }
  }
}

}  // namespace tslm5
