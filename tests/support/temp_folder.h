// A fresh folder for one test, removed with all that lies in it.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include <stdlib.h>

namespace ostrand::test {

class TempFolder {
public:
    TempFolder() : m_path((std::filesystem::temp_directory_path() / "ostrand-test-XXXXXX").string())
    {
        if (!mkdtemp(m_path.data()))
            throw std::runtime_error("no temporary folder");
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// UTF-8, without a final separator.
    const std::string& Path() const { return m_path; }
    std::string Path(std::string_view name) const { return m_path + "/" + std::string(name); }
    /// The same for calls that take 16-bit text.
    std::u16string WidePath() const { return std::filesystem::path(m_path).u16string(); }
    std::u16string WidePath(std::string_view name) const { return std::filesystem::path(Path(name)).u16string(); }

    bool Exists(std::string_view name) const { return std::filesystem::exists(Path(name)); }
    /// Makes the folders on the way.
    void Write(std::string_view name, std::string_view bytes) const
    {
        const std::filesystem::path file = Path(name);
        std::filesystem::create_directories(file.parent_path());
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!out.flush())
            throw std::runtime_error("can't write " + file.string());
    }
    /// All bytes; empty when there is no such file.
    std::string Read(std::string_view name) const
    {
        std::ifstream in(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

private:
    std::string m_path;
};

} // namespace ostrand::test
