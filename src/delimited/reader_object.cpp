#include "delimited/reader_object.h"

#include <memory>
#include <utility>

#include "delimited/delimited_reader.h"
#include "delimited/field_block.h"
#include "delimited/gzip_source.h"
#include "platform/only_errors.h"
#include "tslm5/platform/object.h"

namespace tslm5::delimited {
namespace {

class ReaderObject final : public CountedObject<IDelimitedReader> {
 public:
  std::string_view TypeName() override { return "DelimitedReader"; }

  void OpenFile(const std::string& pPath, const DelimitedOptions& pOptions) override {
    OnlyErrors([&] { Open(OpenSource(pPath), pOptions); });
  }
  void OpenText(std::string_view pBytes, const std::string& pName,
                const DelimitedOptions& pOptions) override {
    OnlyErrors([&] { Open(Decompressed(MemorySource(pBytes, pName)), pOptions); });
  }
  const DelimitedDialect& Dialect() override {
    return OnlyErrors([&]() -> const DelimitedDialect& { return Reader().TextDialect(); });
  }
  const DelimitedHeader& Header() override {
    return OnlyErrors([&]() -> const DelimitedHeader& { return Reader().TextHeader(); });
  }
  bool Next(DelimitedBlock& pBlock) override {
    return OnlyErrors([&] {
      pBlock = {};
      const bool has_records = Reader().Next(block_);
      pBlock = block_.View();
      return has_records;
    });
  }
  const std::vector<DelimitedFinding>& Findings() override {
    return OnlyErrors(
        [&]() -> const std::vector<DelimitedFinding>& { return Reader().Findings().All(); });
  }
  std::int64_t FindingCount(FindingCode pCode) override {
    return OnlyErrors([&] { return Reader().Findings().Count(pCode); });
  }
  std::string MessageOf(const DelimitedFinding& pFinding) override {
    return OnlyErrors([&] { return Message(pFinding); });
  }
  const DelimitedCounts& Counts() override {
    return OnlyErrors([&]() -> const DelimitedCounts& { return Reader().Counts(); });
  }

 private:
  ~ReaderObject() override = default;

  void Open(std::unique_ptr<ByteSource> source, const DelimitedOptions& options) {
    auto reader = std::make_unique<DelimitedReader>(std::move(source), options);
    reader_ = std::move(reader);
  }

  DelimitedReader& Reader() {
    if (reader_ == nullptr) {
      throw Error(error_number::kInvalidArgument, "DelimitedReader", "No text is open.");
    }
    return *reader_;
  }

  std::unique_ptr<DelimitedReader> reader_;
  FieldBlock block_;
};

}  // namespace

Ref<IDelimitedReader> MakeReaderObject() {
  return MakeObject<ReaderObject>();
}

}  // namespace tslm5::delimited
