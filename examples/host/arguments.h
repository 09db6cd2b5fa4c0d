// What the command line of ostrand-options says.
#pragma once

#include <optional>
#include <string>

namespace host {

struct Arguments {
    std::string config; ///< empty: a fresh copy of the example
    std::string app = "tessaly";
    std::string modules;
    std::string session;
    std::string page;       ///< as its path in the tree; empty: the one that was shown last
    std::string search;     ///< words that stand in the search of a picture
    std::string screenshot; ///< a picture's file, or a folder for pictures of all pages; empty: the dialog runs
    double scale = 1;
    bool isDark = false;
    bool isAlone = false; ///< the sibling application isn't there
    bool isReadOnly = false;
};

/// Nothing where the program ends with `code`: help was shown, or the line is wrong and it was told why.
std::optional<Arguments> ParseArguments(int argc, char** argv, int& code);

} // namespace host
