#include "host/files/filekind.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/host/files/temporaryfolder.h"

namespace brvhost {
namespace {

class FileKinds : public TemporaryFolder {};

TEST_F(FileKinds, OfScoresFollowTheirContentOrTheirName) {
  for (const char* const root :
       {"<score-partwise/>", "<?xml version='1.0'?><!-- a --><score-timewise version='4.0'>"}) {
    EXPECT_EQ(KindOf(Write("a", root)), FileKind::kScore) << root;
  }
  EXPECT_EQ(KindOf(Write("a.mxl", "PK\x03\x04")), FileKind::kScore);
  EXPECT_EQ(KindOf(Write("a.MusicXML", "damaged")), FileKind::kScore);
}

TEST_F(FileKinds, OfOtherFilesAreNone) {
  for (const char* const content : {"", "text", "<html/>", "<", "PK\x03\x04"}) {
    EXPECT_EQ(KindOf(Write("a.xml", content)), FileKind::kOther) << content;
  }
  EXPECT_EQ(KindOf("/dev/zero"), FileKind::kOther);
  EXPECT_EQ(KindOf(folder / "none"), FileKind::kNothing);
}

TEST_F(FileKinds, OfFoldersFollowTheirLayout) {
  EXPECT_EQ(KindOf(folder), FileKind::kFolder);
  for (const char* const part : {"Contents/MacOS", "Resources/Info.plist", "Support Files/Info.plist", "Info.plist"}) {
    std::filesystem::create_directories(folder / "a" / part);
    EXPECT_EQ(KindOf(folder / "a"), FileKind::kBundle) << part;
    std::filesystem::remove_all(folder / "a");
  }
}

TEST_F(FileKinds, TellOtherDocumentsFromWhatMayBeAScore) {
  EXPECT_TRUE(IsOtherDocument(Write("a.xml", "<container/>")));
  EXPECT_TRUE(IsOtherDocument(Write("b.xml", "<opus><opus-link/>")));
  for (const char* const content : {"<score-partwise>", "<score-timewise/>", "", "text", "<contain"}) {
    EXPECT_FALSE(IsOtherDocument(Write("c.xml", content))) << content;
  }
  EXPECT_FALSE(IsOtherDocument(folder / "none"));
}

}  // namespace
}  // namespace brvhost
