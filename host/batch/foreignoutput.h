// What an extension prints.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "host/process/descriptor.h"

namespace brvhost {

// The reading end of a pipe that an extension's standard output and error go to.
class ForeignOutput {
 public:
  // The two ends; the other one is the extension's. Throws std::system_error.
  static std::pair<ForeignOutput, Descriptor> Pipe();

  ForeignOutput() = default;

  int Get() const { return pipe_.Get(); }

  // Hands out whole lines that have arrived, without waiting for more, and no more than a pipe holds.
  template <class Work>
  void Read(const Work& work) {
    for (int i = 0; i < kMaxReads && Fill(); ++i) HandOut(work);
  }

  // Hands out what is there, and closes: what is still to come is from others that hold the pipe.
  template <class Work>
  void Finish(const Work& work) {
    Read(work);
    if (!rest_.empty()) work(std::string_view(rest_));
    rest_.clear();
    pipe_ = {};
  }

 private:
  static constexpr std::size_t kMaxLine = 4096;
  static constexpr int kMaxReads = 16;

  explicit ForeignOutput(Descriptor pipe) : pipe_(std::move(pipe)) {}

  // False when nothing has arrived.
  bool Fill();

  template <class Work>
  void HandOut(const Work& work) {
    for (std::size_t end; (end = std::min(rest_.find('\n'), kMaxLine)) < rest_.size();) {
      work(std::string_view(rest_).substr(0, end));
      rest_.erase(0, end + (rest_[end] == '\n' ? 1 : 0));
    }
  }

  Descriptor pipe_;
  std::string rest_;
};

}  // namespace brvhost
