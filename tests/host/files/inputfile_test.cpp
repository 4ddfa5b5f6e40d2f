#include "host/files/inputfile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>

#include "host/text/inputerror.h"
#include "tests/host/files/temporaryfolder.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

class InputFiles : public TemporaryFolder {
 protected:
  // Why the file cannot be opened, or not be read.
  static std::string Refusal(const fs::path& path, std::uint64_t maxSize = 1000) {
    try {
      InputFile(path.string()).Read(maxSize);
    } catch (const InputError& error) {
      return error.what();
    }
    return "it was read";
  }

  // Reads what another thread writes to a pipe.
  std::string RefusalOfPipe(const std::string& content, std::uint64_t maxSize) const {
    const fs::path pipe = folder / "pipe";
    EXPECT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::thread writer([&] { Write("pipe", content); });
    std::string refusal = Refusal(pipe, maxSize);
    writer.join();
    fs::remove(pipe);
    return refusal;
  }
};

TEST_F(InputFiles, AreReadWhole) {
  const InputFile file(Write("score", "content").string());
  EXPECT_EQ(file.Size(), 7u);
  EXPECT_EQ(file.Read(1).View(), "content");
}

TEST_F(InputFiles, AreNoFoldersAndNoDevices) {
  EXPECT_EQ(Refusal(folder), "is a folder; --recursive takes the scores in it");
  std::filesystem::create_directory(folder / "Contents");
  EXPECT_EQ(Refusal(folder), "is an extension, not a score");
  EXPECT_EQ(Refusal("/dev/zero"), "is a device");
  EXPECT_EQ(Refusal(folder / "none"), "No such file or directory");
}

TEST_F(InputFiles, TakeFromAPipeNoMoreThanIsAllowed) {
  EXPECT_EQ(RefusalOfPipe("12345", 5), "it was read");
  EXPECT_EQ(RefusalOfPipe("123456", 5), "is larger than 5 bytes; --max-size allows more");
}

TEST_F(InputFiles, KeepTheIdentityThatTheyWereOpenedWith) {
  const fs::path path = Write("score", "content");
  const InputFile before(path.string());
  const InputFile again(path.string());
  EXPECT_EQ(before.Identity(), again.Identity());
  fs::last_write_time(path, fs::last_write_time(path) - std::chrono::seconds(1));
  const InputFile written(path.string());
  EXPECT_NE(before.Identity(), written.Identity());
  EXPECT_EQ(before.Identity(), again.Identity());
  fs::rename(Write("other", "content"), path);
  EXPECT_NE(InputFile(path.string()).Identity().inode, written.Identity().inode);
}

}  // namespace
}  // namespace brvhost
