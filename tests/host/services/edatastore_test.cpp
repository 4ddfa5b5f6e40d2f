#include "host/services/edatastore.h"

#include <gtest/gtest.h>

#include "BrvEDK/Source/recordtag.h"

namespace brvhost {
namespace {

constexpr std::uint32_t kTag = RecordTag("TEST");

TEST(EDataStore, WalksTheRecordsOfOneTagInUnsignedOrder) {
  EDataStore store;
  EXPECT_TRUE(store.Create(kTag, {kDocumentRecord, 0}, {1}));
  EXPECT_TRUE(store.Create(kTag, {1, 0x8000}, {2}));
  EXPECT_TRUE(store.Create(kTag, {1, 2}, {3}));
  EXPECT_TRUE(store.Create(kTag + 1, {0, 0}, {4}));
  EDataKey key{0, 0};
  EXPECT_EQ(*store.Next(kTag, key), EDataStore::Bytes{3});
  EXPECT_EQ(*store.Next(kTag, key), EDataStore::Bytes{2});
  EXPECT_EQ(*store.Next(kTag, key), EDataStore::Bytes{1});
  EXPECT_EQ(store.Next(kTag, key), nullptr);
  EXPECT_EQ(key.recordNumber, kDocumentRecord);
  EXPECT_EQ(*store.Previous(kTag, key), EDataStore::Bytes{2});
}

TEST(EDataStore, CreatesWhatIsNotThereAndSavesEitherWay) {
  EDataStore store;
  EXPECT_TRUE(store.Create(kTag, {1, 1}, {5}));
  EXPECT_FALSE(store.Create(kTag, {1, 1}, {6}));
  store.Save(kTag, {1, 1}, {7});
  store.Save(kTag, {1, 2}, {8});
  EXPECT_EQ(*store.Find(kTag, {1, 1}), EDataStore::Bytes{7});
  EXPECT_EQ(*store.Find(kTag, {1, 2}), EDataStore::Bytes{8});
}

TEST(EDataStore, EndsAtTheFirstAndTheLastRecordOfATag) {
  EDataStore store;
  EDataKey key{3, 4};
  EXPECT_EQ(store.Previous(kTag, key), nullptr) << "of no records";
  EXPECT_EQ(store.Next(kTag, key), nullptr);
  store.Save(kTag, {3, 4}, {1});
  EXPECT_EQ(store.Previous(kTag, key), nullptr) << "of one";
  EXPECT_EQ(store.Next(kTag, key), nullptr);
  store.Save(kTag - 1, {3, 3}, {2});
  store.Save(kTag + 1, {3, 5}, {3});
  EXPECT_EQ(store.Previous(kTag, key), nullptr) << "between others";
  EXPECT_EQ(store.Next(kTag, key), nullptr);
  EXPECT_EQ(key.recordNumber, 3);
  EXPECT_EQ(key.recordIndex, 4);
}

TEST(EDataStore, KnowsHowItDiffersFromWhatItWas) {
  EDataStore store;
  store.Save(kTag, {1, 1}, {5});
  store.Save(kTag, {1, 2}, {6});
  store.KeepOriginals();
  EXPECT_FALSE(store.FirstChanged());
  EXPECT_TRUE(store.Erase(kTag, {1, 2}));
  ASSERT_TRUE(store.FirstChanged());
  EXPECT_EQ(store.FirstChanged()->second.recordIndex, 2);
  EXPECT_TRUE(store.Create(kTag, {1, 2}, {7}));
  ASSERT_TRUE(store.FirstChanged()) << "another in its place";
  store.Save(kTag, {1, 2}, {6});
  EXPECT_FALSE(store.FirstChanged());
  EXPECT_EQ(store.Added(), 0u);
  EXPECT_TRUE(store.Create(kTag, {2, 1}, {8}));
  EXPECT_EQ(store.Added(), 1u);
  EXPECT_FALSE(store.FirstChanged());
}

TEST(EDataStore, DeletesOnce) {
  EDataStore store;
  store.Save(kTag, {1, 1}, {5});
  EXPECT_TRUE(store.Erase(kTag, {1, 1}));
  EXPECT_FALSE(store.Erase(kTag, {1, 1}));
  EXPECT_EQ(store.Find(kTag, {1, 1}), nullptr);
}

}  // namespace
}  // namespace brvhost
