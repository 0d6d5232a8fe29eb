#include "panels/start_pages.h"

#include "base/skip_failures.h"
#include "panels/service_addresses.h"

namespace quillora::panels {

void StartPages::navigate()
{
    base::skipFailures([&] { m_ports.WebBrowser1.Navigate(WebStartUrl()); },
                       [&] { m_ports.WebBrowser2.Navigate(PlayerBaseUrl()); });
}

void StartPages::Timer1_Timer()
{
    base::skipFailures([&] { m_ports.WebBrowser1.setSilent(true); }, [&] { m_ports.Timer1.disable(); });
}

} // namespace quillora::panels
