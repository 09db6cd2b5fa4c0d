// Key map files: every kind of line, where files are looked for, what can't be read, and the way there and back.
#include "core/messages.h"
#include "keymap/function_names.h"
#include "keymap/keymap_file.h"
#include "platform/error_codes.h"
#include "tests/keymap/keymap_scene.h"
#include "tests/support/fake_platform.h"
#include "tests/support/memory_files.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

/// Files that repeat a piece of text without an end.
class EndlessFiles : public test::MemoryFiles {
public:
    explicit EndlessFiles(std::string text) : m_text(std::move(text)) {}
    unsigned Open(const std::string& path, VFileAccess access, VFileDisposition disposition, unsigned mode,
                  std::unique_ptr<IFile>& file, bool* existed) override
    {
        contents[path] = "";
        std::unique_ptr<IFile> empty;
        const unsigned code = MemoryFiles::Open(path, access, disposition, mode, empty, existed);
        file = std::make_unique<Endless>(*this, std::move(empty));
        return code;
    }

private:
    class Endless : public IFile {
    public:
        Endless(EndlessFiles& files, std::unique_ptr<IFile> rest) : m_files(files), m_rest(std::move(rest)) {}
        unsigned Read(void* data, size_t size, size_t& got) override
        {
            for (got = 0; got < size; ++got)
                static_cast<char*>(data)[got] = m_files.m_text[m_place++ % m_files.m_text.size()];
            return kErrorSuccess;
        }
        unsigned Write(const void* data, size_t size) override { return m_rest->Write(data, size); }
        unsigned Seek(uint64_t position) override { return m_rest->Seek(position); }
        unsigned GetInfo(VFileInfo& info) override { return m_rest->GetInfo(info); }
        unsigned SetSize(uint64_t size) override { return m_rest->SetSize(size); }
        unsigned SetRights(const VFileInfo& rights) override { return m_rest->SetRights(rights); }
        unsigned Sync() override { return m_rest->Sync(); }
        unsigned Lock(unsigned wait) override { return m_rest->Lock(wait); }

    private:
        EndlessFiles& m_files;
        std::unique_ptr<IFile> m_rest;
        size_t m_place = 0;
    };

    std::string m_text;
};

class KeymapFile : public testing::Test {
protected:
    KeymapFile() { Platform().files = &files; }

    bool Load(std::string bytes)
    {
        files.contents["/m.key"] = std::move(bytes);
        return keymap.LoadFromFile(u"/m.key", status);
    }
    std::u16string Detail() const { return status.GetArgumentCount() == 2 ? status.GetArguments()[1] : u""; }

    test::FakePlatform platform;
    test::MemoryFiles files;
    VReportMessageParams status;
    Keymap keymap;
};

TEST_F(KeymapFile, EachKindOfLineHasItsMessage)
{
    using namespace std::string_literals;
    files.contents["/m.key"] = "; comment\n"
                               " ; no comment\n" // 2
                               "\n"
                               "\t \n" // 4
                               "N\n"
                               "N VK_A\n"
                               "N VK_A \n"
                               "N VK_A  \n" // 8
                               "N VK_\xE4 \"x\"\n"
                               "N 0x100 \"x\"\n"
                               "x-cnc VK_B \"b\"\n"     // 11
                               "ASCE 0xDC \"a\"b\" c\n" // 12
                               "N VK_C \"abc\n"
                               "N VK_D \"\n"
                               "N VK_E RUNNING\n"
                               "N VK_E RUN(\"x)\n"
                               "N VK_F LAUNCH \")x(\" y\n" // 17
                               "N VK_G run(\"x\")\n"
                               "N VK_G NONE\n"
                               "N VK_G Disabled\n"
                               "N VK_G VT_PF1\" tail\n" // 21
                               "N VK_H VT_DO tail\n"
                               "N VK_I A\0B\n"s
                               "n\tvk_j\t\t RUN x(\"a\") (\"b\")"; // 24
    KeymapFileReader reader(keymap, kKeymapCheckErrorLimit);
    ASSERT_EQ(reader.Open(u"/m.key"), kErrorSuccess);
    EXPECT_TRUE(reader.Read());
    EXPECT_TRUE(reader.CommentSeen());
    EXPECT_EQ(reader.AllErrors(), u"unknown virtual key 'NO' on line 2\n"
                                  u"syntax error on line 4\n"
                                  u"syntax error on line 5\n"
                                  u"syntax error on line 6\n"
                                  u"syntax error on line 7\n"
                                  u"illegal string or unknown function, '', on line 8\n"
                                  u"unknown virtual key 'VK_\u00C4' on line 9\n"
                                  u"unknown virtual key '0X100' on line 10\n"
                                  u"unknown modifier 'X' on line 11\n"
                                  u"unknown modifier '-' on line 11\n"
                                  u"unknown modifier 'C' on line 11\n"
                                  u"expected closing quote on line 13\n"
                                  u"expected closing quote on line 14\n"
                                  u"syntax error on line 15\n"
                                  u"syntax error on line 16\n"
                                  u"illegal string or unknown function, 'run(\"x\")', on line 18\n"
                                  u"illegal string or unknown function, 'NONE', on line 19\n"
                                  u"illegal string or unknown function, 'Disabled', on line 20\n"
                                  u"illegal string or unknown function, 'VT_PF1\"', on line 21\n"
                                  u"illegal string or unknown function, 'A\uFFFDB', on line 23");
    EXPECT_EQ(reader.Errors().back().line, 23u);
    EXPECT_EQ(test::Show(keymap.OwnBindings()), u"043 1 ''\n"
                                                u"044 1 ''\n"
                                                u"046 3 ''\n"
                                                u"048 154 ''\n"
                                                u"04A 2 'a'\n"
                                                u"242 1 'b'\n"
                                                u"FDC 1 'a\"b'\n");
}

TEST_F(KeymapFile, AThirdErrorEndsTheLoadingBehindItsLine)
{
    EXPECT_TRUE(Load("N VK_A \"a\"\nbad\nN VK_B\n"));
    EXPECT_EQ(status.GetCode(), kKeymapFileHasErrors);
    EXPECT_TRUE(keymap.HasDefaults());

    keymap = Keymap();
    EXPECT_FALSE(Load(";\nwxyz VK_A \"a\"\nN VK_B \"b\"\n"));
    EXPECT_EQ(status.GetCode(), kKeymapFileFailed);
    EXPECT_EQ(Detail(), u"unknown modifier 'W' on line 2\nunknown modifier 'X' on line 2\n"
                        u"unknown modifier 'Y' on line 2\nunknown modifier 'Z' on line 2");
    EXPECT_EQ(test::Show(keymap.OwnBindings()), u"041 1 'a'\n") << "the bad line itself is bound";
    EXPECT_TRUE(keymap.commentSeen);
    EXPECT_FALSE(keymap.HasDefaults());

    EXPECT_FALSE(Load("bad\nbad\nbad")) << "in the last line, too";
}

TEST_F(KeymapFile, LoadingAddsToWhatIsThere)
{
    keymap.SetFunction(0x41, kFunctionSend);
    keymap.SetString(0x41, u"a");
    EXPECT_TRUE(Load("; c\nN VK_B \"b\""));
    EXPECT_TRUE(Load("N VK_A VT_PF1"));
    EXPECT_EQ(test::Show(keymap.OwnBindings()), u"041 119 'a'\n042 1 'b'\n");
    EXPECT_FALSE(keymap.commentSeen) << "of the last file";
    EXPECT_EQ(status.GetCode(), 0u);
}

TEST_F(KeymapFile, LiesWhereThePathSaysOrBesideTheProgram)
{
    files.contents["/opt/hollowmere/keymaps/vt.key"] = "N VK_A \"shipped\"";
    EXPECT_TRUE(keymap.LoadFromFile(u"vt.key", status));
    EXPECT_EQ(keymap.GetString(0x41), u"shipped");
    files.contents["vt.key"] = "N VK_A \"own\"";
    EXPECT_TRUE(keymap.LoadFromFile(u"vt.key", status));
    EXPECT_EQ(keymap.GetString(0x41), u"own");

    keymap.commentSeen = true;
    EXPECT_FALSE(keymap.LoadFromFile(u"gone.key", status));
    EXPECT_EQ(status.GetCode(), kKeymapFileFailed);
    EXPECT_EQ(std::u16string_view(status.GetArguments()[0]), u"gone.key");
    EXPECT_EQ(Detail(), u"The file, key or value was not found.");
    EXPECT_TRUE(keymap.HasDefaults() && keymap.commentSeen) << "the map is as it was";
}

TEST_F(KeymapFile, WhatIsNoKeyMapIsRefusedWithBoundedMemory)
{
    const struct {
        std::string text;
        std::u16string_view detail;
    } cases[] = {
        {"N VK_A", u"line 1 too long"},
        {{'\0'}, u"line 1 too long"},
        {";" + std::string(1022, 'x') + "\n", u"file too long, left at line 16385"},
        {"N VK_A \"x\"\n" + std::string(60000, ';') + "\n", u"file too long, left at line 560"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.substr(0, 10));
        EndlessFiles endless(c.text);
        Platform().files = &endless;
        EXPECT_FALSE(keymap.LoadFromFile(u"/m.key", status));
        EXPECT_EQ(status.GetCode(), kKeymapFileFailed);
        EXPECT_EQ(Detail(), c.detail);
    }
    Platform().files = &files;
    EXPECT_TRUE(Load("N VK_A \"" + std::string(0x10000 - 9, 'x') + "\"\n"));
    EXPECT_EQ(keymap.GetString(0x41).GetLength(), 0x10000 - 9u);
    EXPECT_FALSE(Load("bad\nN VK_A \"" + std::string(0x10000 - 8, 'x') + "\"\n"));
    EXPECT_EQ(Detail(), u"syntax error on line 1\nline 2 too long");
}

TEST_F(KeymapFile, AFailureWithinTheFileIsNoEnd)
{
    files.contents["/m.key"] = "N VK_A \"a\"\n" + std::string(2 * VTextFile::kBlockSize, '\n') + "N VK_B \"b\"\n";
    KeymapFileReader reader(keymap, kKeymapErrorLimit);
    ASSERT_EQ(reader.Open(u"/m.key"), kErrorSuccess);
    files.readFailure = kErrorAccessDenied;
    EXPECT_FALSE(reader.Read());
    ASSERT_EQ(reader.Errors().size(), 1u);
    EXPECT_TRUE(reader.AllErrors().View().starts_with(u"Access is denied. (line 40")) << ToUtf8(reader.AllErrors());
}

TEST_F(KeymapFile, AMapIsReadAsItWasWritten)
{
    const struct {
        VTextEncoding encoding;
        std::u16string_view characters;
    } cases[] = {
        {VTextEncoding::CodePage, u"aZ09\\\"( ;\t\u20AC\u00E4\x0081\u00FF"},
        {VTextEncoding::Utf8, u"aZ09\\\"( ;\t\u20AC\u00E4\u65E5\x0001"},
        {VTextEncoding::Utf16, u"aZ09\\\"( ;\t\xD83D\xDE00\u65E5\uFEFF"},
        {VTextEncoding::Utf16Swapped, u"aZ09\\\"( ;\t\xD83D\xDE00\u65E5\uFFFE"},
    };
    for (const auto& c : cases)
        for (unsigned seed = 1; seed <= 5; ++seed) {
            SCOPED_TRACE(testing::Message() << static_cast<int>(c.encoding) << " " << seed);
            const Keymap written = test::RandomKeymap(seed, c.characters);
            ASSERT_EQ(WriteKeymapFile(written.OwnBindings(), u"/m.key", c.encoding), kErrorSuccess);
            Keymap back;
            EXPECT_TRUE(back.LoadFromFile(u"/m.key", status));
            EXPECT_EQ(Detail(), u"");
            EXPECT_EQ(test::Show(back.OwnBindings()), test::Show(written.OwnBindings()));
        }
}

TEST_F(KeymapFile, ALineEndInAStringStartsNoLine)
{
    keymap.SetFunction(0x41, kFunctionSend);
    keymap.SetString(0x41, u"ls\r\nN VK_B \"x");
    EXPECT_TRUE(keymap.SaveToFile(u"/m.key", false));
    EXPECT_EQ(files.contents["/m.key"], "N\tVK_A                \t\"ls\\015\\012N VK_B \"x\"\r\n");
    files.writeFailure = kErrorDiskFull;
    EXPECT_FALSE(keymap.SaveToFile(u"/m.key", false));
}

} // namespace
} // namespace ostrand
