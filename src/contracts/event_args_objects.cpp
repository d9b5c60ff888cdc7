#include "contracts/event_args_objects.h"

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/only_errors.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

namespace {

class ParseEventArgs final : public CountedObject<IParseEventArgs> {
 public:
  std::string_view TypeName() override { return "ParseEventArgs"; }

  bool Cancel() override { return cancel_; }
  void put_Cancel(bool pCancel) override { cancel_ = pCancel; }
  std::int32_t Columns() override { return columns_; }
  void put_Columns(std::int32_t pColumns) override { columns_ = pColumns; }
  std::string Source() override {
    return OnlyErrors([&] { return source_; });
  }
  void put_Source(std::string_view pSource) override {
    OnlyErrors([&] { source_ = pSource; });
  }
  std::string Message() override {
    return OnlyErrors([&] { return message_; });
  }
  void put_Message(std::string_view pMessage) override {
    OnlyErrors([&] { message_ = pMessage; });
  }
  std::int32_t Rows() override { return rows_; }
  void put_Rows(std::int32_t pRows) override { rows_ = pRows; }
  std::int32_t ParseType() override { return parse_type_; }
  void put_ParseType(std::int32_t pParseType) override { parse_type_ = pParseType; }

 private:
  ~ParseEventArgs() override = default;

  bool cancel_ = false;
  std::int32_t columns_ = 0;
  std::string source_;
  std::string message_;
  std::int32_t rows_ = 0;
  std::int32_t parse_type_ = 0;
};

class RecordParsedEventArgs final : public CountedObject<IRecordParsedEventArgs> {
 public:
  std::string_view TypeName() override { return "RecordParsedEventArgs"; }

  std::int32_t Current() override { return current_; }
  void put_Current(std::int32_t pCurrent) override { current_ = pCurrent; }
  bool Cancel() override { return cancel_; }
  void put_Cancel(bool pCancel) override { cancel_ = pCancel; }
  std::int32_t Columns() override { return columns_; }
  void put_Columns(std::int32_t pColumns) override { columns_ = pColumns; }
  std::int32_t Error() override { return error_; }
  void put_Error(std::int32_t pError) override { error_ = pError; }

 private:
  ~RecordParsedEventArgs() override = default;

  std::int32_t current_ = 0;
  bool cancel_ = false;
  std::int32_t columns_ = 0;
  std::int32_t error_ = 0;
};

}  // namespace

Ref<IParseEventArgs> MakeParseEventArgs() {
  return MakeObject<ParseEventArgs>();
}

Ref<IRecordParsedEventArgs> MakeRecordParsedEventArgs() {
  return MakeObject<RecordParsedEventArgs>();
}

}  // namespace tslm5
