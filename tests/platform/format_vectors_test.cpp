// Formats are written as the macOS library writes them.
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <array>
#include <deque>
#include <sstream>

#include "knowndifferences.h"
#include "tests/support/shared.h"
#include "vectors.h"

namespace {

// The arguments of a row as a call passes them: integers and pointers in one sequence, floating numbers in another,
// each read in its own order, whatever the order between the two.
class CallArguments {
 public:
  explicit CallArguments(const std::string& text) {
    std::istringstream list(text);
    for (std::string argument; std::getline(list, argument, ';');) Add(argument);
  }
  CallArguments(const CallArguments&) = delete;
  CallArguments& operator=(const CallArguments&) = delete;
  ~CallArguments() {
    for (const CFStringRef object : objects_) CFRelease(object);
  }

  // As many as the last position of the table names.
  std::array<long, 128> words{};
  std::array<double, 8> doubles{};

 private:
  void Add(const std::string& argument) {
    const std::string type = argument.substr(0, argument.find(':'));
    const std::string value = argument.substr(argument.find(':') + 1);
    if (type == "double") {
      doubles[doubleCount_++] = std::stod(value);
    } else {
      words[wordCount_++] = Word(type, value);
    }
  }

  long Word(const std::string& type, const std::string& value) {
    if (value == "NULL") return 0;
    if (type == "cstr") return reinterpret_cast<long>(bytes_.emplace_back(BytesFromHex(value)).c_str());
    if (type == "unichars") return reinterpret_cast<long>(units_.emplace_back(UnitsFromHex(value)).c_str());
    if (type == "cfstring") return reinterpret_cast<long>(objects_.emplace_back(MakeString(UnitsFromHex(value))));
    return static_cast<long>(value.starts_with('-') ? static_cast<unsigned long>(std::stol(value, nullptr, 0))
                                                    : std::stoul(value, nullptr, 0));
  }

  std::size_t wordCount_ = 0;
  std::size_t doubleCount_ = 0;
  std::deque<std::string> bytes_;
  std::deque<std::u16string> units_;
  std::deque<CFStringRef> objects_;
};

template <std::size_t... word, std::size_t... number>
CFStringRef Format(CFStringRef format, const CallArguments& call, std::index_sequence<word...>,
                   std::index_sequence<number...>) {
  return CFStringCreateWithFormat(kCFAllocatorDefault, nullptr, format, call.words[word]..., call.doubles[number]...);
}

TEST(FormatVectors, CreateWithFormat) {
  const auto table = VectorFolder() / "format.tsv";
  SKIP_WITHOUT(table);
  const std::set<int> known = KnownDifferences("format.txt");
  for (const VectorRow& row : ReadVectors(table)) {
    const CallArguments call(row.columns[1]);
    const CFStringRef format = MakeString(UnitsFromHex(row.columns[0]));
    const std::string text =
        TakeHex(Format(format, call, std::make_index_sequence<128>(), std::make_index_sequence<8>()));
    CFRelease(format);
    ExpectRow(known, row, text, row.columns[2]);
  }
}

TEST(Format, ReachesThe127thArgument) {
  CallArguments call("");
  call.words[126] = 42;
  const auto formatted = [&call](const std::u16string& format) {
    const CFStringRef string = MakeString(format);
    std::string text = TakeHex(Format(string, call, std::make_index_sequence<128>(), std::make_index_sequence<8>()));
    CFRelease(string);
    return text;
  };
  EXPECT_EQ(formatted(u"%127$d"), HexOf(u"42"));
  EXPECT_EQ(formatted(u"%128$d"), "NULL");
}

}  // namespace
