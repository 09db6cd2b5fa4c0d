// What a freed block holds, seen by the allocator of this program.
#include "core/buffer.h"
#include "core/strings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <new>

#include <malloc.h>

namespace {

/// A place in a live block, and what is found there when the block is freed.
struct Watch {
    const unsigned char* place = nullptr;
    size_t size = 0;
    bool wasFreed = false;
    bool wasZero = false;
};

thread_local Watch t_watch;

void LookAt(void* block)
{
    Watch& w = t_watch;
    const auto* const begin = static_cast<unsigned char*>(block);
    if (!block || !w.place || std::less<>()(w.place, begin) ||
        !std::less<>()(w.place, begin + malloc_usable_size(block)))
        return;
    w.wasFreed = true;
    w.wasZero = std::all_of(w.place, w.place + w.size, [](unsigned char b) { return b == 0; });
    w.place = nullptr;
}

void StartWatching(const void* place, size_t size)
{
    t_watch = {static_cast<const unsigned char*>(place), size, false, false};
}

} // namespace

// Weak, since the runtime of some sanitizers brings its own for good; then there is nothing to see.
[[gnu::weak]] void* operator new(size_t size)
{
    if (void* const block = std::malloc(size > 0 ? size : 1))
        return block;
    throw std::bad_alloc();
}
[[gnu::weak]] void operator delete(void* block) noexcept
{
    LookAt(block);
    std::free(block);
}
[[gnu::weak]] void operator delete(void* block, size_t) noexcept { operator delete(block); }

namespace ostrand {
namespace {

class Secrets : public testing::Test {
protected:
    void SetUp() override
    {
        VUnicodeString text(u"any");
        StartWatching(text.c_str(), 1);
        text.Clear();
        if (!t_watch.wasFreed)
            GTEST_SKIP() << "the allocator of this build can't be watched";
    }
};

TEST_F(Secrets, TheMarkFallsOnABufferOfItsOwn)
{
    const VUnicodeString shared(u"password");
    VUnicodeString mine = shared;
    mine.MarkSensitive();
    EXPECT_FALSE(mine.SharesBufferWith(shared));
    EXPECT_TRUE(mine.IsSensitive());
    EXPECT_FALSE(shared.IsSensitive());
    EXPECT_TRUE(mine.Left(3).IsSensitive() && mine.Trimmed().IsSensitive()) << "parts of a secret are secrets";

    VUnicodeString empty;
    empty.MarkSensitive();
    EXPECT_TRUE(empty.IsSensitive());
    EXPECT_FALSE(VUnicodeString().IsSensitive()) << "the shared empty text is nobody's secret";
    empty += u"typed later";
    EXPECT_TRUE(empty.IsSensitive());
}

TEST_F(Secrets, BytesAreZeroWhenTheLastReferenceGoes)
{
    for (const bool isSecret : {false, true}) {
        SCOPED_TRACE(isSecret);
        VUnicodeString text(u"correct horse battery");
        if (isSecret)
            text.MarkSensitive();
        StartWatching(text.c_str(), text.GetLength() * sizeof(char16_t));
        VUnicodeString copy = text;
        text.Clear();
        EXPECT_FALSE(t_watch.wasFreed) << "one owner is left";
        copy.Clear();
        EXPECT_TRUE(t_watch.wasFreed);
        EXPECT_EQ(t_watch.wasZero, isSecret);
    }
}

TEST_F(Secrets, EveryWriteThatMovesTheTextZeroesTheOldPlace)
{
    const std::function<void(VUnicodeString&)> kWrites[] = {
        [](VUnicodeString& s) { s += u"a long text that needs another buffer"; },
        [](VUnicodeString& s) { s = std::u16string_view(u"new"); },
        [](VUnicodeString& s) { s = u"newer"; },
    };
    for (const auto& write : kWrites) {
        VUnicodeString text(u"secret");
        text.MarkSensitive();
        StartWatching(text.c_str(), text.GetLength() * sizeof(char16_t));
        write(text);
        EXPECT_TRUE(t_watch.wasFreed && t_watch.wasZero);
        EXPECT_TRUE(text.IsSensitive()) << "the new buffer inherits the mark";
    }
}

TEST_F(Secrets, ABufferZeroesItsOldBlocks)
{
    for (const bool isSecret : {false, true}) {
        SCOPED_TRACE(isSecret);
        auto* const buffer = new VBasicBuffer(isSecret);
        buffer->Append("0123456789abcdef", 16);
        StartWatching(buffer->GetData(), 16);
        buffer->Append("more", 4);
        EXPECT_TRUE(t_watch.wasFreed);
        EXPECT_EQ(t_watch.wasZero, isSecret);
        StartWatching(buffer->GetData(), 20);
        EXPECT_EQ(buffer->Release(), 0u);
        EXPECT_TRUE(t_watch.wasFreed);
        EXPECT_EQ(t_watch.wasZero, isSecret);
    }
}

} // namespace
} // namespace ostrand
