// What other extensions were compiled against: the size of the class and its virtual table.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <link.h>

#include <cstring>
#include <string>

#include "eu16string.h"
#include "unittraits.h"

namespace {

const void* const* VirtualTableOf(const eu16string& text) {
  const void* const* table;
  std::memcpy(&table, static_cast<const void*>(&text), sizeof(table));
  return table;
}

std::string SymbolAt(const void* address) {
  Dl_info info = {};
  if (dladdr(address, &info) == 0 || info.dli_sname == nullptr) return "none";
  return info.dli_sname;
}

TEST(Eu16StringLayout, IsAVirtualTableAndOneStandardString) {
  EXPECT_EQ(sizeof(eu16string), sizeof(void*) + sizeof(std::basic_string<UniChar, UnitTraits>));
}

TEST(Eu16StringLayout, HasTwoSlotsInItsVirtualTable) {
  const eu16string text = "";
  const void* const* slots = VirtualTableOf(text);
  Dl_info info = {};
  const ElfW(Sym)* symbol = nullptr;
  ASSERT_NE(dladdr1(slots, &info, reinterpret_cast<void**>(const_cast<ElfW(Sym)**>(&symbol)), RTLD_DL_SYMENT), 0);
  ASSERT_NE(symbol, nullptr);
  EXPECT_STREQ(info.dli_sname, "_ZTV10eu16string");
  // Before the slots come the offset to the whole object and the class's type information.
  EXPECT_EQ(static_cast<const void* const*>(info.dli_saddr) + 2, slots);
  EXPECT_EQ(symbol->st_size, 4 * sizeof(void*));
}

TEST(Eu16StringLayout, HasTheDestructorAndThenTheDeletingDestructor) {
  const eu16string text = "";
  const void* const* slots = VirtualTableOf(text);
  // Without base classes the complete destructor and that of a base are one.
  const std::string destructor = SymbolAt(slots[0]);
  EXPECT_TRUE(destructor == "_ZN10eu16stringD1Ev" || destructor == "_ZN10eu16stringD2Ev") << destructor;
  EXPECT_EQ(SymbolAt(slots[1]), "_ZN10eu16stringD0Ev");
}

}  // namespace
