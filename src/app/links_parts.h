#pragma once

#include "base/dialogs.h"
#include "forms/desktop.h"
#include "forms/frm_about.h"
#include "panels/links.h"
#include "panels/system_information.h"
#include "session/operations.h"

#include <filesystem>
#include <string>

namespace quillora::forms {
class Vantry_frm;
} // namespace quillora::forms

namespace quillora::app {

/// What the program leads to outside itself, and the About dialog: provides their commands.
class LinksParts {
  public:
    struct Needs {
        forms::Vantry_frm& window;
        base::MessageBoxes& boxes;
        session::OperationTable& operations;
        /// Text of `version_lb`.
        std::string version;
        /// Where the documents lie.
        std::filesystem::path documents;
    };
    /// What @p needs refers to must outlive this object.
    explicit LinksParts(const Needs& needs);

    panels::SystemInformation& systemInformation() { return m_systemInformation; }

  private:
    void provideOperations(session::OperationTable& operations);

    forms::DesktopApplications m_applications{};
    forms::DesktopPrograms m_programs{};
    forms::DesktopSettings m_settings{};
    forms::frmAbout m_about;
    panels::Links m_links;
    panels::SystemInformation m_systemInformation;
};

} // namespace quillora::app
