// Whoever sees alerts and progress.
#pragma once

#include <cstdint>
#include <string>

namespace brvhost {

class User {
 public:
  virtual ~User() = default;
  virtual void Show(const std::string& text) = 0;
  // Whether the user agrees.
  virtual bool Ask(const std::string& question) = 0;
  virtual void ShowProgress(std::int64_t done, std::int64_t total) = 0;
  virtual void EndProgress() = 0;
};

}  // namespace brvhost
