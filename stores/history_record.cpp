#include "stores/history_record.h"

#include "stores/file_format.h"
#include "stores/file_render.h"
#include "stores/iso_time.h"
#include "stores/name_index.h"
#include "stores/text_diff.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <iterator>
#include <limits>

namespace ostrand {

namespace {

constexpr std::string_view kUnknownTime = "-";
constexpr size_t kPositionDigits = 6;
constexpr size_t kSizeDigits = 9;
constexpr size_t kHashDigits = 16;
static_assert(kRecordEnd.size() + kPositionDigits + 1 + kSizeDigits + 1 + kHashDigits + 1 == kRecordEndSize);

/// Eight bytes, the first of them the lowest, whatever the machine's own order.
uint64_t WordAt(const char* p)
{
    uint64_t word = LoadWord(p);
    if constexpr (std::endian::native == std::endian::big)
        std::reverse(reinterpret_cast<char*>(&word), reinterpret_cast<char*>(&word + 1));
    return word;
}

// Digits

void PutNumber(uint64_t number, int base, size_t digits, std::string& out)
{
    char text[20];
    const char* const end = std::to_chars(text, std::end(text), number, base).ptr;
    const auto size = static_cast<size_t>(end - text);
    if (size < digits)
        out.append(digits - size, '0');
    out.append(text, size);
}

/// All of the text is the number.
template <class Number>
bool ParseDigits(std::string_view text, int base, Number& number)
{
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number, base);
    return result.ec == std::errc() && result.ptr == end;
}

// The first line

void PutMark(std::string_view mark, std::u16string_view text, std::string& out)
{
    out += ' ';
    out += mark;
    out += RenderText(text);
}

void PutFirstLine(const HistoryRecord& head, std::string& out)
{
    const StoreVersion& version = head.version;
    out += kRecordStart;
    PutNumber(version.number, 10, 1, out);
    out += ' ';
    const std::string time = version.time != 0 ? IsoTime({version.time}) : std::string();
    out += time.empty() ? kUnknownTime : time;
    out += head.isFull ? " full " : " step ";
    PutNumber(head.hash, 16, kHashDigits, out);
    if (version.isDeleted)
        out += " deleted";
    if (!version.by.empty()) {
        VUnicodeString by;
        PutMark("by ", FromUtf8(version.by, by) ? by.View() : u"?", out);
    }
    for (const VUnicodeString& name : version.conflicts)
        PutMark("conflict ", name, out);
    out += '\n';
}

std::string_view TakeWord(std::string_view& rest)
{
    const std::string_view word = rest.substr(0, rest.find(' '));
    rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    return word;
}

bool TakeMark(std::string_view& rest, StoreVersion& version)
{
    const std::string_view mark = TakeWord(rest);
    if (mark == "deleted") {
        version.isDeleted = true;
        return true;
    }
    VUnicodeString text;
    const size_t size = TakeQuoted(rest, text);
    if (size == 0)
        return false;
    rest.remove_prefix(size);
    rest.remove_prefix(rest.starts_with(' '));
    if (mark == "by")
        version.by = ToUtf8(text);
    else if (mark == "conflict")
        version.conflicts.push_back(text);
    return true;
}

bool ParseFirstLine(std::string_view line, HistoryRecord& record)
{
    record.version = {};
    record.version.number = ParseNumber(line);
    line.remove_prefix(kRecordStart.size());
    TakeWord(line);
    const std::string_view time = TakeWord(line);
    const std::string_view kind = TakeWord(line);
    record.isFull = kind == "full";
    VFileTime ticks;
    if (record.version.number == 0 || (time != kUnknownTime && !ParseIsoTime(time, ticks)) ||
        (!record.isFull && kind != "step") || !ParseDigits(TakeWord(line), 16, record.hash))
        return false;
    record.version.time = ticks.ticks;
    while (!line.empty())
        if (!TakeMark(line, record.version))
            return false;
    return true;
}

// Hunks

void PutSide(char mark, std::string_view text, std::string& out)
{
    while (!text.empty()) {
        const size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        out += mark;
        out += text.substr(0, end);
        if (text[end - 1] != '\n')
            out += "\n\\\n";
        text.remove_prefix(end);
    }
}

struct Hunk {
    size_t at = 0;
    std::string before, after;
};

/// The bytes of all lines with the mark at the front.
void TakeSide(char mark, std::string_view& rest, std::string& side)
{
    constexpr std::string_view kNoFeed = "\\\n";
    side.clear();
    while (rest.starts_with(mark)) {
        const size_t end = std::min(rest.find('\n'), rest.size() - 1) + 1;
        side += rest.substr(1, end - 1);
        rest.remove_prefix(end);
        if (rest.starts_with(kNoFeed)) {
            rest.remove_prefix(kNoFeed.size());
            side.pop_back();
        }
    }
}

bool TakeHunk(std::string_view& rest, Hunk& hunk)
{
    const size_t feed = rest.find('\n');
    if (!rest.starts_with('@') || feed == std::string_view::npos || !ParseDigits(rest.substr(1, feed - 1), 10, hunk.at))
        return false;
    rest.remove_prefix(feed + 1);
    TakeSide('-', rest, hunk.before);
    TakeSide('+', rest, hunk.after);
    return true;
}

bool Apply(std::string_view hunks, bool isBack, std::string& text)
{
    Hunk hunk;
    std::string made;
    size_t done = 0;  // bytes of `text` that are in `made`
    size_t shift = 0; // of places in the text after against those in the text before; may stand below zero, and wrap
    while (!hunks.empty()) {
        if (!TakeHunk(hunks, hunk))
            return false;
        const std::string& from = isBack ? hunk.after : hunk.before;
        const std::string& to = isBack ? hunk.before : hunk.after;
        const size_t at = isBack ? hunk.at + shift : hunk.at;
        if (at < done || at > text.size() || text.compare(at, from.size(), from) != 0)
            return false;
        made.append(text, done, at - done);
        made += to;
        done = at + from.size();
        shift += hunk.after.size() - hunk.before.size();
    }
    made.append(text, done);
    text = std::move(made);
    return true;
}

void PutEnd(unsigned position, size_t start, std::string& log)
{
    log += kRecordEnd;
    PutNumber(position, 10, kPositionDigits, log);
    log += ' ';
    PutNumber(log.size() - start + kSizeDigits + 1 + kHashDigits + 1, 10, kSizeDigits, log);
    log += ' ';
    PutNumber(HashText(std::string_view(log).substr(start)), 16, kHashDigits, log);
    log += '\n';
}

/// What the last line tells.
struct RecordEnd {
    unsigned position = 0;
    size_t size = 0;
    uint64_t checksum = 0;

    bool Parse(std::string_view line)
    {
        if (line.size() != kRecordEndSize || !line.starts_with(kRecordEnd) || line.back() != '\n')
            return false;
        line = line.substr(kRecordEnd.size(), line.size() - kRecordEnd.size() - 1);
        const auto isPart = [&line](size_t digits, int base, auto& number) {
            const std::string_view word = TakeWord(line);
            return word.size() == digits && ParseDigits(word, base, number);
        };
        return isPart(kPositionDigits, 10, position) && isPart(kSizeDigits, 10, size) &&
               isPart(kHashDigits, 16, checksum);
    }
};

} // namespace

uint64_t HashText(std::string_view text)
{
    // Four independent chains: each step of one waits for the multiplication of its last.
    constexpr size_t kStride = 32;
    uint64_t a = text.size();
    uint64_t b = 1;
    uint64_t c = 2;
    uint64_t d = 3;
    const auto mix = [&](const char* p) {
        a = MixHash(a, WordAt(p));
        b = MixHash(b, WordAt(p + 8));
        c = MixHash(c, WordAt(p + 16));
        d = MixHash(d, WordAt(p + 24));
    };
    for (; text.size() >= kStride; text.remove_prefix(kStride))
        mix(text.data());
    char rest[kStride] = {};
    if (!text.empty())
        std::memcpy(rest, text.data(), text.size());
    mix(rest);
    return FinishHash(MixHash(MixHash(MixHash(a, b), c), d));
}

void PutRecord(const HistoryRecord& head, std::string_view before, std::string_view after, std::string& log)
{
    const size_t start = log.size();
    PutFirstLine(head, log);
    for (const TextHunk& hunk : DiffTexts(head.isFull ? std::string_view() : before, after)) {
        log += '@';
        PutNumber(hunk.at, 10, 1, log);
        log += '\n';
        PutSide('-', hunk.before, log);
        PutSide('+', hunk.after, log);
    }
    PutEnd(head.position, start, log);
}

void PutRecordAgain(const HistoryRecord& record, unsigned position, std::string& log)
{
    const size_t start = log.size();
    log += record.bytes.substr(0, record.bytes.size() - kRecordEndSize);
    PutEnd(position, start, log);
}

size_t SizeOfLastRecord(std::string_view end)
{
    RecordEnd last;
    return end.size() >= kRecordEndSize && last.Parse(end.substr(end.size() - kRecordEndSize)) ? last.size : 0;
}

bool ParseRecord(std::string_view bytes, HistoryRecord& record)
{
    RecordEnd end;
    const size_t feed = bytes.find('\n');
    if (!bytes.starts_with(kRecordStart) || feed == std::string_view::npos ||
        bytes.size() < feed + 1 + kRecordEndSize || !end.Parse(bytes.substr(bytes.size() - kRecordEndSize)) ||
        end.size != bytes.size() || bytes[bytes.size() - kRecordEndSize - 1] != '\n' ||
        end.checksum != HashText(bytes.substr(0, bytes.size() - kHashDigits - 1)) ||
        !ParseFirstLine(bytes.substr(0, feed), record))
        return false;
    record.position = end.position;
    record.bytes = bytes;
    record.hunks = bytes.substr(feed + 1, bytes.size() - kRecordEndSize - feed - 1);
    return true;
}

unsigned ParseNumber(std::string_view bytes)
{
    unsigned number = 0;
    if (!bytes.starts_with(kRecordStart))
        return 0;
    const std::string_view digits = bytes.substr(kRecordStart.size(), std::numeric_limits<unsigned>::digits10 + 1);
    return ParseDigits(digits.substr(0, digits.find(' ')), 10, number) && number <= kHighestVersion ? number : 0;
}

bool ApplyForward(const HistoryRecord& record, std::string& text)
{
    if (record.isFull)
        text.clear();
    return Apply(record.hunks, false, text);
}

bool ApplyBackward(const HistoryRecord& record, std::string& text) { return Apply(record.hunks, true, text); }

} // namespace ostrand
