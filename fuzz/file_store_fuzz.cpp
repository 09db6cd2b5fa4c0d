// Any bytes as a key's file: all that parses is read, rendered and read again, also by the short cuts of reading; edits
// change what they name, keep every line that doesn't parse, and a second edit to the same values changes nothing.
#include "stores/file_check.h"
#include "stores/file_document.h"
#include "stores/file_format.h"
#include "stores/file_render.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

using namespace ostrand;

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

void CheckValue(std::string_view value)
{
    const std::string rendered = Rerender(value);
    if (rendered.empty()) {
        Require(KindOfValue(value) == VProfileValueType::Other);
        return;
    }
    Require(KindOfValue(rendered) == KindOfValue(value));
    Require(SameValue(value, rendered));
    Require(HashValue(value) == HashValue(rendered));
    Require(Rerender(rendered) == rendered);
}

/// Lines that no value of the document stands in, in their order.
std::vector<std::string> OtherLines(const std::string& text)
{
    std::vector<std::string> lines;
    for (size_t from = text.starts_with("\xEF\xBB\xBF") ? 3 : 0; from < text.size();) {
        const size_t feed = text.find('\n', from);
        std::string line = text.substr(from, feed == std::string::npos ? feed : feed - from);
        if (line.ends_with('\r'))
            line.pop_back();
        from = feed == std::string::npos ? text.size() : feed + 1;
        ValueParts parts;
        std::u16string name;
        if (!CutLine(line, parts) || !DecodeName(parts.name, name) || !KindOfValue(parts.value))
            lines.push_back(line);
    }
    return lines;
}

/// The same values where a layout is shared, and where the text isn't cut.
void CheckShortCuts(const FileDocument& document, const std::vector<std::u16string>& names)
{
    LayoutPool pool;
    for (int i = 0; i < 2; ++i)
        FileDocument(document.Text(), &pool).Cut();
    const FileDocument sharing(document.Text(), &pool);
    Require(sharing.Count() == document.Count());
    for (size_t i = 0; i < document.Count(); ++i) {
        Require(sharing.NameAt(i) == document.NameAt(i));
        Require(sharing.ValueAt(i) == document.ValueAt(i));
        Require(sharing.IsLast(i) == document.IsLast(i));
    }
    for (size_t i = 0; i < names.size(); i += 1 + names.size() / 8) {
        const FileDocument uncut(document.Text());
        Require(uncut.FindWhole(names[i].c_str()).value == document.FindWhole(names[i].c_str()).value);
    }
}

/// The other lines behind an edit, without the blank one that may keep a line from becoming the file's byte-order mark.
std::vector<std::string> LinesLeft(const std::string& edited, size_t before)
{
    std::vector<std::string> lines = OtherLines(edited);
    const bool isGuarded = edited.starts_with("\n\xEF\xBB\xBF") || edited.starts_with("\r\n\xEF\xBB\xBF");
    if (isGuarded && lines.size() > before)
        lines.erase(lines.begin());
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const FileDocument document(std::string(reinterpret_cast<const char*>(data), size));
    CheckText(document.Text());
    std::vector<std::u16string> names;
    for (size_t i = 0; i < document.Count(); ++i) {
        // A name with a zero inside can't be asked for.
        const std::u16string name = document.NameAt(i);
        if (name.find(u'\0') != std::u16string::npos || document.FindWhole(name.c_str()).entry != i)
            continue;
        CheckValue(document.ValueAt(i));
        names.push_back(name);
    }
    CheckShortCuts(document, names);
    names.push_back(u"Fuzzed; = \"name\"");

    const std::string value = "\"fuzzed\"";
    std::vector<ValueEdit> edits;
    for (size_t i = 0; i < names.size(); ++i)
        if (i % 3 != 1)
            edits.push_back({names[i].c_str(), i % 3 == 0 ? &value : nullptr});
    const FileDocument edited(document.WithEdits(edits));
    for (const ValueEdit& edit : edits) {
        const FileDocument::Found found = edited.FindWhole(edit.name);
        Require(edit.text ? ValueText(found.value) == value : !found);
    }
    for (size_t i = 1; i < names.size(); i += 3)
        Require(ValueText(edited.FindWhole(names[i].c_str()).value) ==
                ValueText(document.FindWhole(names[i].c_str()).value));
    const std::vector<std::string> others = OtherLines(document.Text());
    Require(LinesLeft(edited.Text(), others.size()) == others);
    Require(edited.WithEdits(edits) == edited.Text());
    return 0;
}
