#pragma once

#include "panels/default_application.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace quillora::panels {

/// The About dialog `frmAbout`.
class AboutForm {
  public:
    virtual ~AboutForm() = default;
    /// Modally, owned by the main form; returns when it was hidden or closed.
    virtual void showModal() = 0;
};

/// What the program leads to outside itself: its documents, the pages of its service, and the About dialog.
/// A target that can't be opened is silent. On the one thread of forms and logic.
class Links {
  public:
    struct Ports {
        DefaultApplication& shell;
        AboutForm& frmAbout;
        /// Where the documents that come with the program lie.
        std::filesystem::path programFolder;
    };
    /// What the ports refer to must outlive this object.
    explicit Links(const Ports& ports) : m_ports(ports) {}

    /// The quick guide, and the file that holds all help.
    void openGuide();
    void openSupportFile();
    /// Pages of the service, and of the group of its users, in the presenter's own browser.
    void openSupportPage();
    void openUsersGroup();
    void openUploadPage();
    void showAbout();
    /// The maker's line of the About dialog.
    void Label1_Click();

    /// Empty: kept because callers may ask for it.
    static std::string_view Onlinehelp() { return {}; }

  private:
    void open(const std::string& target);

    Ports m_ports;
};

} // namespace quillora::panels
