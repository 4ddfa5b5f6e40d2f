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

TEST(EDataStore, DeletesOnce) {
  EDataStore store;
  store.Save(kTag, {1, 1}, {5});
  EXPECT_TRUE(store.Erase(kTag, {1, 1}));
  EXPECT_FALSE(store.Erase(kTag, {1, 1}));
  EXPECT_EQ(store.Find(kTag, {1, 1}), nullptr);
}

}  // namespace
}  // namespace brvhost
