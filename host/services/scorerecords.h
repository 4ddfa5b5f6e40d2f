// The records that a document has of its score. docs/host-records.md lists them.
#pragma once

#include "host/score/score.h"
#include "host/services/edatastore.h"

namespace brvhost {

void StoreScoreRecords(const Score& score, EDataStore& records);

}  // namespace brvhost
