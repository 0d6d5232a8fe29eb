#include "panels/links.h"

#include "base/skip_failures.h"
#include "panels/service_addresses.h"

namespace quillora::panels {

void Links::ebDemo_ItemClick(std::string_view key)
{
    if (key == "help")
        open((m_ports.programFolder / "Vantry_QGuide.pdf").string());
    else if (key == "online")
        open((m_ports.programFolder / "Support.chm").string());
    else if (key == "onlinesupport")
        open(onlineSupportUrl());
    else if (key == "facebookgroup")
        open(facebookGroupUrl());
    else if (key == "about")
        base::skipFailures([&] { m_ports.frmAbout.showModal(); });
}

void Links::Label1_Click() { open(makersUrl()); }

void Links::toolbar_upload()
{
    if (m_ports.fields.recordState != "record")
        open(uploadUrl());
}

void Links::open(const std::string& target)
{
    base::skipFailures([&] { m_ports.shell.open(target); });
}

} // namespace quillora::panels
