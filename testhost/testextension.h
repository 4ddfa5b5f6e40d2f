// An extension's bundle in a test, called as a host does.
//
// Example:
//
//   RecordingHost host;
//   TestExtension extension("build/Mine.bundle");
//   extension.Items()[0].name;  // u"Mark Wide Leaps"
//   EREGION region = score.Region();
//   extension.Invoke(0, &region);
//
// Its texts are in the language of the variable LANGUAGE, as brvhost has them: set it before the first extension is
// made.
#pragma once

#include <BrvEDK/convention.h>
#include <CoreFoundation/CoreFoundation.h>

#include <string>
#include <vector>

// A bundle that is loaded and bound to the recording host.
class TestExtension {
 public:
  // A menu item, by its three texts.
  struct Item {
    std::u16string name;         // in the menu
    std::u16string undoName;     // in the Undo command
    std::u16string explanation;  // of what it does
  };

  // Loads the bundle at a path, and calls its main, its version and its init. Make the RecordingHost first: the
  // extension binds to it. Throws std::runtime_error, with what is wrong.
  explicit TestExtension(const std::string& path);
  // Calls its terminate. The code stays loaded, as in a host.
  ~TestExtension();
  TestExtension(const TestExtension&) = delete;
  TestExtension& operator=(const TestExtension&) = delete;

  // The menu items. Throws std::runtime_error if the list does not end.
  std::vector<Item> Items() const;

  // Carries out an item. Without a region nothing is selected. Returns non-zero if the extension reports a change.
  int Invoke(int item, EREGION* region, EREGION* fallback = nullptr) const;

  // A function that the bundle exports. Throws std::runtime_error where it has none of that name.
  template <class Function>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(Address(name));
  }

 private:
  void* Address(const char* name) const;

  std::string path_;
  CFBundleRef bundle_;
};
