#include "tools/output.h"

#include <algorithm>
#include <cstdio>

namespace ostrand::tool {

namespace {

bool IsCharacterStart(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

size_t Characters(const std::string& text)
{
    return static_cast<size_t>(std::count_if(text.begin(), text.end(), IsCharacterStart));
}

void WriteLine(const std::string& text)
{
    std::string line = "ostrandcfg: " + text;
    std::replace(line.begin(), line.end(), '\n', ' ');
    line = Plain(line) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace

Exit Fail(Exit code, const std::string& text)
{
    WriteLine(text);
    return code;
}

void Warn(const std::string& text) { WriteLine("warning: " + text); }

Exit Print(const std::string& text)
{
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    return isWritten ? Exit::Done : Fail(Exit::Failed, "the output can't be written");
}

std::string ReportText(IReportMessageParams& report) { return Lossless(report.GetTextOneLine()); }

std::string Table(const std::vector<std::vector<std::string>>& rows)
{
    std::vector<size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i + 1 < row.size(); ++i)
            widths[i] = std::max(widths[i], Characters(row[i]));
    }
    std::string out;
    for (const auto& row : rows) {
        std::string line;
        for (size_t i = 0; i < row.size(); ++i) {
            line += row[i];
            if (i + 1 < row.size())
                line.append(widths[i] - Characters(row[i]) + 2, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out += line + "\n";
    }
    return out;
}

std::string Shortened(const std::string& text, size_t limit)
{
    if (Characters(text) <= limit)
        return text;
    size_t end = 0;
    for (size_t characters = 0; end < text.size(); ++end)
        if (IsCharacterStart(text[end]) && characters++ == limit - 3)
            break;
    return text.substr(0, end) + "...";
}

} // namespace ostrand::tool
