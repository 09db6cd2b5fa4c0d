#include "profile/view_state.h"

#include "core/scan.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr size_t kMostCharactersOfNumber = 11; // "-2147483648"
constexpr size_t kNumbersInFront = 5;
constexpr size_t kNumbersOfColumn = 3;

/// Any number of 32 bits. States are formatted at every save, changed or not, so this is done by hand: most numbers are
/// single digits.
void PutNumber(char16_t*& at, int64_t number)
{
    if (number < 0)
        *at++ = u'-';
    auto rest = static_cast<uint32_t>(number < 0 ? -number : number);
    for (uint64_t power = 10; power <= rest; power *= 10)
        ++at;
    char16_t* digit = at++;
    for (; rest >= 10; rest /= 10)
        *digit-- = static_cast<char16_t>(u'0' + rest % 10);
    *digit = static_cast<char16_t>(u'0' + rest);
}

void PutNext(char16_t*& at, int64_t number)
{
    *at++ = u',';
    PutNumber(at, number);
}

/// Cuts the next token off and reads it as a number; what is none counts as 0.
int TakeToken(std::u16string_view& tokens)
{
    const size_t end = std::min(tokens.find(u','), tokens.size());
    int number = 0;
    VScanner(tokens.substr(0, end)).Int(number);
    tokens.remove_prefix(std::min(end + 1, tokens.size()));
    return number;
}

} // namespace

void VListViewFields::ParseText(std::u16string_view text)
{
    VScanner in(text);
    int firstNumber = 0;
    std::u16string_view tokens;
    const bool all = in.Int(firstNumber) && in.Literal(u',') && in.Int(second) && in.Literal(u',') &&
                     in.UnsignedLong(third) && in.Literal(u',') && in.Int(fourth) && in.Literal(u',') &&
                     in.Int(columnCount) && in.Literal(u',') && in.Word(tokens);
    first = firstNumber != 0;
    const int64_t count = 1 + std::count(tokens.begin(), tokens.end(), u',');
    if (all && count == columnCount)
        AddColumns(tokens, true);
    else if (all && count == int64_t{kNumbersOfColumn} * columnCount)
        AddColumns(tokens, false);
    else
        *this = VListViewFields();
}

void VListViewFields::AddColumns(std::u16string_view tokens, bool widthsAlone)
{
    const size_t before = columns.GetCount();
    for (int i = 0; i < columnCount; ++i) {
        ColumnInfo column{TakeToken(tokens), true, i};
        if (!widthsAlone) {
            column.visible = TakeToken(tokens) != 0;
            column.order = TakeToken(tokens);
        }
        columns.Append(column);
    }
    std::rotate(columns.begin(), columns.begin() + before, columns.end());
}

size_t VListViewFields::GetTextBound() const
{
    const size_t written = std::min(static_cast<size_t>(std::max(columnCount, 0)), columns.GetCount());
    return (kMostCharactersOfNumber + 1) * (kNumbersInFront + kNumbersOfColumn * written);
}

char16_t* VListViewFields::Format(char16_t* at) const
{
    PutNumber(at, first ? 1 : 0);
    PutNext(at, second);
    PutNext(at, third);
    PutNext(at, fourth);
    PutNext(at, columnCount);
    for (int i = 0; i < columnCount; ++i) {
        const ColumnInfo& column = columns[static_cast<size_t>(i)];
        PutNext(at, column.width);
        PutNext(at, column.visible ? 1 : 0);
        PutNext(at, column.order);
    }
    return at;
}

void VExplorerFrameFields::ParseText(std::u16string_view text)
{
    VScanner in(text);
    int firstNumber = 0;
    if (!in.Int(firstNumber))
        return;
    first = firstNumber != 0;
    // Stops at the first field that isn't there; the others keep their values.
    static_cast<void>(in.Literal(u',') && in.Int(second) && in.Literal(u',') && in.Int(third));
}

size_t VExplorerFrameFields::GetTextBound() const { return (kMostCharactersOfNumber + 1) * 3; }

char16_t* VExplorerFrameFields::Format(char16_t* at) const
{
    PutNumber(at, first ? 1 : 0);
    PutNext(at, second);
    PutNext(at, third);
    return at;
}

template class VProfileViewState<VListViewFields>;
template class VProfileViewState<VExplorerFrameFields>;

} // namespace ostrand
