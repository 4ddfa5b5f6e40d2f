#include <BrvEDK/recordinghost.h>

#include <BrvEDK/hostbundle.h>

#include <algorithm>
#include <stdexcept>

#include "recordinghostinterface.h"

// A program that is not linked with the kit has neither; the bundle that it loads has its own.
#pragma weak InitializeGlobals
#pragma weak GetBrevixBundleRef

namespace {

bool IsKitLinked() { return InitializeGlobals != nullptr && GetBrevixBundleRef != nullptr; }

RecordingHostListenFunction ListenFunction() {
  static const auto function = [] {
    const CFBundleRef bundle = OpenHostBundle("RecordingHost");
    if (IsKitLinked() && (InitializeGlobals() != 0 || GetBrevixBundleRef() != bundle)) {
      throw std::runtime_error("another host is bound");
    }
    void* const found =
        bundle == nullptr ? nullptr : CFBundleGetFunctionPointerForName(bundle, CFSTR("RecordingHostListen"));
    if (found == nullptr) throw std::runtime_error(BRV_HOST_FOLDER ": there is no RecordingHost.bundle");
    return reinterpret_cast<RecordingHostListenFunction>(found);
  }();
  return function;
}

}  // namespace

CFBundleRef OpenHostBundle(const std::string& name) {
  // Never destroyed, as the bundles are not: the leak checker sees them held.
  static auto& bundles = *new std::map<std::string, CFBundleRef>;
  CFBundleRef& bundle = bundles[name];
  if (bundle != nullptr) return bundle;
  const std::string path = BRV_HOST_FOLDER "/" + name + ".bundle";
  const CFURLRef url = CFURLCreateFromFileSystemRepresentation(
      kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()), static_cast<CFIndex>(path.size()), true);
  bundle = CFBundleCreate(kCFAllocatorDefault, url);
  CFRelease(url);
  return bundle;
}

std::string HostCall::Text() const {
  std::string text = name + "(";
  for (std::size_t i = 0; i + 1 < arguments.size(); ++i) {
    if (i > 0) text += ", ";
    text += arguments[i] > UINT32_MAX ? "pointer" : std::to_string(static_cast<int>(arguments[i]));
  }
  return text + ")";
}

RecordingHost::RecordingHost() { ListenFunction()(&RecordingHost::Listen, this); }

RecordingHost::~RecordingHost() { ListenFunction()(nullptr, nullptr); }

std::vector<std::string> RecordingHost::Names() const {
  std::vector<std::string> names;
  for (const HostCall& call : calls_) names.push_back(call.name);
  return names;
}

std::vector<std::string> RecordingHost::Texts() const {
  std::vector<std::string> texts;
  for (const HostCall& call : calls_) texts.push_back(call.Text());
  return texts;
}

int RecordingHost::Count(const std::string& name) const {
  return static_cast<int>(
      std::count_if(calls_.begin(), calls_.end(), [&](const HostCall& c) { return c.name == name; }));
}

std::uint64_t RecordingHost::Handle(const HostCall& call) const {
  if (const auto observer = observers_.find(call.name); observer != observers_.end()) observer->second(call);
  const auto handler = handlers_.find(call.name);
  return handler == handlers_.end() ? 0 : handler->second(call);
}

std::uint64_t RecordingHost::Listen(void* context, const char* name, const std::uint64_t* arguments,
                                    std::size_t count) {
  auto& host = *static_cast<RecordingHost*>(context);
  HostCall call = {name, {arguments, arguments + count}};
  std::size_t number = 0;
  {
    const std::lock_guard lock(host.logMutex_);
    host.calls_.push_back(call);
    number = host.calls_.size();
  }
  // A handler may drive the kit, and with it the log.
  call.result = host.failing_.Has(number) ? 0 : host.Handle(call);
  const std::lock_guard lock(host.logMutex_);
  if (number <= host.calls_.size()) host.calls_[number - 1].result = call.result;
  return call.result;
}
