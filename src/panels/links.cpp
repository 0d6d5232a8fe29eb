#include "panels/links.h"

#include "base/skip_failures.h"
#include "panels/service_addresses.h"

namespace quillora::panels {

void Links::openGuide() { open((m_ports.programFolder / "Vantry_QGuide.pdf").string()); }

void Links::openSupportFile() { open((m_ports.programFolder / "Support.chm").string()); }

void Links::openSupportPage() { open(onlineSupportUrl()); }

void Links::openUsersGroup() { open(facebookGroupUrl()); }

void Links::openUploadPage() { open(uploadUrl()); }

void Links::showAbout()
{
    base::skipFailures([&] { m_ports.frmAbout.showModal(); });
}

void Links::Label1_Click() { open(makersUrl()); }

void Links::open(const std::string& target)
{
    base::skipFailures([&] { m_ports.shell.open(target); });
}

} // namespace quillora::panels
