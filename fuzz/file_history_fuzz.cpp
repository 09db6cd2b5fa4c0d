// Any bytes as the log of a key's history: what reads as a version has the text that its record tells; damage in front
// of a log hides none of its records; a log that is cut down to a later version keeps the texts of the others. And any
// two texts: a step leads from one to the other and back.
#include "stores/history_log.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

using namespace ostrand;

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

HistoryRecord Head(unsigned number, bool isFull, const std::string& text)
{
    HistoryRecord record;
    record.version.number = number;
    record.version.by = "fuzz \"er\"";
    record.version.conflicts.emplace_back(u"a \xD800 name");
    record.isFull = isFull;
    record.hash = HashText(text);
    record.position = number;
    return record;
}

/// The bytes as the inside of a step behind a full record, with checksums that hold.
std::string WithRightEnd(const std::string& bytes)
{
    std::string log;
    PutRecord(Head(1, true, "A = 1\n"), {}, "A = 1\n", log);
    const std::string step = "version 2 - step 0 " + bytes + '\n' + std::string(kRecordEndSize, ' ');
    HistoryRecord record;
    record.bytes = step;
    PutRecordAgain(record, 2, log);
    return log;
}

std::vector<std::string> CheckLog(const HistoryLog& log, const std::string* current)
{
    std::vector<std::string> texts;
    const std::vector<bool> reachable = log.Reachable(current);
    for (size_t i = 0; i < log.Records().size(); ++i) {
        std::string& text = texts.emplace_back();
        if (!log.Read(i, current, text))
            text.clear();
        else
            Require(reachable[i] && HashText(text) == log.Records()[i].hash &&
                    log.Find(log.Records()[i].version.number) == i);
    }
    return texts;
}

void CheckStep(const std::string& before, const std::string& after)
{
    std::string bytes;
    PutRecord(Head(1, true, before), {}, before, bytes);
    PutRecord(Head(2, false, after), before, after, bytes);
    const HistoryLog log("version 7 - full 00\n@0\n+torn, without its line feed" + bytes);
    Require(log.Records().size() == 2);
    std::string text;
    Require(log.Read(0, nullptr, text) && text == before && log.Read(1, nullptr, text) && text == after);
    const HistoryLog tail(bytes.substr(log.Records()[0].bytes.size()));
    Require(tail.Records().size() == 1 && !tail.Read(0, nullptr, text) && tail.Read(0, &after, text) && text == after);
    text = after;
    Require(ApplyBackward(tail.Records()[0], text) && text == before);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const HistoryLog log(bytes);
    const std::vector<std::string> texts = CheckLog(log, nullptr);
    CheckLog(log, &bytes);
    if (!texts.empty()) {
        const size_t middle = texts.size() / 2;
        std::string text;
        if (log.Read(middle, nullptr, text)) {
            const HistoryLog later(log.From(middle, text));
            Require(later.Records().size() == texts.size() - middle);
            const std::vector<std::string> laterTexts = CheckLog(later, nullptr);
            Require(std::equal(laterTexts.begin(), laterTexts.end(), texts.begin() + static_cast<ptrdiff_t>(middle)));
        }
    }
    CheckLog(HistoryLog(WithRightEnd(bytes)), &bytes);
    CheckStep(bytes.substr(0, size / 2), bytes.substr(size / 2));
    return 0;
}
