#ifndef TSLM5_ENGINE_FIGURES_READER_H_
#define TSLM5_ENGINE_FIGURES_READER_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/figures_query.h"
#include "tslm5/engine/data_reader.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// A reader over the one record that a figures query has.
class FiguresReader final : public CountedObject<IDataReader> {
 public:
  FiguresReader(std::vector<FiguresQuery::Item> items, std::vector<Variant> figures)
      : items_(std::move(items)), figures_(std::move(figures)) {}

  std::string_view TypeName() override { return "DataReader"; }

  bool Read() override;
  std::int32_t GetInteger(std::int32_t pIndex) override;
  double GetDouble(std::int32_t pIndex) override;
  std::string GetString(std::int32_t pIndex) override;
  void Close() override;
  std::int32_t FieldCount() override;
  std::string FieldName(std::int32_t pIndex) override;
  Variant GetValue(std::int32_t pIndex) override;
  bool IsNull(std::int32_t pIndex) override;

 private:
  ~FiguresReader() override = default;

  enum class Place { kBefore, kOnRecord, kBehind };

  const Variant& Field(std::int32_t index) const;

  std::vector<FiguresQuery::Item> items_;
  std::vector<Variant> figures_;
  Place place_ = Place::kBefore;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_FIGURES_READER_H_
