// Runs the built ostrandcfg as a program of its own.
#pragma once

#include <string>
#include <vector>

namespace ostrand::test {

struct ToolRun {
    int code = -1; ///< exit code; 128 and the signal where one ended it
    std::string out;
    std::string err;
};

/// `environment`: "NAME=value" beside a PATH and a HOME that doesn't exist. `input`: what its standard input holds, at
/// most what a pipe takes.
ToolRun RunTool(const std::vector<std::string>& arguments, const std::vector<std::string>& environment = {},
                const std::string& input = {});
/// Any program of the system, found by PATH.
ToolRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::vector<std::string>& environment = {}, const std::string& input = {});

/// Path of the built tool.
std::string ToolPath();
/// All bytes of a file of the source tree.
std::string SourceFile(const std::string& path);

} // namespace ostrand::test
