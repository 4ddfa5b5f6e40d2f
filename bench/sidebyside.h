// Two ways of doing a thing, timed in turn within one run, and their ratio.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

// The mean time of many calls, in nanoseconds. Each call is given its number.
template <class Call>
double NanosecondsOf(int calls, Call call) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < calls; ++i) call(i);
  const std::chrono::duration<double, std::nano> elapsed = std::chrono::steady_clock::now() - start;
  return elapsed.count() / calls;
}

// Prints both times and their ratio, each the best of all turns, and then the least, the median and the greatest ratio
// of a single turn.
template <class First, class Second>
void PrintRatio(const char* text, int calls, First first, Second second) {
  constexpr int kTurns = 25;
  std::vector<double> firsts;
  std::vector<double> seconds;
  std::vector<double> ratios;
  for (int i = 0; i < kTurns; ++i) {
    firsts.push_back(NanosecondsOf(calls, first));
    seconds.push_back(NanosecondsOf(calls, second));
    ratios.push_back(firsts.back() / seconds.back());
  }
  std::ranges::sort(ratios);
  const double a = *std::ranges::min_element(firsts);
  const double b = *std::ranges::min_element(seconds);
  std::printf("%-70s %10.2f ns %10.2f ns   ratio %.2f (%.2f, %.2f, %.2f)\n", text, a, b, a / b, ratios.front(),
              ratios[kTurns / 2], ratios.back());
}
