#pragma once

#include "session/session_fields.h"
#include "session/user_folders.h"

#include <filesystem>
#include <string>

namespace quillora::session {

/// The scratch folder of one user: slide pictures, index, version file and temporary video lie there until
/// they are packed. It is emptied at every start, so nothing in it ever needs recovery.
///
/// Its operations write their spelling of the root into the field `workspacePath`; doubled separators in the
/// paths that result are harmless.
class Workspace {
  public:
    /// @p fields must outlive this object.
    Workspace(SessionFields& fields, UserFolders folders);

    /// The root, whatever `workspacePath` holds at the moment.
    std::filesystem::path root() const;
    /// The folder into which containers are unpacked for review.
    std::filesystem::path preview() const;

    /// Makes the root and the Preview folder where they are absent. Failures are skipped: the recorder starts
    /// without them, and what needs them fails later.
    void makeFolders();
    /// Deletes pictures, videos, containers and index. Subfolders and "version.txt" stay. Never throws.
    void deleteAll();
    /// Deletes the packed container and the temporary video; slides and index stay. Never throws.
    void deleteWMV();
    /// Writes "version.txt" below `workspacePath`. Throws std::runtime_error when it can't be written.
    void addVersion();
    /// `workspacePath` becomes the scratch folder below LOCALAPPDATA, until the next operation sets it back.
    void pointToLocal();

  private:
    SessionFields& m_fields;
    UserFolders m_folders;
};

/// Whether there is a folder @p DName, with or without a separator at its end. A folder that can't be listed
/// counts as none.
bool DirExists(const std::string& DName);

} // namespace quillora::session
