// A file that two programs change at once. The input is a file, a zero, the file as the others leave it, a zero, and
// what we change, two bytes for each value. What is saved has each side's changes, tells each value that both changed
// differently, and moves no byte of another line.
//
//   input = base NUL theirs NUL { value what }      value: which one of the names of both texts; what: see kOurs
#include "core/fold.h"
#include "core/report.h"
#include "platform/platform.h"
#include "profile/key.h"
#include "stores/file_damage.h"
#include "stores/file_document.h"
#include "stores/file_render.h"
#include "stores/file_store.h"
#include "stores/store_messages.h"
#include "tests/support/memory_files.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using namespace ostrand;

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Those that the store tells.
class Conflicts : public VReportMessageRouter {
public:
    void Route(IReportMessageParams* message) override
    {
        if (message->GetCode() == kValueConflict)
            names.emplace_back(message->GetArguments()[1]);
    }
    std::vector<std::u16string> names;
};

Conflicts& Told()
{
    static Conflicts conflicts;
    return conflicts;
}

constexpr const char* kFile = "/store/Key.ini";
/// What we make of a value; null deletes it.
constexpr std::array<const char*, 4> kOurs = {nullptr, "1", "\"ours\"", "2"};

/// A value in its one spelling; none where it is missing.
using Value = std::optional<std::string>;

Value ValueOf(const FileDocument& document, const std::u16string& name)
{
    const FileDocument::Found found = document.FindWhole(name.c_str());
    if (!found)
        return std::nullopt;
    const std::string rendered = Rerender(found.value);
    return rendered.empty() ? std::string(ValueText(found.value)) : rendered;
}

bool Write(VProfileKey& key, const std::u16string& name, size_t what)
{
    if (what == 0)
        return key.DeleteValue(name.c_str()) || key.GetStatus().GetCode() == kErrorFileNotFound;
    return what == 2 ? key.WriteString(name.c_str(), u"ours") : key.WriteDword(name.c_str(), what == 1 ? 1 : 2);
}

/// Names that can be asked for, each once.
void AddNames(const FileDocument& document, std::vector<std::u16string>& names)
{
    for (size_t i = 0; i < document.Count(); ++i) {
        std::u16string name = document.NameAt(i);
        const bool isKnown = std::any_of(names.begin(), names.end(),
                                         [&](const std::u16string& known) { return EqualNoCase(known, name); });
        if (!name.empty() && name.find(u'\0') == name.npos && !isKnown)
            names.push_back(std::move(name));
    }
}

class Merge {
public:
    Merge(std::string base, std::string theirs) : m_base(std::move(base)), m_theirs(std::move(theirs))
    {
        AddNames(m_base, m_names);
        AddNames(m_theirs, m_names);
        AddNames(FileDocument("New of ours = 1\n"), m_names);
    }

    void Run(std::string_view edits)
    {
        for (size_t i = 0; i + 1 < edits.size(); i += 2)
            m_ours[static_cast<unsigned char>(edits[i]) % m_names.size()] =
                static_cast<unsigned char>(edits[i + 1]) % kOurs.size();
        const VPlatformScope scope;
        test::MemoryFiles files;
        Platform().files = &files;
        files.contents = {{"/store", ""}, {kFile, m_base.Text()}};
        files.contents["/store/%store.ini"] = "History Versions = 0\n";
        Told().names.clear();

        FileStoreFactory factory("/store");
        const VProfileStore store(false, &factory);
        VProfileKey key(store.GetRootKey(), u"Key");
        VReportMessageParams report;
        // Whatever the kind: what matters is that this process knows the value, or that there is none.
        for (const std::u16string& name : m_names)
            ReadAny(key, name);
        for (const auto& [name, what] : m_ours)
            Require(Write(key, m_names[name], what));
        files.contents[kFile] = m_theirs.Text();
        Require(key.Flush(report));
        const std::string saved = files.contents[kFile];
        Check(FileDocument(saved));
        Require(key.Flush(report));
        Require(files.contents[kFile] == saved);
    }

private:
    static void ReadAny(const VProfileKey& key, const std::u16string& name)
    {
        unsigned number = 0;
        VUnicodeString text;
        VStringArray list;
        unsigned size = 0;
        if (!key.ReadDword(name.c_str(), &number) && !key.ReadString(name.c_str(), text) &&
            !key.ReadMultiSz(name.c_str(), list))
            key.ReadBinary(name.c_str(), nullptr, &size);
    }

    void Check(const FileDocument& saved) const
    {
        std::vector<std::u16string> conflicts;
        std::vector<ValueEdit> edits;
        std::map<size_t, std::string> texts;
        for (size_t i = 0; i < m_names.size(); ++i) {
            const std::u16string& name = m_names[i];
            const Value base = ValueOf(m_base, name);
            const Value theirs = ValueOf(m_theirs, name);
            const Value ours = OursOf(i, base);
            Require(ValueOf(saved, name) == (ours == base ? theirs : ours));
            if (ours == base || ours == theirs)
                continue;
            if (theirs != base)
                conflicts.push_back(name);
        }
        std::vector<std::u16string> told = Told().names;
        std::sort(told.begin(), told.end());
        std::sort(conflicts.begin(), conflicts.end());
        Require(told == conflicts);
        Require(OtherLines(saved) == OtherLines(m_theirs));
    }

    Value OursOf(size_t number, const Value& base) const
    {
        const auto found = m_ours.find(number);
        if (found == m_ours.end())
            return base;
        return found->second == 0 ? Value() : Value(kOurs[found->second]);
    }

    /// All lines but those of the values that we changed.
    std::string OtherLines(const FileDocument& document) const
    {
        std::string lines;
        std::string_view rest = SkipByteOrderMark(document.Text());
        while (!rest.empty()) {
            const size_t size = std::min(rest.find('\n'), rest.size() - 1) + 1;
            std::string_view line = rest.substr(0, size);
            rest.remove_prefix(size);
            for (const char end : {'\n', '\r'}) // the last line may get its end
                line.remove_suffix(line.ends_with(end) ? 1 : 0);
            ValueParts parts;
            std::u16string name;
            const bool isValue = CutLine(line, parts) && DecodeName(parts.name, name) && KindOfValue(parts.value);
            if (!isValue || !IsOurs(name))
                (lines += line) += '\n';
        }
        return lines;
    }
    bool IsOurs(const std::u16string& name) const
    {
        return std::any_of(m_ours.begin(), m_ours.end(),
                           [&](const auto& change) { return EqualNoCase(m_names[change.first], name); });
    }

    FileDocument m_base;
    FileDocument m_theirs;
    std::vector<std::u16string> m_names;
    std::map<size_t, size_t> m_ours; // what, by the number of the name
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    SetReportRouterGetter([]() -> VReportMessageRouter* { return &Told(); });
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const size_t first = input.find('\0');
    const size_t second = first == input.npos ? input.npos : input.find('\0', first + 1);
    if (second == input.npos)
        return 0;
    const std::string base(input.substr(0, first));
    const std::string theirs(input.substr(first + 1, second - first - 1));
    // What is damaged would be made good first. And a line that begins like a marked file means something else once
    // those before it are deleted.
    if (IsDamaged(base, nullptr) || IsDamaged(theirs, nullptr) || theirs.find("\n\xEF\xBB\xBF") != theirs.npos)
        return 0;
    Merge(base, theirs).Run(input.substr(second + 1));
    return 0;
}
