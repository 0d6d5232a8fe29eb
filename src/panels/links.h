#pragma once

#include "panels/default_application.h"
#include "session/session_fields.h"

#include <filesystem>
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
        const session::SessionFields& fields;
        DefaultApplication& shell;
        AboutForm& frmAbout;
        /// Where the documents that come with the program lie.
        std::filesystem::path programFolder;
    };
    /// What the ports refer to must outlive this object.
    explicit Links(const Ports& ports) : m_ports(ports) {}

    /// An item of the task pane: "help", "online", "onlinesupport", "facebookgroup" or "about"; any other key
    /// does nothing.
    void ebDemo_ItemClick(std::string_view key);
    /// The maker's line of the About dialog.
    void Label1_Click();
    /// The service's upload page, in the presenter's own browser. Not while a recording is on: the page would
    /// come up over the stage.
    void toolbar_upload();

    /// Empty: kept because callers may ask for it.
    static std::string_view Onlinehelp() { return {}; }

  private:
    void open(const std::string& target);

    Ports m_ports;
};

} // namespace quillora::panels
