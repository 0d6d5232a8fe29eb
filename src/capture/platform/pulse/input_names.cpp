#include "capture/platform/pulse/input_names.h"

#include "base/platform/pulse/pulse_connection.h"

#include <algorithm>

namespace quillora::capture {
namespace {

struct Input {
    std::string id{};
    std::string name{};
    bool monitor = false;
};

/// What the server has told so far.
struct Answer {
    std::optional<std::string> defaultId{};
    std::vector<Input> inputs{};
    bool complete = false;
};

void takeServerInfo(pa_context*, const pa_server_info* information, void* answer)
{
    const char* id = information ? information->default_source_name : nullptr;
    static_cast<Answer*>(answer)->defaultId = id ? id : "";
}

void takeSource(pa_context*, const pa_source_info* source, int end, void* answerPointer)
{
    Answer& answer = *static_cast<Answer*>(answerPointer);
    if (end || !source) {
        answer.complete = true;
        return;
    }
    answer.inputs.push_back({source->name, source->description ? source->description : source->name,
                             source->monitor_of_sink != PA_INVALID_INDEX});
}

void forget(pa_operation* operation)
{
    if (operation)
        pa_operation_unref(operation);
}

} // namespace

std::vector<std::string> inputNamesOf(const std::optional<std::string>& server,
                                      std::chrono::milliseconds limit)
{
    const auto deadline = base::PulseConnection::Clock::now() + limit;
    Answer answer;
    base::PulseConnection connection(server);
    if (!connection.turnUntil(deadline, [&] { return connection.ready(); }))
        return {};
    forget(pa_context_get_server_info(connection.context(), takeServerInfo, &answer));
    forget(pa_context_get_source_info_list(connection.context(), takeSource, &answer));
    if (!connection.turnUntil(deadline, [&] { return answer.defaultId && answer.complete; }))
        return {};

    const auto isDefault = [&](const Input& input) { return input.id == *answer.defaultId; };
    std::erase_if(answer.inputs, [&](const Input& input) { return input.monitor && !isDefault(input); });
    std::stable_partition(answer.inputs.begin(), answer.inputs.end(), isDefault);
    std::vector<std::string> names;
    for (const Input& input : answer.inputs)
        names.push_back(input.name);
    return names;
}

} // namespace quillora::capture
