#include "datasetlite/record_forwarder.h"

#include "tslm5/platform/object.h"

namespace tslm5 {
namespace {

class RecordForwarder final : public CountedObject<ITableEvents> {
 public:
  explicit RecordForwarder(const SinkList<IDataSetLiteEvents>& sinks) : sinks_(sinks) {}

  std::string_view TypeName() override { return "RecordForwarder"; }
  void RecordParsed(IRecordParsedEventArgs* pEvArgs) override {
    sinks_.Fire([pEvArgs](IDataSetLiteEvents& sink) { sink.RecordParsed(pEvArgs); });
  }

 private:
  ~RecordForwarder() override = default;

  const SinkList<IDataSetLiteEvents>& sinks_;
};

}  // namespace

ScopedRecordForwarder::ScopedRecordForwarder(TableLite& table,
                                             const SinkList<IDataSetLiteEvents>& sinks)
    : table_(table) {
  if (!sinks.HasSinks()) return;
  const Ref<RecordForwarder> forwarder = MakeObject<RecordForwarder>(sinks);
  cookie_ = table_.Advise(forwarder.get());
}

ScopedRecordForwarder::~ScopedRecordForwarder() {
  if (cookie_ == 0) return;
  try {
    table_.Unadvise(cookie_);
  } catch (...) {
    return;  // no memory for the shorter list: the table keeps a listener that it no longer needs
  }
}

}  // namespace tslm5
