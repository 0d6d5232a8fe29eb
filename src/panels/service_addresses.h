#pragma once

#include <string>

/// The pages of the web service, all of them on the one host that the build was configured with
/// (`QUILLORA_SERVICE_HOST`), and the addresses beside it. Plain http, since that is what the service speaks.
namespace quillora::panels {

/// Where `WebBrowser1` begins.
std::string WebStartUrl();
/// The page that plays an online video; the key `v` of its query names which.
std::string PlayerBaseUrl();
std::string uploadUrl();
std::string onlineSupportUrl();
std::string makersUrl();
/// The group of the service's users, on another site.
std::string facebookGroupUrl();

} // namespace quillora::panels
