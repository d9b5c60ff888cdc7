#include <gtest/gtest.h>

#include "contracts/slots/slot_of.h"
#include "tslm5/contracts/data_set_events.h"
#include "tslm5/contracts/event_args.h"
#include "tslm5/contracts/feedback.h"

namespace tslm5 {
namespace {

TEST(EventSlots, ParseEventArgs) {
  ExpectSlots<IParseEventArgs>(
      &IParseEventArgs::Cancel, &IParseEventArgs::put_Cancel, &IParseEventArgs::Columns,
      &IParseEventArgs::put_Columns, &IParseEventArgs::Source, &IParseEventArgs::put_Source,
      &IParseEventArgs::Message, &IParseEventArgs::put_Message, &IParseEventArgs::Rows,
      &IParseEventArgs::put_Rows, &IParseEventArgs::ParseType, &IParseEventArgs::put_ParseType);
}

TEST(EventSlots, RecordParsedEventArgs) {
  ExpectSlots<IRecordParsedEventArgs>(
      &IRecordParsedEventArgs::Current, &IRecordParsedEventArgs::put_Current,
      &IRecordParsedEventArgs::Cancel, &IRecordParsedEventArgs::put_Cancel,
      &IRecordParsedEventArgs::Columns, &IRecordParsedEventArgs::put_Columns,
      &IRecordParsedEventArgs::Error, &IRecordParsedEventArgs::put_Error);
}

TEST(EventSlots, DataSetLiteEvents) {
  ExpectSlots<IDataSetLiteEvents>(
      &IDataSetLiteEvents::BeforeDataCheck, &IDataSetLiteEvents::AfterDataCheck,
      &IDataSetLiteEvents::LoadFeedback, &IDataSetLiteEvents::BeforeDataLoad,
      &IDataSetLiteEvents::AfterDataLoad, &IDataSetLiteEvents::DataLoadCancelled,
      &IDataSetLiteEvents::RecordParsed);
}

TEST(EventSlots, InMemorySetEvents) {
  ExpectSlots<IInMemorySetEvents>(
      &IInMemorySetEvents::BeforeDataCheck, &IInMemorySetEvents::AfterDataCheck,
      &IInMemorySetEvents::LoadFeedback, &IInMemorySetEvents::BeforeDataLoad,
      &IInMemorySetEvents::AfterDataLoad, &IInMemorySetEvents::DataLoadCancelled,
      &IInMemorySetEvents::RecordParsed);
}

TEST(EventSlots, Feedback) {
  ExpectSlots<IFeedback>(&IFeedback::ReportProgress, &IFeedback::ContinueFlag, &IFeedback::Finish,
                         &IFeedback::Start, &IFeedback::SetMaximum);
}

}  // namespace
}  // namespace tslm5
