// The interfaces of the storage engine and of the class objects.

#include <gtest/gtest.h>

#include "contracts/slots/slot_of.h"
#include "tslm5/component/class_factory.h"
#include "tslm5/engine/connection.h"
#include "tslm5/engine/connection_service.h"
#include "tslm5/engine/data_reader.h"
#include "tslm5/engine/guarded_transactions.h"
#include "tslm5/engine/number_inserter.h"
#include "tslm5/engine/record_appender.h"
#include "tslm5/engine/record_set.h"
#include "tslm5/engine/record_texts.h"
#include "tslm5/engine/run_recovery.h"

namespace tslm5 {
namespace {

TEST(EngineSlots, Connection) {
  ExpectSlots<IConnection>(&IConnection::Execute, &IConnection::ExecuteReader,
                           &IConnection::OpenRecordSet, &IConnection::BeginTrans,
                           &IConnection::CommitTrans, &IConnection::RollbackTrans,
                           &IConnection::TableExists);
}

TEST(EngineSlots, GuardedTransactions) {
  ExpectSlots<IGuardedTransactions>(&IGuardedTransactions::BeginGuarded,
                                    &IGuardedTransactions::CommitGuarded,
                                    &IGuardedTransactions::RollbackGuarded);
}

TEST(EngineSlots, NumberInserter) {
  ExpectSlots<INumberInserter>(&INumberInserter::InsertNumbers);
}

TEST(EngineSlots, ConnectionService) {
  ExpectSlots<IConnectionService>(&IConnectionService::GetConnection);
}

TEST(EngineSlots, DataReader) {
  ExpectSlots<IDataReader>(&IDataReader::Read, &IDataReader::GetInteger, &IDataReader::GetDouble,
                           &IDataReader::GetString, &IDataReader::Close, &IDataReader::FieldCount,
                           &IDataReader::FieldName, &IDataReader::GetValue, &IDataReader::IsNull);
}

TEST(EngineSlots, RecordSet) {
  ExpectSlots<IRecordSet>(&IRecordSet::Close, &IRecordSet::MoveTo, &IRecordSet::EndOfFile,
                          &IRecordSet::GetField, &IRecordSet::SetField, &IRecordSet::FieldCount,
                          &IRecordSet::RecordCount, &IRecordSet::Update, &IRecordSet::ReadNumber);
}

TEST(EngineSlots, RecordAppending) {
  ExpectSlots<IRecordAppending>(&IRecordAppending::OpenAppender);
}

TEST(EngineSlots, RecordAppender) {
  ExpectSlots<IRecordAppender>(&IRecordAppender::Columns, &IRecordAppender::AppendNumbers,
                               &IRecordAppender::AppendCells, &IRecordAppender::Flush);
}

TEST(EngineSlots, RecordTexts) {
  ExpectSlots<IRecordTexts>(&IRecordTexts::GetTexts);
}

TEST(EngineSlots, RunRecovery) {
  ExpectSlots<IRunRecovery>(&IRunRecovery::WasRecovered, &IRunRecovery::InterruptedAt);
}

TEST(ComponentSlots, ClassFactory) {
  ExpectSlots<IClassFactory>(&IClassFactory::CreateInstance, &IClassFactory::LockServer);
}

}  // namespace
}  // namespace tslm5
