#include "tools/json_writer.h"

#include "tools/text.h"

#include <string>
#include <vector>

namespace ostrand::tool {

namespace {

constexpr size_t kLongestLine = 110;
constexpr size_t kIndent = 2;

std::string OnOneLine(const Json& tree);

/// The elements, each as its text, with the names of an object's members.
template <class Text>
std::vector<std::string> Elements(const Json& tree, Text text)
{
    std::vector<std::string> elements;
    for (const auto& [name, element] : tree.items())
        elements.push_back((tree.is_object() ? Quoted(name) + ": " : "") + text(element));
    return elements;
}

std::string OnOneLine(const Json& tree)
{
    if (tree.is_string())
        return Quoted(tree.get_ref<const std::string&>());
    if (!tree.is_structured())
        return tree.dump();
    std::string out(1, tree.is_object() ? '{' : '[');
    const char* between = "";
    for (const std::string& element : Elements(tree, OnOneLine)) {
        out += between + element;
        between = ", ";
    }
    return out + (tree.is_object() ? '}' : ']');
}

/// The outermost array or object always takes several lines.
std::string Indented(const Json& tree, size_t depth)
{
    std::string line = OnOneLine(tree);
    if (!tree.is_structured() || tree.empty() || (depth > 0 && line.size() <= kLongestLine))
        return line;
    std::string out(1, line.front());
    const char* between = "\n";
    for (const std::string& element : Elements(tree, [&](const Json& e) { return Indented(e, depth + 1); })) {
        out += between + std::string(kIndent * (depth + 1), ' ') + element;
        between = ",\n";
    }
    return out + "\n" + std::string(kIndent * depth, ' ') + line.back();
}

} // namespace

std::string WriteJson(const Json& tree) { return Indented(tree, 0) + "\n"; }

} // namespace ostrand::tool
