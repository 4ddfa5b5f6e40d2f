// The bx_ functions against ICU's functions of the same kind, on the same text, and how many times as fast they are.
// Each line of the table at the end is one function at one length; a ratio of 4 is a quarter of ICU's time.
#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "bxstring.h"

namespace {

constexpr char16_t kAbsent = u'#';

// A text without kAbsent, and all that one measurement needs besides.
struct Texts {
  explicit Texts(std::size_t length) : count(static_cast<int>(length) + 1) {
    for (std::size_t i = 0; i < length; ++i) text.push_back(static_cast<char16_t>(u'a' + i % 26));
    same = text;
    copy.resize(length + 1);
  }
  const UniChar* Units() const { return reinterpret_cast<const UniChar*>(text.data()); }
  const UniChar* SameUnits() const { return reinterpret_cast<const UniChar*>(same.data()); }
  UniChar* CopyUnits() { return reinterpret_cast<UniChar*>(copy.data()); }

  std::u16string text;
  std::u16string same;
  std::u16string copy;
  int count;  // of units to copy, the final 0 included
};

const char16_t kRareNeedle[] = u"#z";
// Its first unit stands in every 26th place, its first two never follow one another.
const char16_t kFrequentNeedle[] = u"aa";

const UniChar* AsUnits(const char16_t* text) { return reinterpret_cast<const UniChar*>(text); }

struct Pair {
  const char* name;
  void (*ours)(Texts&);
  void (*icu)(Texts&);
};

template <class Result>
void Keep(Result result) {
  benchmark::DoNotOptimize(result);
}

const Pair kPairs[] = {
    {"strlen", [](Texts& t) { Keep(bx_strlen(t.Units())); }, [](Texts& t) { Keep(u_strlen(t.text.data())); }},
    {"strchr", [](Texts& t) { Keep(bx_strchr(t.Units(), kAbsent)); },
     [](Texts& t) { Keep(u_strchr(t.text.data(), kAbsent)); }},
    {"strcmp", [](Texts& t) { Keep(bx_strcmp(t.Units(), t.SameUnits())); },
     [](Texts& t) { Keep(u_strcmp(t.text.data(), t.same.data())); }},
    {"strncpy", [](Texts& t) { bx_strncpy(t.CopyUnits(), t.Units(), static_cast<std::size_t>(t.count)); },
     [](Texts& t) { Keep(u_strncpy(t.copy.data(), t.text.data(), t.count)); }},
    {"strstr, rare", [](Texts& t) { Keep(bx_strstr(t.Units(), AsUnits(kRareNeedle))); },
     [](Texts& t) { Keep(u_strstr(t.text.data(), kRareNeedle)); }},
    {"strstr, frequent", [](Texts& t) { Keep(bx_strstr(t.Units(), AsUnits(kFrequentNeedle))); },
     [](Texts& t) { Keep(u_strstr(t.text.data(), kFrequentNeedle)); }},
};

constexpr int kLengths[] = {8, 64, 1024, 65536};
constexpr int kRepetitions = 5;

void Run(benchmark::State& state, void (*call)(Texts&)) {
  Texts texts(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    call(texts);
    benchmark::ClobberMemory();
  }
}

// Shows the usual table, and keeps the best time of each measurement.
class BestTimes : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      const double time = run.GetAdjustedRealTime();
      const auto [best, isFirst] = best_.try_emplace(run.run_name.str(), time);
      if (!isFirst && time < best->second) best->second = time;
    }
    ConsoleReporter::ReportRuns(runs);
  }
  double Of(const std::string& name) const { return best_.at(name); }

 private:
  std::map<std::string, double> best_;
};

std::string NameOf(const Pair& pair, const char* side) { return std::string(pair.name) + "/" + side; }

// How the reporter names a measurement: name, argument, repetitions.
std::string RunName(const Pair& pair, const char* side, int length) {
  std::string name = NameOf(pair, side);
  name.append("/").append(std::to_string(length)).append("/repeats:").append(std::to_string(kRepetitions));
  return name;
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  for (const Pair& pair : kPairs) {
    for (const int length : kLengths) {
      benchmark::RegisterBenchmark(NameOf(pair, "bx").c_str(), Run, pair.ours)->Arg(length)->Repetitions(kRepetitions);
      benchmark::RegisterBenchmark(NameOf(pair, "icu").c_str(), Run, pair.icu)->Arg(length)->Repetitions(kRepetitions);
    }
  }
  BestTimes times;
  benchmark::RunSpecifiedBenchmarks(&times);

  std::printf("\nTimes as fast as ICU (best of %d)\n%-18s", kRepetitions, "units");
  for (const int length : kLengths) std::printf("%10d", length);
  for (const Pair& pair : kPairs) {
    std::printf("\n%-18s", pair.name);
    for (const int length : kLengths) {
      std::printf("%10.2f", times.Of(RunName(pair, "icu", length)) / times.Of(RunName(pair, "bx", length)));
    }
  }
  std::printf("\n");
}
