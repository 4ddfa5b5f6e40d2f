// The user's language, for a while another one.
#pragma once

#include <string>
#include <vector>

namespace brvhost {

// As long as it lives, the environment names this language as the user's. Giving the environment back needs no memory;
// what was set in it meanwhile is lost.
class UserLanguage {
 public:
  explicit UserLanguage(const std::string& language);
  ~UserLanguage();
  UserLanguage(const UserLanguage&) = delete;
  UserLanguage& operator=(const UserLanguage&) = delete;

 private:
  std::vector<std::string> own_;
  std::vector<char*> variables_;
  char** before_;
};

}  // namespace brvhost
