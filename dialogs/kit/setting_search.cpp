#include "dialogs/kit/setting_search.h"

#include "dialogs/kit/accessible_name.h"
#include "dialogs/kit/property_page.h"
#include "dialogs/kit/word_match.h"

#include <algorithm>

namespace ostrand {

namespace {

/// A text under which a control is found, and how much a match in it counts.
struct Haystack {
    VUnicodeString text;
    int weight;
};

void AddOptions(const VTemplateItem& item, std::vector<Haystack>& texts)
{
    for (size_t i = 1; i <= item.descendants; ++i)
        if (const VTemplateItem& part = *(&item + i); part.kind == VItemKind::Option || part.kind == VItemKind::Item)
            texts.push_back({WithoutMark(Translate(part.text)), 6});
}

std::vector<Haystack> TextsOf(const VPropertyTreePage& page, size_t index)
{
    const VTemplateItem& item = page.GetTemplate().Items()[index];
    std::vector<Haystack> texts = {{AccessibleName(page, index), 10}, {Translate(item.synonyms), 7}};
    AddOptions(item, texts);
    const VBinding* const binding = page.BindingOf(item.id);
    if (const VSchemaEntry* const entry = binding ? binding->Entry() : nullptr) {
        texts.push_back({entry->name, 8});
        texts.push_back({Translate(entry->meaning), 3});
    }
    if (const VControl* const group = GroupAround(page, index))
        texts.push_back({group->GetName(), 4});
    texts.push_back({page.GetTreeLabel(), 2});
    return texts;
}

/// 0 unless every word fits somewhere.
int Score(const std::vector<VUnicodeString>& words, const std::vector<Haystack>& texts)
{
    int score = 0;
    for (const VUnicodeString& word : words) {
        int best = 0;
        for (const Haystack& haystack : texts)
            best = std::max(best, haystack.weight * MatchWord(word, haystack.text));
        if (best == 0)
            return 0;
        score += best;
    }
    return score;
}

std::vector<VUnicodeString> WordsOf(std::u16string_view text)
{
    std::vector<VUnicodeString> words;
    while (!text.empty()) {
        const size_t end = std::min(text.find_first_of(u" \t"), text.size());
        if (end > 0)
            words.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

} // namespace

void SearchPage(VPropertyTreePage& page, std::u16string_view text, std::vector<VSearchHit>& hits)
{
    const std::vector<VUnicodeString> words = WordsOf(text);
    const std::span<const VTemplateItem> items = page.GetTemplate().Items();
    for (size_t i = 0; i < items.size(); ++i) {
        if (!items[i].TakesFocus() || items[i].kind == VItemKind::Place || !page.ControlOfItem(i)->IsVisible())
            continue;
        if (const int score = Score(words, TextsOf(page, i)); score > 0)
            hits.push_back({&page, items[i].id, score, hits.size(), page.GetPath() + u": " + AccessibleName(page, i)});
    }
}

} // namespace ostrand
