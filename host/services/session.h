// What the host functions that an extension calls work on: an extension, an open document, a selection, a user.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "host/bundle/extension.h"
#include "host/services/document.h"

namespace brvhost {

// Kinds of alerts that mean more than their text.
inline constexpr int kAlertQuestion = 33;

// Whoever sees alerts and progress.
class User {
 public:
  virtual ~User() = default;
  virtual void Tell(const std::string& text) = 0;
  // Whether the user agrees.
  virtual bool Ask(const std::string& question) = 0;
  virtual void ShowProgress(std::int64_t done, std::int64_t total) = 0;
  virtual void EndProgress() = 0;
};

class Session {
 public:
  // All of them outlive the session. At most one is open at a time.
  Session(const Extension& extension, OpenDocument& document, User& user);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // The open session, or null. The exported host functions serve it; without one they answer as a host that can do
  // nothing.
  static Session* Current();

  OpenDocument& Document() { return document_; }
  const OpenDocument& Document() const { return document_; }

  // The selection, if the user made one.
  std::optional<EREGION> region;
  // The layers that are shown, from 0; all of them when empty.
  std::vector<int> shownLayers;

  bool IsLayerShown(int layer) const;
  // Shows the alert and returns the answer: 1 for yes and for having seen it, 0 for no.
  int Alert(int kind, const std::string& text);
  int AlertWithID(int kind, std::int32_t stringID);

  // What a host function that failed threw, until whoever opened the session asks: the first of them is kept.
  void KeepFailure(std::exception_ptr failure);
  void RethrowFailure() const;

  // One display of progress at a time. The handle is the host's own and never null.
  void* StartProgress(std::int64_t total);
  bool AddProgress(const void* handle, int increment);
  bool EndProgress(const void* handle);
  bool ShowsProgress() const { return progress_.has_value(); }

 private:
  struct Progress {
    std::int64_t done = 0;
    std::int64_t total = 0;
  };

  const Extension& extension_;
  OpenDocument& document_;
  User& user_;
  std::optional<Progress> progress_;
  std::exception_ptr failure_;
};

}  // namespace brvhost
