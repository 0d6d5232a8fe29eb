#include "panels/service_addresses.h"

namespace quillora::panels {

namespace {

std::string pageOfService(const char* path) { return std::string("http://" QUILLORA_SERVICE_HOST) + path; }

} // namespace

std::string WebStartUrl() { return pageOfService("/recorderweb.php"); }

std::string PlayerBaseUrl() { return pageOfService("/youtubeplayer.php"); }

std::string uploadUrl() { return pageOfService("/v3/upload"); }

std::string onlineSupportUrl() { return pageOfService("/v3/support/"); }

std::string makersUrl() { return pageOfService("/"); }

std::string facebookGroupUrl() { return QUILLORA_USERS_GROUP; }

} // namespace quillora::panels
