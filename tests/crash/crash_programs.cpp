#include "tests/crash/crash_programs.h"

#include <algorithm>

namespace ostrand::test {

namespace {

/// Numbered values, each below a comment of half a kilobyte: files of several blocks that are read quickly.
std::string Lines(size_t count)
{
    constexpr size_t kComment = 500;
    std::string text;
    for (size_t i = 0; i < count; ++i)
        text += ';' + std::string(kComment, 'c') + "\nLine " + std::to_string(i) + " = \"l\"\n";
    return text;
}

std::string Narrow(const char16_t* text)
{
    std::string out;
    for (; *text; ++text)
        out.push_back(static_cast<char>(*text));
    return out;
}

std::u16string TextOf(const CrashStory::Action& action) { return std::u16string(action.number, u'x'); }

} // namespace

const std::vector<StoredKey>& StartKeys()
{
    static const std::vector<StoredKey> keys = {
        {u"Alpha\\One", "/home/store/Alpha/One.ini",
         "; By hand.\nCount = 1\n\n# A line that nothing reads:\nthis one\nName = \"One\" \nList = [\"a\", \"b\"]\n",
         0640},
        {u"Alpha\\Two", "/home/store/Alpha/Two.ini", "Count = 1\nLong = \"short\"\n" + Lines(12), 0640},
        {u"Beta\\One", "/home/store/Beta/One.ini", "Count = 0x1\r\n; in the other style\r\nSize = 4\r\n", 0600},
        {u"Beta\\Two", "/home/store/Beta/Two.ini", "Count = 1\n" + Lines(3), 0660},
        {u"Beta\\Two\\Deep", "/home/store/Beta/Two/Deep.ini", "Count = 1\n", 0600},
        {u"Gamma\\New", "/home/store/Gamma/New.ini", "", 0},
    };
    return keys;
}

void CrashStory::KeyState::Append(const char* name, unsigned number)
{
    if (!exists)
        mode = kModeOfNew;
    exists = true;
    const char* const end = text.find("\r\n") == std::string::npos ? "\n" : "\r\n";
    text += name + (" = " + std::to_string(number)) + end;
    values += name + (" = " + std::to_string(number)) + '\n';
}

bool CrashStory::KeyState::TakeOff(const char* name, unsigned number)
{
    KeyState added;
    added.Append(name, number);
    if (!values.ends_with(added.values))
        return false;
    values.resize(values.size() - added.values.size());
    text.resize(text.rfind(name));
    exists = !text.empty();
    mode = exists ? mode : 0;
    return true;
}

CrashStory::Programs::Program& CrashStory::Programs::Of(unsigned program)
{
    std::unique_ptr<Program>& found = m_programs[program];
    if (!found)
        found = std::make_unique<Program>(m_transactionBytes);
    return *found;
}

std::unique_ptr<VProfileKey>& CrashStory::Programs::Program::Open(size_t key)
{
    std::unique_ptr<VProfileKey>& handle = keys[key];
    if (handle)
        return handle;
    handle = std::make_unique<VProfileKey>(store.GetRootKey(), StartKeys()[key].name);
    if (handle->GetStatus().GetCode() != kErrorSuccess) // a failed open, whose handle is good for nothing
        handle.reset();
    return handle;
}

bool CrashStory::Programs::Do(const Action& action)
{
    Program& program = Of(action.program);
    VReportMessageParams report;
    const auto saved = [&](bool isDone, auto isMember) {
        if (isDone)
            std::erase_if(m_accepted, isMember);
        return isDone;
    };
    switch (action.what) {
    case Do::Flush: {
        const std::unique_ptr<VProfileKey>& key = program.Open(action.key);
        return saved(key && key->Flush(report),
                     [&](const Action& a) { return a.key == action.key && a.program == action.program; });
    }
    case Do::Close:
        program.keys[action.key].reset();
        return true;
    case Do::DeleteKey: {
        VProfileKey& root = *program.store.GetRootKey();
        return root.DeleteKey(StartKeys()[action.key].name) || !root.KeyExists(StartKeys()[action.key].name);
    }
    case Do::Begin:
        return program.store.Extras().BeginTransaction(report);
    case Do::Commit:
        return saved(program.store.Extras().CommitTransaction(report),
                     [&](const Action& a) { return a.program == action.program; });
    default:
        return Write(action);
    }
}

bool CrashStory::Programs::Write(const Action& action)
{
    const std::unique_ptr<VProfileKey>& key = Of(action.program).Open(action.key);
    bool isDone = false;
    if (key && action.what == Do::Number)
        isDone = key->WriteDword(action.name, action.number);
    else if (key && action.what == Do::Text)
        isDone = key->WriteString(action.name, TextOf(action).c_str());
    else if (key)
        isDone = key->DeleteValue(action.name);
    if (isDone)
        m_accepted.push_back(action);
    return isDone;
}

bool CrashStory::Programs::Reads(const Action& action)
{
    const std::unique_ptr<VProfileKey>& key = Of(action.program).Open(action.key);
    unsigned number = 0;
    VUnicodeString text;
    if (!key)
        return false;
    if (action.what == Do::Number)
        return key->ReadDword(action.name, &number) && number == action.number;
    if (action.what == Do::Text)
        return key->ReadString(action.name, text) && text == TextOf(action).c_str();
    return !key->ReadString(action.name, text) && !key->ReadDword(action.name, &number);
}

std::string CrashStory::Programs::Unreadable(bool canOpen)
{
    for (const Action& action : m_accepted)
        if ((canOpen || Of(action.program).keys[action.key]) && !Reads(action))
            return Narrow(action.name) + " of " + Narrow(StartKeys()[action.key].name);
    return {};
}

bool CrashStory::Programs::Save(unsigned program, size_t key, const char16_t* name, unsigned number)
{
    std::unique_ptr<VProfileKey>& handle = Of(program).keys[key];
    handle.reset();
    VReportMessageParams report;
    return Of(program).Open(key) && handle->WriteDword(name, number) && handle->Flush(report);
}

std::string CrashStory::Programs::Values(unsigned program, size_t key)
{
    VProfileKey& root = *Of(program).store.GetRootKey();
    if (!root.KeyExists(StartKeys()[key].name))
        return {};
    const VProfileKey handle(&root, StartKeys()[key].name);
    VProfileKeyIterator iterator(&handle, true);
    std::string values;
    VUnicodeString name;
    for (int type = 0; iterator.NextValue(name, &type);) {
        unsigned number = 0;
        VUnicodeString text;
        values += Narrow(name.c_str()) + " = ";
        if (handle.ReadDword(name.c_str(), &number))
            values += std::to_string(number);
        else if (handle.ReadString(name.c_str(), text))
            values += std::to_string(text.GetLength()) + " characters";
        values += '\n';
    }
    return values;
}

bool CrashStory::Programs::HasVersions()
{
    VReportMessageParams report;
    std::vector<StoreVersion> versions;
    return Of(0).store.Extras().ListVersions(u"", versions, report) || report.GetCode() != kErrorNotSupported;
}

bool CrashStory::Programs::ReadVersions(size_t key, std::vector<std::string>& texts)
{
    VReportMessageParams report;
    IStoreExtras& extras = Of(0).store.Extras();
    std::vector<StoreVersion> versions;
    if (!extras.ListVersions(StartKeys()[key].name, versions, report))
        return false;
    for (const StoreVersion& version : versions)
        if (!extras.ReadVersion(StartKeys()[key].name, version.number, texts.emplace_back(), report))
            return false;
    return true;
}

} // namespace ostrand::test
