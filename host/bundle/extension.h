// An extension's bundle as the host drives it: loaded, bound, asked for its version and its items, invoked, ended.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "BrvEDK/Source/convention.h"

namespace brvhost {

// The bundle does not load, lacks an entry point, or was built for another version of the host's interface.
class BundleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The texts of one menu item, in UTF-8: its name in the menu, its name in the Undo command, and its explanation.
struct MenuItem {
  std::string name;
  std::string undoName;
  std::string explanation;
};

// The entry points that an extension has to export besides main.
struct EntryPoints {
  decltype(BrevixExtensionVersion)* version = nullptr;
  decltype(BrevixExtensionInit)* init = nullptr;
  decltype(BrevixExtensionEnumerate_UTF16)* enumerate = nullptr;
  decltype(BrevixExtensionInvoke)* invoke = nullptr;
  decltype(BrevixExtensionTerminate)* terminate = nullptr;
  decltype(BrevixExtensionGetMenuStatus)* menuStatus = nullptr;
};

// A bundle whose code is loaded; nothing of it has run yet but its initialisers.
class LoadedBundle {
 public:
  // Throws BundleError.
  explicit LoadedBundle(const std::string& path);
  // The code stays loaded: it may have left addresses behind.
  ~LoadedBundle();
  LoadedBundle(const LoadedBundle&) = delete;
  LoadedBundle& operator=(const LoadedBundle&) = delete;

  const std::string& Path() const { return path_; }
  CFBundleRef Reference() const { return bundle_; }
  // The exported function of that name, or null.
  void* Find(const char* name) const;

 private:
  std::string path_;
  CFBundleRef bundle_;
};

class Extension {
 public:
  // Loads the bundle, binds it to this host, checks its version and initialises it. Throws BundleError.
  explicit Extension(const std::string& path);

  // All items, from 0 up to the first index that the extension refuses. Throws BundleError when there is no end to
  // them.
  std::vector<MenuItem> Items() const;
  // Whether the host offers the items at all: 0 is no.
  int MenuStatus() const;
  // Runs an item on `region`; with a null region the extension asks whether it may use `fallback`. Returns the 16-bit
  // result: not 0 when something changed.
  int Invoke(int item, EREGION* region, EREGION* fallback) const;
  // Tells the extension that the host is done with it.
  void Terminate() const;

  // The text of a string ID in the user's language; the key itself where the bundle has no such text.
  std::string LocalizedText(std::int32_t stringID) const;

 private:
  LoadedBundle bundle_;
  EntryPoints entryPoints_;
};

}  // namespace brvhost
