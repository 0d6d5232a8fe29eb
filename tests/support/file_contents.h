#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace quillora::tests {

inline void writeFile(const std::filesystem::path& path, const std::string& contents)
{
    std::ofstream(path, std::ios::binary) << contents;
}

inline std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace quillora::tests
