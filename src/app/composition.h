#pragma once

#include "app/installed_files.h"
#include "session/user_folders.h"

#include <memory>

namespace quillora::app {

/// The composition root: makes every object of the program, hands each what it needs, and connects what the
/// presenter does to the operation that it means. Nothing outside this folder knows a platform object.
///
/// Needs the application object of the toolkit. Lives on the thread of forms and logic.
class Composition {
  public:
    Composition(const InstalledFiles& files, const session::UserFolders& folders);
    ~Composition();
    Composition(const Composition&) = delete;
    Composition& operator=(const Composition&) = delete;

    /// Brings the main form to its first state and shows it.
    void start();

  private:
    struct Platform;
    struct Logic;

    void provideOperations();
    void connectForm();

    std::unique_ptr<Platform> m_platform;
    std::unique_ptr<Logic> m_logic;
};

} // namespace quillora::app
