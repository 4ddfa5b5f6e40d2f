#include "host/services/session.h"

#include <utility>

#include "BrvEDK/Source/convention.h"

namespace brvhost {
namespace {

Session* current = nullptr;

}  // namespace

Session::Session(const Extension& extension, OpenDocument& document, User& user)
    : extension_(extension), document_(document), user_(user) {
  current = this;
}

Session::~Session() { current = nullptr; }

Session* Session::Current() { return current; }

bool Session::IsLayerShown(int layer) const {
  if (layer < 0 || layer >= document_.GetScore().layers) return false;
  return !selection_ || selection_->layers.empty() || Contains(selection_->layers, layer + 1);
}

int Session::Alert(int kind, const std::string& text) {
  if (kind == kAlertQuestion) return user_.Ask(text) ? kAlertYes : 0;
  user_.Show(text);
  return kAlertYes;
}

int Session::AlertWithID(int kind, std::int32_t stringID) { return Alert(kind, extension_.LocalizedText(stringID)); }

void Session::KeepFailure(std::exception_ptr failure) {
  if (failure_ == nullptr) failure_ = std::move(failure);
}

void Session::RethrowFailure() const {
  if (failure_ != nullptr) std::rethrow_exception(failure_);
}

void* Session::StartProgress(std::int64_t total) {
  progress_ = {0, total};
  return &progress_;
}

bool Session::AddProgress(const void* handle, int increment) {
  if (handle != &progress_ || !progress_) {
    document_.Misuses().Note("moves a progress display that it has not started");
    return false;
  }
  progress_->done += increment;
  user_.ShowProgress(progress_->done, progress_->total);
  return true;
}

bool Session::EndProgress(const void* handle) {
  if (handle != &progress_ || !progress_) {
    document_.Misuses().Note("ends a progress display that it has not started");
    return false;
  }
  progress_.reset();
  user_.EndProgress();
  return true;
}

}  // namespace brvhost
