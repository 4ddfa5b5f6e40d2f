// The recording host, as tests use it:
//
//   RecordingHost host;
//   host.On("BX_GetMaxLayers", [](const HostCall&) { return 2; });
//   ... drive the kit ...
//   EXPECT_THAT(host.Names(), ElementsAre("BX_GetMaxLayers"));
//
// The kit binds to it as to the application: by the identifier of its bundle. A process has one host, since the kit
// keeps what it finds for life; each RecordingHost starts with an empty log and no handlers.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

struct HostCall {
  std::string name;
  std::vector<std::uint64_t> arguments;  // with the version, the last
  std::uint64_t result = 0;              // once the host has returned

  // The registers as the host reads them.
  int Int(std::size_t index) const { return static_cast<int>(arguments.at(index)); }
  template <class T>
  T* Pointer(std::size_t index) const {
    return reinterpret_cast<T*>(arguments.at(index));
  }

  // "BX_GetShowLayer(2)": integers as signed numbers, without the version. Pointers show as whether they are null.
  std::string Text() const;
};

// Calls that fail: one, counted from 1, and perhaps all that follow it.
struct FailingCalls {
  std::size_t first;
  bool andAllAfter;

  bool Has(std::size_t call) const { return call == first || (andAllAfter && call > first); }
};

class RecordingHost {
 public:
  using Handler = std::function<std::uint64_t(const HostCall&)>;

  // Binds the kit to the host, at the first time in a process.
  RecordingHost();
  ~RecordingHost();
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;

  // What a function returns; 0 if no handler is set.
  void On(const std::string& name, Handler handler) { handlers_[name] = std::move(handler); }
  void Answer(const std::string& name, std::uint64_t result) {
    On(name, [result](const HostCall&) { return result; });
  }

  // From the start of the log, these calls fail: no handler hears of them, and they return 0.
  void Fail(FailingCalls calls) { failing_ = calls; }

  const std::vector<HostCall>& Calls() const { return calls_; }
  std::vector<std::string> Names() const;
  std::vector<std::string> Texts() const;
  int Count(const std::string& name) const;
  void Forget() { calls_.clear(); }

 private:
  static std::uint64_t Listen(void* context, const char* name, const std::uint64_t* arguments, std::size_t count);

  // The handler's answer to a call.
  std::uint64_t Handle(const HostCall& call) const;

  // Extensions call from one thread; tests of the kit may call from several.
  std::mutex logMutex_;
  std::vector<HostCall> calls_;
  std::map<std::string, Handler> handlers_;
  FailingCalls failing_ = {};  // none
};

// Makes the bundle of a host beside the test programs: "RecordingHost", or "EmptyHost", which has no
// function. The kit binds to it when it is next initialised. The bundle stays for the life of the process.
CFBundleRef OpenHostBundle(const std::string& name);
