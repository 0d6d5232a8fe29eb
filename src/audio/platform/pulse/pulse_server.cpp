#include "audio/platform/pulse/pulse_server.h"

#include "audio/mixer.h"

#include <algorithm>
#include <utility>

namespace quillora::audio {
namespace {

struct ReleaseOperation {
    void operator()(pa_operation* operation) const
    {
        // What it would write to may be gone by the time that an answer comes.
        if (pa_operation_get_state(operation) == PA_OPERATION_RUNNING)
            pa_operation_cancel(operation);
        pa_operation_unref(operation);
    }
};

struct PortType {
    std::uint32_t port;
    std::uint32_t line;
};

constexpr PortType kPortTypes[] = {
    {PA_DEVICE_PORT_TYPE_MIC, line_type::kMicrophone},
    {PA_DEVICE_PORT_TYPE_HEADSET, line_type::kMicrophone},
    {PA_DEVICE_PORT_TYPE_HANDSFREE, line_type::kMicrophone},
    {PA_DEVICE_PORT_TYPE_LINE, line_type::kLineIn},
    {PA_DEVICE_PORT_TYPE_HANDSET, line_type::kTelephone},
    {PA_DEVICE_PORT_TYPE_PHONE, line_type::kTelephone},
    {PA_DEVICE_PORT_TYPE_SPDIF, line_type::kDigital},
    {PA_DEVICE_PORT_TYPE_HDMI, line_type::kDigital},
    {PA_DEVICE_PORT_TYPE_USB, line_type::kDigital},
    {PA_DEVICE_PORT_TYPE_AUX, line_type::kAuxiliary},
    {PA_DEVICE_PORT_TYPE_ANALOG, line_type::kAnalog},
};

std::uint32_t lineTypeOf(std::uint32_t portType)
{
    const auto found = std::ranges::find(kPortTypes, portType, &PortType::port);
    return found == std::end(kPortTypes) ? line_type::kUndefined : found->line;
}

std::string textOf(const char* text) { return text ? text : ""; }

SoundInput sourceFrom(const pa_source_info& information)
{
    SoundInput source;
    source.id = textOf(information.name);
    source.description = information.description ? information.description : source.id;
    source.monitor = information.monitor_of_sink != PA_INVALID_INDEX;
    source.muted = information.mute != 0;
    source.volumes.assign(information.volume.values, information.volume.values + information.volume.channels);
    for (std::uint32_t index = 0; index < information.n_ports; ++index) {
        const pa_source_port_info& port = *information.ports[index];
        source.ports.push_back({textOf(port.name), port.description ? port.description : textOf(port.name),
                                lineTypeOf(port.type)});
    }
    if (information.active_port)
        source.activePort = textOf(information.active_port->name);
    return source;
}

void takeSource(pa_context*, const pa_source_info* information, int, void* sources)
{
    if (information)
        static_cast<std::vector<SoundInput>*>(sources)->push_back(sourceFrom(*information));
}

void takeDefault(pa_context*, const pa_server_info* information, void* id)
{
    if (information)
        *static_cast<std::string*>(id) = textOf(information->default_source_name);
}

void takeSuccess(pa_context*, int success, void* result) { *static_cast<bool*>(result) = success != 0; }

} // namespace

PulseServer::PulseServer(std::optional<std::string> server) : m_address(std::move(server)) {}

std::optional<std::vector<SoundInput>> PulseServer::inputs()
{
    std::string defaultId;
    std::vector<SoundInput> sources;
    if (!perform([&](pa_context* context) {
            return pa_context_get_server_info(context, takeDefault, &defaultId);
        }) ||
        !perform([&](pa_context* context) {
            sources.clear();
            return pa_context_get_source_info_list(context, takeSource, &sources);
        }))
        return std::nullopt;
    const auto isDefault = [&](const SoundInput& source) { return source.id == defaultId; };
    std::erase_if(sources, [&](const SoundInput& source) { return source.monitor && !isDefault(source); });
    std::ranges::stable_partition(sources, isDefault);
    return sources;
}

std::optional<SoundInput> PulseServer::input(const std::string& id)
{
    std::vector<SoundInput> sources;
    if (!perform([&](pa_context* context) {
            sources.clear();
            return pa_context_get_source_info_by_name(context, id.c_str(), takeSource, &sources);
        }) ||
        sources.empty())
        return std::nullopt;
    return sources.front();
}

bool PulseServer::setPort(const std::string& id, const std::string& port)
{
    return order([&](pa_context* context, pa_context_success_cb_t done, void* result) {
        return pa_context_set_source_port_by_name(context, id.c_str(), port.c_str(), done, result);
    });
}

bool PulseServer::setVolumes(const std::string& id, const std::vector<std::uint32_t>& volumes)
{
    pa_cvolume wanted{};
    wanted.channels = static_cast<std::uint8_t>(std::min<std::size_t>(volumes.size(), PA_CHANNELS_MAX));
    std::copy_n(volumes.begin(), wanted.channels, wanted.values);
    return order([&](pa_context* context, pa_context_success_cb_t done, void* result) {
        return pa_context_set_source_volume_by_name(context, id.c_str(), &wanted, done, result);
    });
}

bool PulseServer::setMuted(const std::string& id, bool muted)
{
    return order([&](pa_context* context, pa_context_success_cb_t done, void* result) {
        return pa_context_set_source_mute_by_name(context, id.c_str(), muted ? 1 : 0, done, result);
    });
}

bool PulseServer::order(
    const std::function<pa_operation*(pa_context*, pa_context_success_cb_t, void*)>& begin)
{
    bool success = false;
    return perform([&](pa_context* context) { return begin(context, takeSuccess, &success); }) && success;
}

bool PulseServer::perform(const Begin& begin)
{
    const auto now = base::PulseConnection::Clock::now();
    if (now < m_restUntil)
        return false;
    const auto deadline = now + kPatience;
    const bool hadConnection = m_loop.has_value();
    if (performOnce(begin, deadline))
        return true;
    // A connection that is found broken may be that to a server which has been started again since.
    const bool inTime = base::PulseConnection::Clock::now() < deadline;
    m_loop.reset();
    if (inTime && hadConnection && performOnce(begin, deadline))
        return true;
    m_loop.reset();
    if (base::PulseConnection::Clock::now() >= deadline)
        m_restUntil = base::PulseConnection::Clock::now() + kRest;
    return false;
}

bool PulseServer::performOnce(const Begin& begin, base::PulseConnection::Clock::time_point deadline)
{
    if (!m_loop)
        m_loop.emplace(m_address);
    if (!m_loop->turnUntil(deadline, [&] { return m_loop->ready(); }))
        return false;
    const std::unique_ptr<pa_operation, ReleaseOperation> operation(begin(m_loop->context()));
    return operation && m_loop->turnUntil(deadline, [&] {
        return pa_operation_get_state(operation.get()) != PA_OPERATION_RUNNING;
    }) && pa_operation_get_state(operation.get()) == PA_OPERATION_DONE;
}

} // namespace quillora::audio
