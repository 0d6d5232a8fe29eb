#pragma once

#include "session/main_window.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <functional>
#include <map>

namespace quillora::tests {

/// A window made of fields. As it comes up: the stored texts and visibilities of the real one.
class FakeMainWindow : public session::MainWindow {
  public:
    explicit FakeMainWindow(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    FailingCalls failing{};
    std::string caption{};
    std::map<int, std::string> panels{{1, "Ready ..."}};
    std::map<std::string, bool, std::less<>> buttonVisible{
        {"record", true},   {"pause", true}, {"resume", false}, {"stop", true},
        {"text", false},    {"draw", false}, {"web", false},    {"youtube", false},
        {"desktop", false}, {"more", true},  {"less", false}};
    bool countdownVisible = false;
    std::filesystem::path countdownPicture{};
    bool changeBackVisible = true;
    std::filesystem::path pointer{};
    std::filesystem::path stagePointer{};
    bool topMost = false;
    bool minimizeBox = true;
    bool moveLocked = false;
    bool formVisible = true;
    bool formEnabled = true;
    bool shapeTransparent = false;
    capture::PixelRectangle stage{.left = 264, .top = 90, .width = 747, .height = 420};
    /// What happens while pending events are handled.
    std::function<void()> pendingEvents = [] {};

    void center_form() override { call("center_form"); }
    void setCaption(const std::string& text) override
    {
        call("setCaption");
        caption = text;
    }
    void setStatusPanel(int panel, const std::string& text) override
    {
        failing.check("setStatusPanel");
        log.add("panel" + std::to_string(panel) + " " + text);
        panels[panel] = text;
    }
    std::string statusPanel(int panel) const override
    {
        return panels.contains(panel) ? panels.at(panel) : "";
    }
    void setButtonVisible(std::string_view key, bool visible) override
    {
        call("setButtonVisible");
        buttonVisible.find(key)->second = visible;
    }
    void setCountdownVisible(bool visible) override
    {
        log.add(visible ? "countDown_trans shown" : "countDown_trans hidden");
        countdownVisible = visible;
    }
    void setCountdownPicture(const std::filesystem::path& picture) override
    {
        log.add("picture " + picture.filename().string());
        failing.check("setCountdownPicture");
        countdownPicture = picture;
    }
    void setChangeBackVisible(bool visible) override
    {
        log.add(visible ? "changeback_btn shown" : "changeback_btn hidden");
        changeBackVisible = visible;
    }
    void setMousePointer(const std::filesystem::path& cursor) override
    {
        log.add("pointer " + cursor.filename().string());
        failing.check("setMousePointer");
        pointer = cursor;
    }
    void setStagePointer(const std::filesystem::path& cursor) override
    {
        failing.check("setStagePointer");
        stagePointer = cursor;
    }
    void SetTopMost(bool flag) override
    {
        log.add(flag ? "SetTopMost true" : "SetTopMost false");
        failing.check("SetTopMost");
        topMost = flag;
    }
    bool hasMinimizeBox() const override { return minimizeBox; }
    void setHasMinimizeBox(bool present) override
    {
        log.add(present ? "minimise box on" : "minimise box off");
        minimizeBox = present;
    }
    void setMoveLocked(bool locked) override
    {
        log.add(locked ? "move locked" : "move free");
        moveLocked = locked;
    }
    void setFormVisible(bool visible) override
    {
        log.add(visible ? "Vantry_frm shown" : "Vantry_frm hidden");
        failing.check("setFormVisible");
        formVisible = visible;
    }
    void setFormEnabled(bool enabled) override
    {
        log.add(enabled ? "Vantry_frm enabled" : "Vantry_frm disabled");
        formEnabled = enabled;
    }
    void makeShapeTransparent() override
    {
        log.add("Shape transparent");
        shapeTransparent = true;
    }
    capture::PixelRectangle stageRectangle() const override
    {
        failing.check("stageRectangle");
        return stage;
    }
    void processPendingEvents() override
    {
        log.add("processPendingEvents");
        pendingEvents();
    }

  private:
    void call(const std::string& name)
    {
        log.add(name);
        failing.check(name);
    }
};

} // namespace quillora::tests
