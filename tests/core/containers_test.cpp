#include "core/array.h"
#include "core/buffer.h"
#include "core/lock.h"
#include "core/map.h"
#include "core/unknown.h"
#include "platform/error_codes.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace ostrand {
namespace {

TEST(Array, GrowsByItsRules)
{
    VArray<int> list;
    EXPECT_EQ(list.GetCapacity(), 3u);
    for (int i = 0; i < 3; ++i)
        list.Append(i);
    EXPECT_EQ(list.GetCapacity(), 3u);
    list.InsertAt(0, -1);
    EXPECT_EQ(list.GetCapacity(), 6u) << "an insertion doubles";
    list.SetSize(7);
    EXPECT_EQ(list.GetCapacity(), 14u) << "a size above the capacity takes twice what is needed";
    EXPECT_EQ(list[6], 0);
    list.SetSize(2);
    list.RemoveAt(0);
    EXPECT_EQ(list.GetCount(), 1u);
    EXPECT_EQ(list[0], 0);
    EXPECT_EQ(list.GetCapacity(), 14u);

    VArray<int> none(0);
    none.Append(1);
    EXPECT_EQ(none.GetCapacity(), 1u);
}

TEST(Array, ABadIndexThrowsTheTypesOwnException)
{
    VArray<int> list;
    EXPECT_THROW(list[0], VArray<int>::OutOfRange);
    list.Append(1);
    EXPECT_THROW(list[1], VArray<int>::OutOfRange);
    EXPECT_THROW(list.RemoveAt(1), VArray<int>::OutOfRange);
    EXPECT_THROW(list.InsertAt(2, 0), VArray<int>::OutOfRange);
    EXPECT_THROW(list[static_cast<size_t>(-1)], VArray<int>::OutOfRange);
    static_assert(!std::is_base_of_v<VArray<int>::OutOfRange, VArray<char>::OutOfRange>);
}

TEST(Array, BehavesAsTheStandardVectorUnderRandomEdits)
{
    VArray<std::string> list;
    std::vector<std::string> model;
    unsigned random = 12345;
    const auto next = [&random](size_t below) {
        random = random * 1103515245 + 12345;
        return (random >> 8) % below;
    };
    for (int step = 0; step < 3000; ++step) {
        const size_t at = next(model.size() + 1);
        const std::string item(next(40), static_cast<char>('a' + step % 26));
        if (next(3) != 0 || model.empty()) {
            list.InsertAt(at, item);
            model.insert(model.begin() + static_cast<ptrdiff_t>(at), item);
        } else if (next(20) == 0) {
            list.SetSize(at);
            model.resize(at);
        } else {
            list.RemoveAt(at % model.size());
            model.erase(model.begin() + static_cast<ptrdiff_t>(at % model.size()));
        }
        if (step % 500 == 0) {
            VArray<std::string> copy = list;
            list = std::move(copy);
        }
        ASSERT_TRUE(std::equal(list.begin(), list.end(), model.begin(), model.end())) << step;
    }
}

TEST(Map, ChainsHoldMoreThanTheBuckets)
{
    VMap<uint32_t, std::string> map;
    std::string value;
    EXPECT_FALSE(map.Lookup(1, value));
    EXPECT_FALSE(map.RemoveKey(1));
    for (uint32_t key = 0; key < 80; ++key)
        map.Set(key, std::to_string(key));
    EXPECT_EQ(map.GetCount(), 80u);
    EXPECT_EQ(map.GetBucketCount(), 25u);
    map.Set(26, "again");
    EXPECT_EQ(map.GetCount(), 80u);
    EXPECT_TRUE(map.RemoveKey(51));
    for (uint32_t key = 0; key < 80; ++key) {
        EXPECT_EQ(map.Lookup(key, value), key != 51);
        if (key != 51) {
            EXPECT_EQ(value, key == 26 ? "again" : std::to_string(key));
        }
    }
    EXPECT_EQ(map[51], "") << "made by asking";
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_FALSE(map.Lookup(0, value));
}

TEST(Map, PositionsGoByBucketNewestFirst)
{
    VMap<uint32_t, std::unique_ptr<int>> map;
    for (const uint32_t key : {27u, 3u, 2u, 52u, 0u})
        map[key] = nullptr;
    std::vector<uint32_t> keys;
    for (size_t i = 0; i < map.GetCount(); ++i)
        keys.push_back(map.GetKey(i));
    EXPECT_EQ(keys, (std::vector<uint32_t>{0, 52, 2, 27, 3}));
    EXPECT_ANY_THROW(map.GetKey(5));
}

TEST(Map, StringKeysAreHashedBySumAndComparedExactly)
{
    EXPECT_EQ(MapHash(VUnicodeString(u"Global")), 593u);
    EXPECT_EQ(MapHash(VUnicodeString()), 0u);
    VMap<VUnicodeString, int> map(1);
    map[u"ab"] = 1;
    map[u"ba"] = 2;
    map[u"AB"] = 3;
    VMap<VUnicodeString, int> copy = map;
    map.RemoveAll();
    int value = 0;
    EXPECT_TRUE(copy.Lookup(u"ba", value) && value == 2);
    EXPECT_EQ(copy.GetCount(), 3u);
    EXPECT_EQ(copy.GetKey(0), u"AB") << "a copy keeps the order";
    map = std::move(copy);
    EXPECT_TRUE(map.Lookup(u"AB", value) && value == 3);
}

TEST(Buffer, GrowsToWhatWasAskedFor)
{
    VBasicBuffer buffer;
    EXPECT_EQ(buffer.GetData(), nullptr);
    buffer.Append(nullptr, 8, 2);
    EXPECT_EQ(buffer.GetCapacity(), 10u);
    EXPECT_EQ(buffer.GetLength(), 0u) << "only the room was made";
    buffer.Append("0123456789", 10, 100);
    EXPECT_EQ(buffer.GetCapacity(), 10u) << "it fitted";
    buffer.Append(buffer.GetData() + 3, 4, 5);
    EXPECT_EQ(buffer.GetCapacity(), 19u);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(buffer.GetData()), buffer.GetLength()), "01234567893456");

    EXPECT_TRUE(buffer.SetLength(2));
    EXPECT_EQ(buffer.lastError, kErrorSuccess);
    EXPECT_FALSE(buffer.SetLength(20));
    EXPECT_EQ(buffer.lastError, kErrorInsufficientBuffer);
    EXPECT_EQ(buffer.GetLength(), 19u) << "cut to the room";
    EXPECT_THROW(buffer.Append("x", static_cast<size_t>(-1)), std::bad_alloc);
}

class Counted : public VUnknown<IBuffer> {
public:
    explicit Counted(int& destroyed) : m_destroyed(destroyed) {}
    void Append(const void*, size_t, size_t) override {}
    bool SetLength(size_t) override { return true; }
    unsigned char* GetData() override { return nullptr; }
    size_t GetLength() const override { return 0; }
    void Destroy() override { ++m_destroyed; }

private:
    int& m_destroyed;
};

TEST(Unknown, TheLastReleaseDestroys)
{
    int destroyed = 0;
    Counted object(destroyed);
    void* out = &object;
    EXPECT_EQ(object.QueryInterface(VInterfaceId{}, &out), kNoInterface);
    EXPECT_EQ(out, nullptr);
    {
        const auto first = VUnknownPointer<Counted>::Share(&object);
        VUnknownPointer<Counted> second = first;
        VUnknownPointer<Counted> third = std::move(second);
        EXPECT_EQ(object.AddRef(), 4u);
        EXPECT_EQ(object.Release(), 3u);
        second = third;
        third = VUnknownPointer<Counted>();
    }
    EXPECT_EQ(destroyed, 0);
    Counted copy(object);
    EXPECT_EQ(copy.AddRef(), 2u) << "a copy has a count of its own";
    VUnknownPointer<Counted>::Adopt(&object).Reset();
    EXPECT_EQ(destroyed, 1);
}

TEST(CriticalSection, OneThreadAtATimeAndRecursive)
{
    const auto lock = VUnknownPointer<ISynchObject>::Adopt(new VCriticalSection);
    int counter = 0;
    const auto work = [&] {
        for (int i = 0; i < 2000; ++i) {
            lock->Lock();
            lock->Lock();
            ++counter;
            lock->Unlock();
            lock->Unlock();
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(counter, 4000);
}

} // namespace
} // namespace ostrand
