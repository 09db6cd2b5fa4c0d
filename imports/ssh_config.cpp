#include "imports/ssh_config.h"

#include "imports/import_text.h"
#include "imports/ssh_config_lines.h"
#include "imports/ssh_hosts.h"

#include <algorithm>
#include <charconv>
#include <unordered_set>
#include <utility>

namespace ostrand {

namespace {

constexpr struct {
    std::string_view name;
    SshKeyword keyword;
} kKeywords[] = {{"HostName", SshKeyword::HostName},
                 {"Port", SshKeyword::Port},
                 {"User", SshKeyword::User},
                 {"ProxyJump", SshKeyword::ProxyJump}};

/// A name that will be a session.
struct Host {
    std::string name;
    size_t line;
};

bool ReadPort(std::string_view text, uint32_t& port)
{
    uint32_t number = 0;
    const auto [behind, code] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (code != std::errc() || behind != text.data() + text.size() || number < 1 || number > 65535)
        return false;
    port = number;
    return true;
}

/// A host's name with %h and %% in it. What comes behind the longest name is cut.
std::string Expanded(std::string_view hostName, std::string_view host)
{
    std::string expanded;
    for (size_t at = 0; at < hostName.size() && expanded.size() <= SshConfigReader::kLongestValue; ++at) {
        const std::string_view token = hostName.substr(at, 2);
        if (token == "%h")
            expanded += host;
        else if (token == "%%")
            expanded += '%';
        else
            expanded += hostName[at];
        at += token == "%h" || token == "%%" ? 1 : 0;
    }
    return expanded;
}

class Hosts {
public:
    explicit Hosts(SessionCollector& collector) : m_collector(collector) {}

    void Take(const SshConfigLine& line);
    /// To be called when all lines were taken. False for too many.
    bool AddSessions(ImportFault& error);

private:
    void TakeHosts(const SshConfigLine& line);
    void TakeValue(const SshConfigLine& line);
    void Keep(SshKeyword keyword, const SshConfigLine& line);
    static ImportedSession SessionOf(const Host& host, const SshValues& values);

    SessionCollector& m_collector;
    SshBlocks m_blocks;
    SshBlock* m_block = &m_blocks.Add({SshPattern("*")}); // the last one; null in a block of `Match`
    std::vector<Host> m_hosts;
    std::unordered_set<std::string> m_names;
};

void Hosts::Take(const SshConfigLine& line)
{
    const auto note = [&](const char16_t* format) {
        std::string all;
        for (const std::string& value : line.values)
            all.append(all.empty() ? 0 : 1, ' ') += value;
        m_collector.Note(line.number, Format(format, Cited(all)));
    };
    if (EqualAscii(line.keyword, "Host")) {
        TakeHosts(line);
    } else if (EqualAscii(line.keyword, "Match")) {
        m_block = nullptr;
        note(u"begins a block for '%1', which isn't followed");
    } else if (EqualAscii(line.keyword, "Include")) {
        note(u"includes '%1', which isn't read");
    } else if (m_block) {
        TakeValue(line);
    }
}

void Hosts::TakeHosts(const SshConfigLine& line)
{
    std::vector<SshPattern> patterns;
    for (const std::string& value : line.values) {
        const SshPattern& pattern = patterns.emplace_back(value);
        if (pattern.isWild && !pattern.isNegated)
            m_collector.Note(line.number, Format(u"has the pattern '%1'; its values hold for all names that fit it",
                                                 Cited(pattern.text)));
        else if (!pattern.isNegated && m_names.insert(pattern.text).second)
            m_hosts.push_back({pattern.text, line.number});
    }
    m_block = &m_blocks.Add(std::move(patterns));
}

void Hosts::TakeValue(const SshConfigLine& line)
{
    const auto* const known =
        std::ranges::find_if(kKeywords, [&](const auto& row) { return EqualAscii(row.name, line.keyword); });
    if (known == std::end(kKeywords))
        m_collector.NoteUnmapped(line.number, DecodeNarrow(line.keyword));
    else
        Keep(known->keyword, line);
}

void Hosts::Keep(SshKeyword keyword, const SshConfigLine& line)
{
    uint32_t ignored = 0;
    if (line.values.size() > 1)
        m_collector.Note(line.number, Format(u"has more than one value; '%1' counts", Cited(line.values[0])));
    if (keyword == SshKeyword::Port && !ReadPort(line.values[0], ignored)) {
        m_collector.Note(line.number, Format(u"has the port '%1', which is none", Cited(line.values[0])));
        return;
    }
    std::string& value = m_block->values[static_cast<size_t>(keyword)];
    if (value.empty())
        value = line.values[0];
}

ImportedSession Hosts::SessionOf(const Host& host, const SshValues& values)
{
    const auto value = [&](SshKeyword keyword) -> const std::string& { return values[static_cast<size_t>(keyword)]; };
    const std::string& hostName = value(SshKeyword::HostName);
    const std::string& jump = value(SshKeyword::ProxyJump);
    ImportedSession session;
    session.name = DecodeNarrow(host.name);
    session.protocol = u"SSH2";
    session.hostname = DecodeNarrow(hostName.empty() ? host.name : Expanded(hostName, host.name));
    session.username = DecodeNarrow(value(SshKeyword::User));
    session.line = host.line;
    ReadPort(value(SshKeyword::Port), session.port);
    if (!jump.empty() && !EqualAscii(jump, "none"))
        session.description = Format(u"ProxyJump %1", DecodeNarrow(jump));
    return session;
}

bool Hosts::AddSessions(ImportFault& error)
{
    for (const Host& host : m_hosts) {
        SshValues values;
        if (!m_blocks.ValuesOf(host.name, values) || !m_collector.Add(SessionOf(host, values)))
            return FailImport(error, host.line, u"has more hosts and patterns than anybody's configuration");
    }
    return true;
}

} // namespace

bool ReadSshConfig(std::string_view bytes, SessionImport& out, ImportFault& error)
{
    if (!FitsImport(bytes, error))
        return false;
    VUnicodeString text;
    if (!DecodeFile(bytes, text))
        return FailImport(error, 0, u"ends in the middle of a character");
    const std::string utf8 = ToUtf8(text);
    SessionCollector collector;
    Hosts hosts(collector);
    SshConfigReader lines(utf8, collector);
    for (SshConfigLine line; lines.Next(line);)
        hosts.Take(line);
    return hosts.AddSessions(error) && collector.Finish(out, error, u"has no host whose name isn't a pattern");
}

} // namespace ostrand
