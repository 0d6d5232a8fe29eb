#pragma once

#include <exception>

namespace quillora::base {

/// Runs the statements in order; one that fails is skipped and the next one runs.
///
/// This is how the operations that say so treat failure: a lecture goes on without the step that could not be
/// done, rather than ending with it. Nothing is reported. Only exceptions derived from std::exception count
/// as failures; a failed assertion is a bug and is not caught.
template <typename... Statement>
void skipFailures(Statement&&... statement)
{
    const auto attempt = [](auto&& run) {
        try {
            run();
        } catch (const std::exception&) {
        }
    };
    (attempt(statement), ...);
}

} // namespace quillora::base
