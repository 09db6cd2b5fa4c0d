#include "keymap/keymap.h"

#include "core/messages.h"
#include "keymap/default_bindings.h"
#include "keymap/function_names.h"
#include "keymap/keymap_file.h"

namespace ostrand {

Keymap& Keymap::operator=(const Keymap& other)
{
    if (this == &other)
        return *this;
    m_bindings = other.m_bindings;
    m_defaults.reset();
    commentSeen = false;
    return *this;
}

unsigned Keymap::GetFunction(unsigned keyIndex) const
{
    const unsigned own = keyIndex < kKeyCount ? m_bindings.Function(keyIndex) : kFunctionNone;
    return own == kFunctionNone && m_defaults ? m_defaults->GetFunction(keyIndex) : own;
}

const VUnicodeString& Keymap::GetString(unsigned keyIndex) const
{
    static const VUnicodeString none;
    if (keyIndex >= kKeyCount)
        return none;
    const VUnicodeString& own = m_bindings.String(keyIndex);
    return own.IsEmpty() && m_defaults ? m_defaults->GetString(keyIndex) : own;
}

void Keymap::SetFunction(unsigned keyIndex, unsigned code)
{
    if (keyIndex < kKeyCount)
        m_bindings.SetFunction(keyIndex, code);
}

void Keymap::SetString(unsigned keyIndex, const VUnicodeString& text)
{
    if (keyIndex < kKeyCount)
        m_bindings.SetString(keyIndex, text);
}

bool Keymap::LoadFromFile(std::u16string_view path, IReportMessageParams& status)
{
    status.SetMessage(0);
    KeymapFileReader reader(*this, kKeymapErrorLimit);
    const unsigned code = reader.Open(path);
    if (code != 0)
        return Fail(status, kKeymapFileFailed, path, VReportMessageParams(code, LibraryModule()).GetText());
    const bool isWhole = reader.Read();
    commentSeen = reader.CommentSeen();
    if (!isWhole)
        return Fail(status, kKeymapFileFailed, path, reader.AllErrors());
    if (!reader.Errors().empty())
        Fail(status, kKeymapFileHasErrors, path, reader.AllErrors());
    m_defaults = std::make_unique<Keymap>();
    InstallDefaultKeymap(*m_defaults);
    return true;
}

bool Keymap::SaveToFile(std::u16string_view path, bool unicode) const
{
    return WriteKeymapFile(m_bindings, path, unicode ? VTextEncoding::Utf8 : VTextEncoding::CodePage) == 0;
}

} // namespace ostrand
