#include "session/workspace.h"

#include "base/skip_failures.h"
#include "session/file_lookup.h"
#include "session/text_file.h"

#include <string_view>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace quillora::session {
namespace {

/// One file that can't be deleted leaves the others to go.
void deleteByEnding(const fs::path& folder, std::string_view ending)
{
    for (const auto& file : filesEndingIn(folder, ending)) {
        std::error_code stays;
        fs::remove(file, stays);
    }
}

void makeFolder(const fs::path& folder)
{
    if (!DirExists(folder.string()))
        fs::create_directories(folder);
}

} // namespace

Workspace::Workspace(SessionFields& fields, UserFolders folders)
    : m_fields(fields), m_folders(std::move(folders))
{}

fs::path Workspace::root() const { return m_folders.appData.string() + "/Quillora"; }

fs::path Workspace::preview() const { return m_folders.appData.string() + "/Quillora/Preview"; }

void Workspace::makeFolders()
{
    m_fields.workspacePath = root().string();
    base::skipFailures([&] { makeFolder(root()); }, [&] { makeFolder(preview()); });
}

void Workspace::deleteAll()
{
    m_fields.workspacePath = root().string();
    for (const auto* ending : {".wmv", ".jpg", ".png", ".zip", ".asf", ".xml"})
        deleteByEnding(root(), ending);
}

void Workspace::deleteWMV()
{
    m_fields.workspacePath = root().string();
    std::error_code stays;
    fs::remove(findIgnoringCase(root() / "MyZip.zip"), stays);
    deleteByEnding(root(), ".wmv");
}

void Workspace::addVersion() { printToFile(m_fields.workspacePath + "/version.txt", m_fields.version_lb); }

void Workspace::pointToLocal() { m_fields.workspacePath = m_folders.localAppData.string() + "/Quillora/"; }

bool DirExists(const std::string& DName)
{
    const auto folder = DName.ends_with('/') ? DName : DName + "/";
    std::error_code failure;
    const fs::directory_iterator listing(folder, failure);
    return !failure;
}

} // namespace quillora::session
