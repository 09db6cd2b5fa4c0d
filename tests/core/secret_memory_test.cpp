// What a freed block holds, seen by the allocator of this program.
#include "core/buffer.h"
#include "core/strings.h"
#include "tests/support/freed_memory.h"

#include <gtest/gtest.h>

#include <functional>

namespace ostrand {
namespace {

using namespace test;

class Secrets : public testing::Test {
protected:
    void SetUp() override
    {
        if (!CanWatchMemory())
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
