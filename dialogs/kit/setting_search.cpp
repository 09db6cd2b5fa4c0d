#include "dialogs/kit/setting_search.h"

#include "core/fold.h"
#include "dialogs/kit/accessible_name.h"
#include "dialogs/kit/property_page.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr int kPageWeight = 9;

std::vector<std::u16string> WordsOf(std::u16string_view text)
{
    std::vector<std::u16string> words;
    while (!text.empty()) {
        const size_t end = std::min(text.find_first_of(u" \t"), text.size());
        if (end > 0)
            words.push_back(FoldedCase(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

/// A text that is nothing but the word, such as a group's caption, says more than a long label that has it, too.
int Fit(std::u16string_view word, const VFoldedText& text)
{
    constexpr int kAlone = 3;
    const int match = MatchWord(word, text);
    return text.CountWords() == 1 && text.Word(0) == word ? kAlone * match : match;
}

} // namespace

/// 0 unless every word fits somewhere, one of them in a text of the control's own.
int VSettingSearch::Score(const std::vector<std::u16string>& words, const std::vector<Text>& texts)
{
    int score = 0;
    bool anyOwn = false;
    for (const std::u16string& word : words) {
        int best = 0;
        for (const Text& text : texts)
            if (const int match = text.weight * Fit(word, text.text); match > 0) {
                best = std::max(best, match);
                anyOwn = anyOwn || text.isOwn;
            }
        if (best == 0)
            return 0;
        score += best;
    }
    return anyOwn ? score : 0;
}

std::vector<VSettingSearch::Text> VSettingSearch::TextsOf(const VPropertyTreePage& page, const VForm& form, size_t item)
{
    std::vector<Text> texts;
    const auto add = [&texts](const VUnicodeString& text, int weight, bool isOwn = true) {
        if (!text.IsEmpty())
            texts.push_back({VFoldedText(text), weight, isOwn});
    };
    const std::span<const VTemplateItem> items = form.GetTemplate().Items();
    add(AccessibleName(form, item), 10);
    add(Translate(items[item].synonyms), 7);
    for (size_t i = item + 1; i <= item + items[item].descendants; ++i)
        if (items[i].kind == VItemKind::Option || items[i].kind == VItemKind::Item)
            add(WithoutMark(Translate(items[i].text)), 6);
    const VBinding* const binding = form.BindingOf(items[item].id);
    if (const VSchemaEntry* const entry = binding ? binding->Entry() : nullptr) {
        add(entry->name, 8);
        add(Translate(entry->meaning), 3);
    }
    if (const VControl* const group = GroupAround(form, item))
        add(group->GetName(), 4);
    add(page.GetTreeLabel(), 2, false);
    return texts;
}

void VSettingSearch::Add(VPropertyTreePage& page, VForm& form, std::vector<Entry>& entries)
{
    const std::span<const VTemplateItem> items = form.GetTemplate().Items();
    for (size_t i = 0; i < items.size(); ++i) {
        const VControl* const control = form.ControlOfItem(i);
        if (const auto* const place = dynamic_cast<const VPlaceControl*>(control)) {
            if (place->GetContent() && place->IsVisible())
                Add(page, *place->GetContent(), entries);
        } else if (items[i].TakesFocus()) {
            Entry& entry = entries.emplace_back();
            entry.hit.page = &page;
            entry.hit.form = &form;
            entry.hit.control = items[i].id;
            entry.hit.name = AccessibleName(form, i);
            entry.control = control;
            entry.texts = TextsOf(page, form, i);
        }
    }
}

const std::vector<VSettingSearch::Entry>& VSettingSearch::EntriesOf(VPropertyTreePage& page)
{
    if (const unsigned language = TextHookVersion(); m_language != language) {
        m_language = language;
        Clear();
    }
    const auto [at, isNew] = m_pages.try_emplace(&page);
    if (isNew) {
        Entry& entry = at->second.emplace_back();
        entry.hit.page = &page;
        entry.hit.form = &page;
        entry.hit.name = page.GetTreeLabel();
        entry.texts.push_back({VFoldedText(page.GetTreeLabel()), kPageWeight, true});
        Add(page, page, at->second);
    }
    return at->second;
}

void VSettingSearch::Search(VPropertyTreePage& page, std::u16string_view words, std::vector<VSearchHit>& hits)
{
    const std::vector<std::u16string> wanted = WordsOf(words);
    for (const Entry& entry : EntriesOf(page)) {
        if (entry.control && !entry.control->IsVisible())
            continue;
        const int score = Score(wanted, entry.texts);
        if (score == 0)
            continue;
        hits.push_back(entry.hit);
        hits.back().score = score;
        hits.back().order = hits.size() - 1;
    }
}

} // namespace ostrand
