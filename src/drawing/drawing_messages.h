#pragma once

#include "base/dialogs.h"

#include <string>
#include <string_view>

namespace quillora::drawing {

/// What the engine can say. Nothing of it is said at present: failures under a press are skipped, and the
/// engine neither opens, saves nor prints. The texts are its vocabulary for the day that it does.
enum class DrawingError { asGiven = 0, cannotWrite = 1, cannotPrint = 2, cannotOpen = 3, cannotDraw = 4 };

/// A critical box without a title. @p text is shown for DrawingError::asGiven only.
void ShowError(base::MessageBoxes& boxes, DrawingError code, const std::string& text = {});

inline constexpr std::string_view kFileIsProtected = "The file is read-only/hidden. ";
inline constexpr std::string_view kSureToWrite = "Are you sure you want to write into the file ";
inline constexpr std::string_view kAndRemoveProtection = "and remove the read-only/hidden property?";

} // namespace quillora::drawing
