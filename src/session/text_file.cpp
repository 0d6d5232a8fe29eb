#include "session/text_file.h"

#include <fstream>
#include <stdexcept>

namespace quillora::session {

void printToFile(const std::filesystem::path& path, std::string_view text)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text << "\r\n";
    // Only closing tells whether a full disk took the text.
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path.string());
}

} // namespace quillora::session
