#include "host/code/exporttrie.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/code/macname.h"

namespace brvhost {
namespace {

struct Branch {
  std::uint64_t node;
  std::size_t start;      // of its text within the name
  std::string_view text;  // what it adds to it
};

class Trie {
 public:
  Trie(const CodeBytes& bytes, CodeImage& image) : bytes_(bytes), image_(image), seen_(bytes.Size()) {}

  void AddExports() {
    branches_.push_back({0, 0, ""});
    while (!branches_.empty()) {
      const Branch branch = branches_.back();
      branches_.pop_back();
      name_.resize(branch.start);
      name_ += branch.text;
      Visit(branch.node);
    }
  }

 private:
  void Visit(std::uint64_t node) {
    if (node >= seen_.size()) throw CodeError("has exports beyond its end");
    if (seen_[node]) throw CodeError("has exports that go in a circle");
    seen_[node] = true;
    CodeCursor cursor(bytes_, node);
    const std::uint64_t size = cursor.Leb();
    if (size != 0) image_.AddExport(NameOfMac(name_));
    bytes_.Part(cursor.At(), size);
    AddBranches(CodeCursor(bytes_, cursor.At() + size));
  }

  void AddBranches(CodeCursor cursor) {
    const unsigned count = cursor.Byte();
    for (unsigned i = 0; i < count; ++i) {
      const std::string_view text = cursor.Text();
      branches_.push_back({cursor.Leb(), name_.size(), text});
    }
  }

  const CodeBytes& bytes_;
  CodeImage& image_;
  std::vector<bool> seen_;
  std::vector<Branch> branches_;  // that are still to be gone
  std::string name_;
};

}  // namespace

void AddExportsOfTrie(const CodeBytes& trie, CodeImage& image) {
  if (trie.Size() != 0) Trie(trie, image).AddExports();
}

}  // namespace brvhost
