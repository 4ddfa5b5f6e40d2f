// What the calling convention asks of every extension, and what hosts and users wish of one.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/check/emptyhost.h"

namespace brvhost {

// What it is that does not hold: for people to know, a trouble for hosts or users, a breach of the convention.
enum class Severity { kNote, kWarning, kError };

// "note", "warning", "error".
const char* NameOf(Severity severity);

enum class FactKind {
  kStart,      // of how the extension starts: no fact of these two kinds can hold without it
  kBehaviour,  // of what it does
  kFiles,      // of the files in the bundle: holds or not without any of its code
};

// What a fact is about.
struct Subject {
  std::string path;                      // of the bundle
  const EmptyHost* emptyHost = nullptr;  // for the facts that need one
};

struct Fact {
  std::string name;      // short, and the same in all releases; no name contains another
  std::string sentence;  // what holds, as a clause about the extension
  Severity severity;
  FactKind kind;
  // Empty when it holds, else what went wrong. May crash or not return: the extension's code runs in it. What the
  // extension throws, and a bundle that cannot be used, come out as exceptions.
  std::function<std::string(const Subject&)> check;
  bool needsEmptyHost = false;
  bool hearsCalls = false;
};

// Those that can be checked on this system, in the order in which a host comes to rely on them.
const std::vector<Fact>& AllFacts();

// What the fact's check returns, or what was thrown in it.
std::string WrongWith(const Fact& fact, const Subject& subject);

}  // namespace brvhost
