// What every store must do, run over each of them.
#include "core/fold.h"
#include "platform/error_codes.h"
#include "profile/key.h"
#include "stores/file_store.h"
#include "stores/memory_store.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ostrand {
namespace {

using testing::ElementsAre;

/// A store's factory with what it stands on.
struct BackEnd {
    virtual ~BackEnd() = default;
    virtual VProfileStoreFactory& Factory() = 0;
};

struct MemoryBackEnd : BackEnd {
    VProfileStoreFactory& Factory() override { return factory; }
    MemoryStoreFactory factory;
};

struct FileBackEnd : BackEnd {
    VProfileStoreFactory& Factory() override { return factory; }
    test::TempFolder folder;
    FileStoreFactory factory{folder.Path("Config")};
};

struct BackEndKind {
    const char* name;
    std::unique_ptr<BackEnd> (*make)();
};

void PrintTo(const BackEndKind& kind, std::ostream* out) { *out << kind.name; }

class StoreContract : public testing::TestWithParam<BackEndKind> {
protected:
    VProfileKey Open(const char16_t* name, bool readOnly = false) const
    {
        return VProfileKey(readOnly ? m_readOnly.GetRootKey() : m_writable.GetRootKey(), name);
    }

    static unsigned Status(const VProfileKey& key) { return key.GetStatus().GetCode(); }

    static std::vector<std::u16string> Names(const VProfileKey& key, bool values)
    {
        std::vector<std::u16string> names;
        VProfileKeyIterator iterator(&key, values);
        for (VUnicodeString name; iterator.Next(name);)
            names.emplace_back(name.View());
        return names;
    }

    std::unique_ptr<BackEnd> m_backEnd = GetParam().make();
    VProfileStore m_writable{false, &m_backEnd->Factory()};
    VProfileStore m_readOnly{true, &m_backEnd->Factory()};
};

/// Texts that a careless format loses: as values, as items of lists and as names of values.
const std::vector<std::u16string>& OddTexts()
{
    static const std::vector<std::u16string> texts = {
        u"plain",
        u" blanks around ",
        u"\ttab\t",
        u"\"quoted\" \\ and \\\\",
        u"a = b",
        u"; no comment",
        u"# none either",
        u"[section]",
        u"hex:00",
        u"line\nfeed\r\nand return\r",
        u"\u0001\u001F\u007F controls",
        u"\u00E4\u00DF\u65E5\u672C \U0001F600",
        u"\uFEFFmark",
        std::u16string{u'x', 0xD800, u'y'},
        std::u16string{0xDC00, 0xD800},
        std::u16string(10000, u'n'),
        std::u16string(300, u'\u00FC'),
    };
    return texts;
}

TEST_P(StoreContract, AValueIsReadInItsOwnKindAlone)
{
    VProfileKey key = Open(u"Kinds");
    VStringArray list;
    list.Append(u"item");
    ASSERT_TRUE(key.WriteDword(u"Dword", 7));
    ASSERT_TRUE(key.WriteString(u"Text", u"seven"));
    ASSERT_TRUE(key.WriteBinary(u"Block", "\x07", 1));
    ASSERT_TRUE(key.WriteMultiSz(u"List", list));

    struct Reader {
        const char16_t* kind;
        std::function<bool(const char16_t*)> read; // and checks that a failure leaves its target alone
    };
    const Reader readers[] = {
        {u"Dword",
         [&](const char16_t* name) {
             unsigned value = 99;
             const bool isRead = key.ReadDword(name, &value);
             EXPECT_EQ(value, isRead ? 7u : 99u);
             return isRead;
         }},
        {u"Text",
         [&](const char16_t* name) {
             VUnicodeString value(u"before");
             const bool isRead = key.ReadString(name, value);
             EXPECT_EQ(value, isRead ? u"seven" : u"before");
             return isRead;
         }},
        {u"Block",
         [&](const char16_t* name) {
             char value = 'b';
             unsigned size = 1;
             const bool isRead = key.ReadBinary(name, &value, &size);
             EXPECT_EQ(value, isRead ? '\x07' : 'b');
             return isRead;
         }},
        {u"List",
         [&](const char16_t* name) {
             VStringArray value;
             value.Append(u"before");
             const bool isRead = key.ReadMultiSz(name, value);
             EXPECT_EQ(value[0], isRead ? u"item" : u"before");
             return isRead;
         }},
    };
    for (const Reader& reader : readers)
        for (const char16_t* const name : {u"Dword", u"Text", u"Block", u"List", u"Missing"}) {
            SCOPED_TRACE(ToUtf8(reader.kind) + " reader, value " + ToUtf8(name));
            const bool isOwn = std::u16string_view(reader.kind) == name;
            EXPECT_EQ(reader.read(name), isOwn);
            const unsigned expected =
                std::u16string_view(name) == u"Missing" ? kErrorFileNotFound : kErrorUnsupportedType;
            EXPECT_EQ(Status(key), isOwn ? kErrorSuccess : expected);
        }

    EXPECT_TRUE(key.WriteString(u"Dword", u"now a text")) << "a write changes the kind";
    VUnicodeString text;
    EXPECT_TRUE(key.ReadString(u"Dword", text));
}

TEST_P(StoreContract, ABlockFillsTheRoomOrNothing)
{
    VProfileKey key = Open(u"Blocks");
    const std::string block("\x00\xFF\x10=\n", 5);
    ASSERT_TRUE(key.WriteBinary(u"Block", block.data(), 5));
    ASSERT_TRUE(key.WriteBinary(u"Empty", nullptr, 0));

    unsigned size = 0;
    EXPECT_TRUE(key.ReadBinary(u"Block", nullptr, &size));
    EXPECT_EQ(size, 5u);
    for (const unsigned room : {4u, 5u, 6u}) {
        SCOPED_TRACE(room);
        std::string data(8, '.');
        size = room;
        EXPECT_EQ(key.ReadBinary(u"Block", data.data(), &size), room >= 5);
        EXPECT_EQ(data, room >= 5 ? block + "..." : "........");
        EXPECT_EQ(Status(key), room >= 5 ? kErrorSuccess : kErrorMoreData);
    }
    size = 3;
    char untouched = '.';
    EXPECT_TRUE(key.ReadBinary(u"Empty", &untouched, &size));
    EXPECT_EQ(size, 0u);
    EXPECT_FALSE(key.WriteBinary(u"Block", nullptr, 3));
    EXPECT_EQ(Status(key), kErrorInvalidParameter);

    std::string large(100000, '\0');
    for (size_t i = 0; i < large.size(); ++i)
        large[i] = static_cast<char>(i * 7);
    std::string back(large.size(), '.');
    size = static_cast<unsigned>(back.size());
    ASSERT_TRUE(key.WriteBinary(u"Large", large.data(), size));
    EXPECT_TRUE(key.ReadBinary(u"Large", back.data(), &size));
    EXPECT_EQ(back, large);
}

TEST_P(StoreContract, OddTextsComeBackWhole)
{
    const auto check = [&](const VProfileKey& key) {
        for (const std::u16string& odd : OddTexts()) {
            SCOPED_TRACE(ToUtf8(odd.substr(0, 30)));
            VUnicodeString text;
            VStringArray list;
            unsigned number = 0;
            EXPECT_TRUE(key.ReadString((u"text " + odd).c_str(), text));
            EXPECT_EQ(text, std::u16string_view(odd));
            EXPECT_TRUE(key.ReadMultiSz((u"list " + odd).c_str(), list));
            ASSERT_EQ(list.GetCount(), 3u);
            EXPECT_EQ(list[1], std::u16string_view(odd));
            EXPECT_TRUE(key.ReadDword(odd.c_str(), &number));
            EXPECT_EQ(number, odd.size());
        }
        unsigned number = 0;
        EXPECT_TRUE(key.ReadDword(u"", &number)) << "the empty name is a name";
        VUnicodeString text(u"before");
        EXPECT_TRUE(key.ReadString(u"Null", text));
        EXPECT_TRUE(text.IsEmpty());
        VStringArray list;
        list.Append(u"before");
        EXPECT_TRUE(key.ReadMultiSz(u"No items", list));
        EXPECT_TRUE(list.IsEmpty());
    };
    {
        VProfileKey key = Open(u"Odd");
        for (const std::u16string& odd : OddTexts()) {
            VStringArray list;
            list.Append(u"");
            list.Append(std::u16string_view(odd));
            list.Append(u"");
            EXPECT_TRUE(key.WriteString((u"text " + odd).c_str(), odd.c_str()));
            EXPECT_TRUE(key.WriteMultiSz((u"list " + odd).c_str(), list));
            EXPECT_TRUE(key.WriteDword(odd.c_str(), static_cast<unsigned>(odd.size())));
        }
        EXPECT_TRUE(key.WriteDword(nullptr, 0));
        EXPECT_TRUE(key.WriteString(u"Null", nullptr));
        EXPECT_TRUE(key.WriteMultiSz(u"No items", VStringArray()));
        check(key);
    }
    check(Open(u"Odd", true));
}

TEST_P(StoreContract, NumbersKeepAllTheirBits)
{
    VProfileKey key = Open(u"Numbers");
    for (const unsigned value : {0u, 1u, 10u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        unsigned back = ~value;
        EXPECT_TRUE(key.WriteDword(u"N", value));
        EXPECT_TRUE(Open(u"Numbers", true).ReadDword(u"N", &back));
        EXPECT_EQ(back, value);
    }
}

TEST_P(StoreContract, NamesIgnoreCaseAndKeepTheirFirstSpelling)
{
    {
        VProfileKey key = Open(u"Fran\u00E7ois");
        EXPECT_TRUE(key.WriteDword(u"Show \u00C4pfel", 1));
        EXPECT_TRUE(key.WriteDword(u"SHOW \u00E4PFEL", 2));
    }
    VProfileKey key = Open(u"FRAN\u00C7OIS");
    unsigned value = 0;
    EXPECT_TRUE(key.ReadDword(u"show \u00E4pfel", &value));
    EXPECT_EQ(value, 2u);
    EXPECT_THAT(Names(key, true), ElementsAre(u"Show \u00C4pfel"));
    EXPECT_THAT(Names(*m_writable.GetRootKey(), false), ElementsAre(u"Fran\u00E7ois"));
    EXPECT_TRUE(m_readOnly.GetRootKey()->KeyExists(u"fran\u00E7OIS"));
    EXPECT_TRUE(m_writable.GetRootKey()->DeleteKey(u"FRAN\u00C7OIS"));
    EXPECT_FALSE(m_readOnly.GetRootKey()->KeyExists(u"Fran\u00E7ois"));
}

TEST_P(StoreContract, AReadOnlyStoreMakesAndChangesNothing)
{
    ASSERT_TRUE(Open(u"Made").WriteDword(u"N", 1));
    VProfileKey* const root = m_readOnly.GetRootKey();
    VProfileKey missing(root, u"Never made");
    VProfileKey below(&missing, u"Below");
    unsigned value = 5;
    EXPECT_EQ(Status(*root), kErrorFileNotFound) << "the failed open";
    for (VProfileKey* const key : {&missing, &below}) {
        EXPECT_EQ(Status(*key), kErrorFileNotFound);
        EXPECT_FALSE(key->IsWritable());
        EXPECT_FALSE(key->ReadDword(u"N", &value));
        EXPECT_FALSE(key->WriteDword(u"N", 1));
        EXPECT_FALSE(key->KeyExists(u"N"));
        EXPECT_TRUE(Names(*key, true).empty());
        EXPECT_TRUE(Names(*key, false).empty());
        VReportMessageParams report;
        EXPECT_FALSE(key->Flush(report)) << "the refused write is told once more, to who asks at the end";
        EXPECT_EQ(report.GetCode(), kErrorFileNotFound);
        EXPECT_TRUE(key->Flush(report)) << "and only once";
    }
    VProfileKey made(root, u"Made");
    EXPECT_TRUE(made.ReadDword(u"n", &value));
    EXPECT_FALSE(made.IsWritable());
    const VStringArray list;
    const std::function<bool()> changes[] = {
        [&] { return made.WriteDword(u"N", 1); },      [&] { return made.WriteString(u"T", u""); },
        [&] { return made.WriteBinary(u"B", "", 1); }, [&] { return made.WriteMultiSz(u"L", list); },
        [&] { return made.DeleteValue(u"N"); },        [&] { return root->DeleteKey(u"Made"); },
    };
    for (const auto& change : changes)
        EXPECT_FALSE(change());
    EXPECT_EQ(Status(made), kErrorAccessDenied);
    VReportMessageParams refused;
    EXPECT_FALSE(made.Flush(refused)) << "of many refused writes, one answer";
    EXPECT_EQ(refused.GetCode(), kErrorAccessDenied);
    EXPECT_EQ(Status(*root), kErrorAccessDenied);
    EXPECT_THAT(Names(*root, false), ElementsAre(u"Made"));
    EXPECT_THAT(Names(made, true), ElementsAre(u"N"));
}

TEST_P(StoreContract, ANameGoesThroughSeveralLevels)
{
    EXPECT_TRUE(Open(u"A\\B\\C").WriteDword(u"N", 3));
    unsigned value = 0;
    VProfileKey a = Open(u"a", true);
    VProfileKey b(&a, u"b");
    VProfileKey c(&b, u"c");
    EXPECT_TRUE(c.ReadDword(u"N", &value));
    EXPECT_TRUE(m_readOnly.GetRootKey()->KeyExists(u"A\\b\\C"));
    EXPECT_FALSE(m_readOnly.GetRootKey()->KeyExists(u"A\\C"));

    VProfileKey* const root = m_writable.GetRootKey();
    for (const char16_t* const bad : {u"", u"\\A", u"A\\", u"A\\\\B", static_cast<const char16_t*>(nullptr)}) {
        SCOPED_TRACE(bad ? ToUtf8(bad) : "null");
        EXPECT_EQ(Status(VProfileKey(root, bad)), kErrorInvalidParameter);
        EXPECT_FALSE(root->DeleteKey(bad));
        EXPECT_EQ(Status(*root), kErrorInvalidParameter);
        EXPECT_FALSE(root->KeyExists(bad));
    }
    EXPECT_TRUE(root->DeleteKey(u"A\\B"));
    EXPECT_TRUE(Names(a, false).empty());
}

TEST_P(StoreContract, NamesOfKeysMayBeAnything)
{
    const char16_t lone[] = {u'k', 0xD801, 0};
    const std::u16string names[] = {u".",     u"..",    u".hidden",     u"a/b",   u"100%", u"%41",
                                    u"x.ini", u"CON",   lone,           u"dot. ", u"a:b",  u"tab\tnew\nline",
                                    u"*?<>",  u"%root", u"\u65E5\u672C"};
    for (const std::u16string& name : names)
        EXPECT_TRUE(Open(name.c_str()).WriteString(u"Name", name.c_str())) << ToUtf8(name);
    EXPECT_EQ(Names(*m_readOnly.GetRootKey(), false).size(), std::size(names));
    for (const std::u16string& name : Names(*m_readOnly.GetRootKey(), false)) {
        VUnicodeString text;
        EXPECT_TRUE(Open(name.c_str(), true).ReadString(u"Name", text));
        EXPECT_EQ(text, std::u16string_view(name));
    }
}

TEST_P(StoreContract, DeletingAKeyTakesAllBelowItAndNoValue)
{
    VProfileKey parent = Open(u"Parent");
    EXPECT_TRUE(parent.WriteDword(u"Child", 1));
    VProfileKey child(&parent, u"Child");
    EXPECT_TRUE(child.WriteDword(u"N", 1));
    EXPECT_TRUE(VProfileKey(&child, u"Grandchild\\Below").WriteDword(u"N", 1));

    EXPECT_TRUE(parent.DeleteKey(u"CHILD"));
    EXPECT_FALSE(parent.KeyExists(u"Child"));
    EXPECT_FALSE(parent.KeyExists(u"Child\\Grandchild\\Below"));
    unsigned value = 0;
    EXPECT_TRUE(parent.ReadDword(u"Child", &value));
    EXPECT_FALSE(child.ReadDword(u"N", &value)) << "a handle on a deleted key finds nothing";
    EXPECT_FALSE(child.WriteDword(u"N", 2)) << "and brings nothing back";
    EXPECT_FALSE(parent.DeleteKey(u"Child"));
    EXPECT_EQ(Status(parent), kErrorFileNotFound);
    EXPECT_FALSE(parent.DeleteValue(u"Gone"));
    EXPECT_EQ(Status(parent), kErrorFileNotFound);
    EXPECT_FALSE(parent.KeyExists(u"Child"));
    EXPECT_EQ(Status(parent), kErrorFileNotFound) << "asking for a key leaves the status alone";
    EXPECT_TRUE(parent.DeleteValue(u"child"));
    EXPECT_TRUE(VProfileKey(&parent, u"Child").WriteDword(u"N", 3)) << "it can be made again";
}

TEST_P(StoreContract, IteratorsShowTheNamesOfTheirCreation)
{
    VProfileKey key = Open(u"Walk");
    for (const char16_t* const name : {u"zeta", u"Alpha", u"mid", u"Beta"}) {
        EXPECT_TRUE(key.WriteDword(name, 1));
        VProfileKey(&key, name).WriteString(u"T", name);
    }
    EXPECT_TRUE(key.WriteString(u"Alpha", u"a text now"));
    EXPECT_THAT(Names(key, true), ElementsAre(u"zeta", u"Alpha", u"mid", u"Beta")) << "first writing";
    EXPECT_THAT(Names(key, false), ElementsAre(u"Alpha", u"Beta", u"mid", u"zeta")) << "folded names";

    VProfileKeyIterator values(&key, true);
    VProfileKeyIterator keys(&key, false);
    VUnicodeString name;
    int type = 77;
    EXPECT_TRUE(values.Next(name));
    EXPECT_TRUE(key.DeleteValue(u"zeta"));
    EXPECT_TRUE(values.NextValue(name, &type)) << "both advance one position";
    EXPECT_EQ(name, u"Alpha");
    EXPECT_EQ(type, static_cast<int>(VProfileValueType::String));
    for (int count = 0; keys.NextValue(name, &type); ++count) {
        EXPECT_EQ(type, static_cast<int>(VProfileValueType::Subkey));
        EXPECT_TRUE(key.DeleteKey(name.c_str())) << count;
    }
    EXPECT_TRUE(Names(key, false).empty());
    EXPECT_THAT(Names(key, true), ElementsAre(u"Alpha", u"mid", u"Beta"));
    EXPECT_FALSE(keys.Next(name)) << "the end stays the end";
}

TEST_P(StoreContract, HandlesShareTheirKeyAndOutliveTheirStore)
{
    auto store = std::make_unique<VProfileStore>(false, &m_backEnd->Factory());
    auto first = std::make_unique<VProfileKey>(store->GetRootKey(), u"Shared");
    VProfileKey second(store->GetRootKey(), u"SHARED");
    store.reset();
    EXPECT_TRUE(first->WriteDword(u"N", 1));
    unsigned value = 0;
    EXPECT_TRUE(second.ReadDword(u"N", &value)) << "before anything was flushed";
    EXPECT_TRUE(second.WriteDword(u"N", 2));
    EXPECT_TRUE(first->ReadDword(u"N", &value));
    EXPECT_EQ(value, 2u);
    EXPECT_TRUE(first->DeleteValue(u"N"));
    EXPECT_FALSE(second.ReadDword(u"N", &value));
    EXPECT_TRUE(first->WriteDword(u"N", 3));
    VReportMessageParams report;
    EXPECT_TRUE(second.Flush(report));
    EXPECT_EQ(report.GetCode(), kErrorSuccess);
    first.reset();
    EXPECT_TRUE(VProfileKey(&second, u"Below").WriteDword(u"N", 1));
    EXPECT_TRUE(Open(u"Shared", true).ReadDword(u"N", &value));
    EXPECT_EQ(value, 3u);
}

TEST_P(StoreContract, TheRootHasValuesToo)
{
    EXPECT_TRUE(m_writable.GetRootKey()->WriteDword(u"N", 1));
    VReportMessageParams report;
    EXPECT_TRUE(m_writable.GetRootKey()->Flush(report));
    VProfileStore again(true, &m_backEnd->Factory());
    unsigned value = 0;
    EXPECT_TRUE(again.GetRootKey()->ReadDword(u"n", &value));
    EXPECT_TRUE(m_writable.GetRootKey()->IsWritable());
    EXPECT_FALSE(again.GetRootKey()->IsWritable());
    EXPECT_TRUE(Names(*again.GetRootKey(), false).empty());
}

TEST_P(StoreContract, AccessRightsAreAbsent)
{
    VProfileKey key = Open(u"Rights");
    unsigned value = 0;
    EXPECT_FALSE(key.ReadDword(u"Missing", &value));
    EXPECT_TRUE(key.SetKeySecurity(nullptr));
    EXPECT_EQ(Status(key), kErrorSuccess) << "cleared";
    EXPECT_FALSE(key.GetBackEnd()->ReservedKeyOperation());
}

INSTANTIATE_TEST_SUITE_P(
    Stores, StoreContract,
    testing::Values(BackEndKind{"Memory",
                                []() -> std::unique_ptr<BackEnd> { return std::make_unique<MemoryBackEnd>(); }},
                    BackEndKind{"File", []() -> std::unique_ptr<BackEnd> { return std::make_unique<FileBackEnd>(); }}),
    [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
} // namespace ostrand
