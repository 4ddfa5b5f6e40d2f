// The recording host, in which a test drives an extension or functions of the kit.
//
// Example:
//
//   RecordingHost host;
//   host.On("BX_GetMaxLayers", [](const HostCall&) { return 2; });
//   // drive the extension
//   host.Texts();  // {"BX_GetMaxLayers()", "BX_LoadTGF(0, 1, 1, 0, 1)", ...}
//
// testscore.h has one that answers with frames and records, testextension.h an extension's bundle.
//
// Whatever is linked or loaded binds to it as to the application: by the identifier of its bundle. A process has one
// host, since the kit keeps what it finds for life; each RecordingHost starts with an empty log and no handlers. There
// is one at a time.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

// A call of a host function.
struct HostCall {
  std::string name;                      // of the function
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
  std::size_t first;  // which call of the log fails, from 1
  bool andAllAfter;   // whether all after it fail, too

  // Whether this call of the log, counted from 1, fails.
  bool Has(std::size_t call) const { return call == first || (andAllAfter && call > first); }
};

// A host that logs the calls to it, and answers them as a test wants.
class RecordingHost {
 public:
  // What answers calls of a function: returns the result, of which the caller takes as many bits as the result has.
  using Handler = std::function<std::uint64_t(const HostCall&)>;
  // What hears of calls of a function.
  using Observer = std::function<void(const HostCall&)>;

  // Binds the kit to the host, where the program is linked with it, at the first time in a process; a bundle of an
  // extension binds its own when its main is called. Throws std::runtime_error where the host is not there, or another
  // one is bound.
  RecordingHost();
  ~RecordingHost();
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;

  // What a function returns; 0 if no handler is set. A handler of the same name replaces the one before it.
  //
  // Example: the user agrees to every question.
  //   host.Answer("BX_AlertMessage", kAlertYes);
  void On(const std::string& name, Handler handler) { handlers_[name] = std::move(handler); }
  void Answer(const std::string& name, std::uint64_t result) {
    On(name, [result](const HostCall&) { return result; });
  }

  // What hears of each call of a function before it is answered. An observer of the same name replaces the one before
  // it.
  //
  // Example: the user holds Command-period from the third frame on.
  //   host.Before("BX_FreeTGF", [frames = 0](const HostCall&) mutable {
  //     if (++frames < 3) return;
  //     BrvPlatformSetModifierFlags(0x100000);
  //     BrvPlatformSetKeyDown(47, true);
  //   });
  void Before(const std::string& name, Observer observer) { observers_[name] = std::move(observer); }

  // From the start of the log, these calls fail: no handler or observer hears of them, and they return 0.
  void Fail(FailingCalls calls) { failing_ = calls; }

  // The log: what was called, in that order.
  const std::vector<HostCall>& Calls() const { return calls_; }
  std::vector<std::string> Names() const;
  std::vector<std::string> Texts() const;
  int Count(const std::string& name) const;
  void Forget() { calls_.clear(); }

 private:
  static std::uint64_t Listen(void* context, const char* name, const std::uint64_t* arguments, std::size_t count);

  // The handler's answer to a call, of which its observer has heard.
  std::uint64_t Handle(const HostCall& call) const;

  // Extensions call from one thread; tests of the kit may call from several.
  std::mutex logMutex_;
  std::vector<HostCall> calls_;
  std::map<std::string, Handler> handlers_;
  std::map<std::string, Observer> observers_;
  FailingCalls failing_ = {};  // none
};

// Makes the bundle of a host: "RecordingHost", or "EmptyHost", which has no function. The kit binds to it when it is
// next initialised. The bundle stays for the life of the process.
CFBundleRef OpenHostBundle(const std::string& name);
