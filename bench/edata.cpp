// What it costs to put a preference record together from legacy records, compared with only the calls to the host that
// it needs.
#include <CoreFoundation/CoreFoundation.h>
#include <benchmark/benchmark.h>

#include <cstring>

#include "brevixpdk.h"
#include "hostbundle.h"
#include "preffieldmap.h"
#include "recordinghost.h"
#include "recordtag.h"
#include "sidebyside.h"

namespace {

using LoadEData = decltype(BX_LoadEData)*;

// How many legacy records a table needs.
int LegacyRecordsOf(std::uint32_t tag) {
  const auto map = FindPrefFieldMap(tag, 0);
  int count = 0;
  for (std::size_t i = 0; i < map.size(); ++i) {
    bool isFirst = true;
    for (std::size_t j = 0; j < i; ++j) isFirst &= map[j].legacy != map[i].legacy;
    count += isFirst;
  }
  return count;
}

void Compare(const char* text, std::uint32_t tag, RecordingHost& host) {
  // The host's function itself, without the kit's.
  const auto load =
      reinterpret_cast<LoadEData>(CFBundleGetFunctionPointerForName(gBrevixBundle, CFSTR("BX_LoadEData")));
  const int records = LegacyRecordsOf(tag);
  constexpr int kCalls = 2000;
  PrintRatio(
      text, kCalls,
      [&](int) {
        host.Forget();
        EDataKey key{0, 0};
        char record[256];
        std::int32_t size = sizeof(record);
        benchmark::DoNotOptimize(BX_LoadEData(tag, &key, record, &size, kBrvVersion));
        benchmark::DoNotOptimize(record);
      },
      [&](int) {
        host.Forget();
        for (int i = 0; i < records; ++i) {
          EDataKey key{kDocumentRecord, static_cast<std::uint16_t>(i)};
          LegacyRecord record;
          std::int32_t size = sizeof(record);
          benchmark::DoNotOptimize(load(RecordTag("ot12"), &key, &record, &size, kBrvVersion));
          benchmark::DoNotOptimize(record);
        }
      });
}

}  // namespace

int main() {
  RecordingHost host;
  host.On("BX_LoadEData", [](const HostCall& call) {
    std::memset(call.Pointer<void>(2), 1, sizeof(LegacyRecord));
    return 1;
  });
  Compare("loading \"pfMS\" / the calls to the host that it makes", RecordTag("pfMS"), host);
  Compare("loading \"pfSS\" / the calls to the host that it makes", RecordTag("pfSS"), host);
}
