#pragma once

#include "base/dialogs.h"
#include "session/main_window.h"
#include "session/operations.h"
#include "session/session_fields.h"
#include "session/task_pane_forms.h"

#include <string_view>

namespace quillora::session {

/// The doors through which the presenter's commands come in: the toolbar, the indexed command table, the task
/// pane and the menu. Routing only: whether a command fits the state is asked in its
/// operation, so every door has the same gates; only what merely opens something is asked for here. Behind
/// every door a key or index without an operation does nothing, and a statement that fails is skipped without
/// a word. Nothing is thrown.
class CommandSurface {
  public:
    struct Ports {
        SessionFields& fields;
        MainWindow& window;
        base::MessageBoxes& boxes;
        TaskPaneForms& pane;
        const OperationTable& operations;
    };
    /// What the ports refer to must outlive this object.
    explicit CommandSurface(const Ports& ports) : m_ports(ports) {}

    /// A button of `main_TB`, by its key.
    void main_TB_ButtonClick(std::string_view key);
    /// The indexed command handler.
    void command_Click(int index);
    /// An item of the task pane, by its key.
    void ebDemo_ItemClick(std::string_view key);
    /// The item `record` of the menu `popup`, which no operation opens.
    void record_Click();

  private:
    struct Routes;
    using Handler = void (CommandSurface::*)();

    template <Operation operation>
    void run();
    template <Operation operation>
    void runUnlessRecording();
    void rotateAndResume();
    void rotateInPause();
    void toolbar_more();
    void toolbar_less();
    void setMediaButtonsVisible(bool visible);
    void startWithoutCountdown();
    void pauseOrResume();
    void attempt(Operation operation);
    bool panelSaysRecording() const;

    Ports m_ports;
};

} // namespace quillora::session
