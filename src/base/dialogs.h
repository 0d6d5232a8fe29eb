#pragma once

#include <string>

namespace quillora::base {

enum class BoxIcon { none, information, warning, critical };
enum class BoxButtons { ok, yesNo, yesNoDefaultNo };
enum class BoxAnswer { ok, yes, no };

/// A message box as an operation asks for it. Texts are UTF-8; "\r" and "\r\n" are line ends in them.
struct MessageBox {
    std::string text;
    std::string title{};
    BoxIcon icon = BoxIcon::none;
    BoxButtons buttons = BoxButtons::ok;
};

/// Asking the presenter. Modal: returns when the box is closed; closing it without an answer counts as No.
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    virtual BoxAnswer show(const MessageBox& box) = 0;
};

/// The main form's one dialog for files, `CommonDialog1`. Its fields are set before it is shown, and keep
/// what the presenter chose after it; later readers rely on that. Cancel is no failure: the fields stay as
/// they were.
class CommonDialog {
  public:
    virtual ~CommonDialog() = default;

    /// Full path in UTF-8. Before the dialog: the proposed name.
    std::string FileName{};
    /// The chosen file's name without its folder.
    std::string FileTitle{};
    std::string DialogTitle{};
    /// Pairs of label and mask, all separated by "|".
    std::string Filter{};
    /// 1-based number of the pair chosen.
    int FilterIndex = 1;
    std::string DefaultExt{};

    virtual void ShowOpen() = 0;
    /// Never asks about overwriting, and never adds an extension to the name.
    virtual void ShowSave() = 0;
};

} // namespace quillora::base
