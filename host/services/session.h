// What the host functions that an extension calls work on: an extension, an open document, a selection, a user.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <string>

#include "host/bundle/extension.h"
#include "host/score/region.h"
#include "host/services/document.h"
#include "host/services/user.h"

namespace brvhost {

class Session {
 public:
  // Extension, document and user outlive the session. At most one session is open at a time. Nothing is selected.
  Session(const Extension& extension, OpenDocument& document, User& user);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // The open session, or null. The exported host functions work on it; without one they return what a host does that
  // can do nothing.
  static Session* Current();

  OpenDocument& Document() { return document_; }
  const OpenDocument& Document() const { return document_; }

  // From now on this is selected instead.
  void Select(const Block& block) { selection_ = block; }
  // What is selected, if there is anything.
  const std::optional<Block>& Selection() const { return selection_; }
  // By its number from 0.
  bool IsLayerShown(int layer) const;

  // Shows the alert and returns the answer: kAlertYes for yes and for having seen it, 0 for no.
  int Alert(int kind, const std::string& text);
  int AlertWithID(int kind, std::int32_t stringID);

  // Keeps the first exception of a host function, until whoever opened the session asks for it.
  void KeepFailure(std::exception_ptr failure);
  bool HasFailed() const { return failure_ != nullptr; }
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
  std::optional<Block> selection_;
  std::optional<Progress> progress_;
  std::exception_ptr failure_;
};

}  // namespace brvhost
