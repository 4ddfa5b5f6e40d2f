// An extension as the host drives it: bound, asked for its version and its items, invoked, ended.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "host/bundle/entrypoints.h"
#include "host/bundle/loadedbundle.h"
#include "host/text/namematch.h"

namespace brvhost {

// The texts of one menu item, in UTF-8: its name in the menu, its name in the Undo command, and its explanation.
struct MenuItem {
  std::string name;
  std::string undoName;
  std::string explanation;
};

class Extension {
 public:
  // Loads the bundle, binds it to this host, checks its version and initialises it. Throws BundleError.
  explicit Extension(const std::string& path);

  // All items, from 0 up to the first index that the extension refuses. Throws BundleError when there is no end to
  // them.
  std::vector<MenuItem> Items() const;
  // How well a name fits those of the first `count` items, each in that language in which it fits best.
  std::vector<NameMatch> MatchesOf(const std::string& name, std::size_t count) const;
  // Whether the host offers the items at all: 0 is no.
  int MenuStatus() const { return entryPoints_.MenuStatus(); }
  // Runs an item on `region`; with a null region the extension asks whether it may use `fallback`. Returns the 16-bit
  // result: not 0 when something changed.
  int Invoke(int item, EREGION* region, EREGION* fallback) const { return entryPoints_.Invoke(item, region, fallback); }
  // Lets the extension release what it holds: the host is done with it.
  void Terminate() const { entryPoints_.Terminate(); }

  // The text of a string ID in the user's language; the key itself where the bundle has no such text.
  std::string LocalizedText(std::int32_t stringID) const;

 private:
  LoadedBundle bundle_;
  EntryPoints entryPoints_;
};

}  // namespace brvhost
