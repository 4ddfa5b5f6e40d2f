#include "host/files/scorefile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/host/files/temporaryfolder.h"
#include "tests/host/scores.h"

namespace brvhost {
namespace {

using ScoreFiles = TemporaryFolder;

TEST_F(ScoreFiles, AreNotReplacedWhenTheUserCancelsLast) {
  const std::string document = Partwise(Measure(Note()));
  const std::filesystem::path path = Write("score.musicxml", document);
  ScoreFile file{InputFile(path.string())};
  file.GetScore().entries[0].hidden = true;
  const LedgerEdits edits = file.Edits();
  const Target target(path.string());
  EXPECT_FALSE(file.Save(edits, target, [] { return true; }));
  EXPECT_EQ(ContentOf(path), document);
  EXPECT_EQ(FileCount(), 1u);
  EXPECT_TRUE(file.Save(edits, target, [] { return false; }));
  EXPECT_EQ(ContentOf(path), Partwise(Measure(Note("", " print-leger=\"no\""))));
}

}  // namespace
}  // namespace brvhost
