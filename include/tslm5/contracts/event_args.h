#ifndef TSLM5_CONTRACTS_EVENT_ARGS_H_
#define TSLM5_CONTRACTS_EVENT_ARGS_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// What a check or load event carries. The raiser fills it, a handler may change it: a handler that
/// sets `Cancel` asks the work to stop. All fields start at zero, false or "".
/// Made and released by the raiser; a handler that keeps it holds a `Ref`. Caller's thread only.
class IParseEventArgs : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000011ULL, 0x8a1f4c0b6d2e7311ULL};

  ///@{
  /// Set by a handler to stop; the event tells what that does. It stays set for later events.
  virtual bool Cancel() = 0;
  virtual void put_Cancel(bool pCancel) = 0;
  ///@}
  ///@{
  /// Number of columns found.
  virtual std::int32_t Columns() = 0;
  virtual void put_Columns(std::int32_t pColumns) = 0;
  ///@}
  ///@{
  /// What is being loaded: the file name.
  virtual std::string Source() = 0;
  virtual void put_Source(std::string_view pSource) = 0;
  ///@}
  ///@{
  /// Progress or result text for the user.
  virtual std::string Message() = 0;
  virtual void put_Message(std::string_view pMessage) = 0;
  ///@}
  ///@{
  /// Number of rows loaded or checked.
  virtual std::int32_t Rows() = 0;
  virtual void put_Rows(std::int32_t pRows) = 0;
  ///@}
  ///@{
  /// Which kind of parse is under way; 0 for a file.
  virtual std::int32_t ParseType() = 0;
  virtual void put_ParseType(std::int32_t pParseType) = 0;
  ///@}

 protected:
  ~IParseEventArgs() = default;
};

/// What the event of one stored record carries. One object serves a whole fill, so what a handler
/// sets stays set for the records after it. Caller's thread only.
class IRecordParsedEventArgs : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000012ULL, 0x8a1f4c0b6d2e7312ULL};

  ///@{
  /// Zero-based number of the record just stored.
  virtual std::int32_t Current() = 0;
  virtual void put_Current(std::int32_t pCurrent) = 0;
  ///@}
  ///@{
  /// Set by a handler to stop the fill after this record; every record of the fill is taken back.
  virtual bool Cancel() = 0;
  virtual void put_Cancel(bool pCancel) = 0;
  ///@}
  ///@{
  /// Number of columns of each record.
  virtual std::int32_t Columns() = 0;
  virtual void put_Columns(std::int32_t pColumns) = 0;
  ///@}
  ///@{
  /// Error indication of the record, 0 for none; see `IInMemorySetEvents::RecordParsed`.
  virtual std::int32_t Error() = 0;
  virtual void put_Error(std::int32_t pError) = 0;
  ///@}

 protected:
  ~IRecordParsedEventArgs() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_EVENT_ARGS_H_
