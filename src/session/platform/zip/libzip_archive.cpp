#include "session/platform/zip/libzip_archive.h"

#include <stdexcept>

namespace quillora::session {

Archive openArchive(const std::filesystem::path& path, int flags)
{
    int code = 0;
    Archive archive(zip_open(path.c_str(), flags, &code));
    if (!archive) {
        zip_error_t error;
        zip_error_init_with_code(&error, code);
        const std::string why = zip_error_strerror(&error);
        zip_error_fini(&error);
        failInArchive("cannot open " + path.string(), why.c_str());
    }
    return archive;
}

void failInArchive(const std::string& what, const char* why) { throw std::runtime_error(what + ": " + why); }

} // namespace quillora::session
