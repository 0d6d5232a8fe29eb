#include "app/links_parts.h"

#include "forms/vantry_frm.h"

#include <QObject>

namespace quillora::app {

LinksParts::LinksParts(const Needs& needs)
    : m_about(&needs.window, needs.version),
      m_links({.shell = m_applications, .frmAbout = m_about, .programFolder = needs.documents}),
      m_systemInformation({.keys = m_settings, .programs = m_programs, .boxes = needs.boxes})
{
    provideOperations(needs.operations);
    QObject::connect(&m_about, &forms::frmAbout::Label1_Click, &m_about, [this] { m_links.Label1_Click(); });
    QObject::connect(&m_about, &forms::frmAbout::Form_Unload, &needs.window,
                     [window = &needs.window] { window->setFormEnabled(true); });
}

void LinksParts::provideOperations(session::OperationTable& operations)
{
    using session::Operation;
    operations.provide(Operation::openGuide, [this] { m_links.openGuide(); });
    operations.provide(Operation::openSupportFile, [this] { m_links.openSupportFile(); });
    operations.provide(Operation::openSupportPage, [this] { m_links.openSupportPage(); });
    operations.provide(Operation::openUsersGroup, [this] { m_links.openUsersGroup(); });
    operations.provide(Operation::openUploadPage, [this] { m_links.openUploadPage(); });
    operations.provide(Operation::showAbout, [this] { m_links.showAbout(); });
}

} // namespace quillora::app
