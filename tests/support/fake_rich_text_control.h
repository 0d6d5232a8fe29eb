#pragma once

#include "panels/rich_text_control.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <string>

namespace quillora::tests {

/// A control whose selection has these values, undefined where they are unset. Writing is logged.
class FakeRichTextControl : public panels::RichTextControl {
  public:
    explicit FakeRichTextControl(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// Names of the properties, for writing and reading alike.
    FailingCalls failing{};
    std::string text{};
    std::string rtf{};
    std::optional<base::Colour> colour = base::rgb(0, 0, 0);
    std::optional<double> fontSize = 26.25;
    std::optional<bool> bold = false;
    std::optional<bool> italic = false;
    std::optional<bool> underline = false;
    std::optional<panels::Alignment> alignment = panels::Alignment::left;
    std::optional<bool> bullet = false;

    std::string Text() const override { return read("Text", text); }
    void setText(const std::string& value) override { write("Text", text, value, value); }
    std::string TextRTF() const override { return read("TextRTF", rtf); }
    void setTextRTF(const std::string& value) override { write("TextRTF", rtf, value, value); }
    std::optional<base::Colour> SelColor() const override { return read("SelColor", colour); }
    void setSelColor(base::Colour value) override { write("SelColor", colour, value, std::to_string(value)); }
    std::optional<double> SelFontSize() const override { return read("SelFontSize", fontSize); }
    void setSelFontSize(double points) override
    {
        // In quarters, which is all that a test needs and has no rounding to write.
        write("SelFontSize", fontSize, points, std::to_string(static_cast<int>(points * 4)) + "/4");
    }
    std::optional<bool> SelBold() const override { return read("SelBold", bold); }
    void setSelBold(bool value) override { write("SelBold", bold, value, onOff(value)); }
    std::optional<bool> SelItalic() const override { return read("SelItalic", italic); }
    void setSelItalic(bool value) override { write("SelItalic", italic, value, onOff(value)); }
    std::optional<bool> SelUnderline() const override { return read("SelUnderline", underline); }
    void setSelUnderline(bool value) override { write("SelUnderline", underline, value, onOff(value)); }
    std::optional<panels::Alignment> SelAlignment() const override { return read("SelAlignment", alignment); }
    void setSelAlignment(panels::Alignment value) override
    {
        write("SelAlignment", alignment, value, std::to_string(static_cast<int>(value)));
    }
    std::optional<bool> SelBullet() const override { return read("SelBullet", bullet); }
    void setSelBullet(bool value) override { write("SelBullet", bullet, value, onOff(value)); }

  private:
    static std::string onOff(bool value) { return value ? "on" : "off"; }

    template <typename Value>
    Value read(const char* name, const Value& value) const
    {
        failing.check(name);
        return value;
    }
    template <typename Field, typename Value>
    void write(const char* name, Field& field, const Value& value, const std::string& shown)
    {
        log.add(std::string(name) + " " + shown);
        failing.check(name);
        field = value;
    }
};

} // namespace quillora::tests
