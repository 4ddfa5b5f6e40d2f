#include "host/process/memoryreserve.h"

#include <cstddef>
#include <memory>
#include <new>
#include <thread>

namespace brvhost {
namespace {

// For messages and what they say, while the other thread finds that it has too little, and gives back what it has.
constexpr std::size_t kReserve = std::size_t{1} << 20;

std::thread::id owner;
std::unique_ptr<char[]> reserve;

void OnShortage() {
  if (std::this_thread::get_id() != owner || reserve == nullptr) throw std::bad_alloc();
  reserve.reset();
}

}  // namespace

void ReserveMemory() {
  reserve.reset(new char[kReserve]);
  owner = std::this_thread::get_id();
  std::set_new_handler(OnShortage);
}

}  // namespace brvhost
