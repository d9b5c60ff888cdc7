// Compiled, never linked: the interfaces need no library.
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/nominal_data_set.h"

int ColumnsOf(tslm5::IDataSet& set) {
  return set.Columns();
}
