// ICU's functions and the bx_ functions of the same kind, as calls on the same text.
#pragma once

#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include <cstddef>
#include <string>

#include "bxstring.h"

inline constexpr char16_t kAbsent = u'#';

// A text without kAbsent, and everything else that one measurement needs.
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

inline constexpr char16_t kRareNeedle[] = u"#z";
// Its first unit is at every 26th place; its first two are never next to each other.
inline constexpr char16_t kFrequentNeedle[] = u"aa";

inline const UniChar* AsUnits(const char16_t* text) { return reinterpret_cast<const UniChar*>(text); }

struct Pair {
  const char* name;
  void (*ours)(Texts&);
  void (*icu)(Texts&);
};

template <class Result>
void Keep(Result result) {
  benchmark::DoNotOptimize(result);
}

inline const Pair kPairs[] = {
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

inline constexpr std::size_t kLengths[] = {8, 64, 1024, 65536};
