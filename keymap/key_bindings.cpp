#include "keymap/key_bindings.h"

#include <algorithm>
#include <cstring>

namespace ostrand {

KeyBindings::KeyBindings(const KeyBindings& other)
{
    for (size_t i = 0; i < m_pages.size(); ++i)
        if (other.m_pages[i])
            m_pages[i] = std::make_unique<Page>(*other.m_pages[i]);
}

KeyBindings& KeyBindings::operator=(KeyBindings other) noexcept
{
    m_pages.swap(other.m_pages);
    return *this;
}

const VUnicodeString& KeyBindings::String(unsigned index) const
{
    static const VUnicodeString empty;
    const Page* const page = PageOf(index);
    return page ? page->strings[index % kPageSize] : empty;
}

KeyBindings::Page& KeyBindings::MakePage(unsigned index)
{
    std::unique_ptr<Page>& page = m_pages[index / kPageSize];
    if (!page)
        page = std::make_unique<Page>();
    return *page;
}

void KeyBindings::SetFunction(unsigned index, uint32_t code)
{
    if (code != 0 || PageOf(index))
        MakePage(index).functions[index % kPageSize] = code;
}

void KeyBindings::SetString(unsigned index, const VUnicodeString& text)
{
    if (!text.IsEmpty() || PageOf(index))
        MakePage(index).strings[index % kPageSize] = text;
}

void KeyBindings::ClearFunctions()
{
    for (const std::unique_ptr<Page>& page : m_pages)
        if (page)
            page->functions.fill(0);
}

bool KeyBindings::Page::operator==(const Page& other) const
{
    return functions == other.functions &&
           std::equal(strings.begin(), strings.end(), other.strings.begin(),
                      [](const VUnicodeString& a, const VUnicodeString& b) {
                          return a.SharesBufferWith(b) ||
                                 (a.GetLength() == b.GetLength() &&
                                  std::memcmp(a.c_str(), b.c_str(), a.GetLength() * sizeof(char16_t)) == 0);
                      });
}

bool KeyBindings::operator==(const KeyBindings& other) const
{
    static const Page empty;
    for (size_t i = 0; i < m_pages.size(); ++i) {
        const Page* const mine = m_pages[i].get();
        const Page* const theirs = other.m_pages[i].get();
        // A page in which everything was unset again counts as none.
        if (mine != theirs && !((mine ? *mine : empty) == (theirs ? *theirs : empty)))
            return false;
    }
    return true;
}

} // namespace ostrand
