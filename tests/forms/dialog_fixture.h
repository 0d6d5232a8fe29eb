#pragma once

#include "tests/forms/form_fixture.h"

#include <QAbstractButton>
#include <QFile>

#include <type_traits>

namespace quillora::tests {

/// Stands in for the main form as the owner of a dialog. It has the form's style, which a dialog inherits and
/// has to look right in.
class OwnerWindow : public QWidget {
  public:
    OwnerWindow()
    {
        QFile style(QStringLiteral(":/quillora/vantry_frm.qss"));
        EXPECT_TRUE(style.open(QIODevice::ReadOnly));
        setStyleSheet(QString::fromUtf8(style.readAll()));
        resize(300, 200);
        show();
    }
};

/// A dialog and the window that owns it, if it takes an owner.
template <typename Dialog>
class DialogTest : public testing::Test {
  protected:
    /// @p arguments are the dialog's, behind its owner.
    template <typename... Arguments>
    explicit DialogTest(const Arguments&... arguments) : dialog(make(arguments...))
    {}

    /// With the focus.
    void showDialog()
    {
        dialog.show();
        dialogShown = becomesActive(dialog);
    }

    template <typename T = QWidget>
    T* control(const char* name)
    {
        return tests::control<T>(dialog, name);
    }
    void click(const char* name) { control<QAbstractButton>(name)->click(); }

    OwnerWindow owner;
    Dialog dialog;
    bool dialogShown = false;

  private:
    template <typename... Arguments>
    Dialog make(const Arguments&... arguments)
    {
        if constexpr (std::is_constructible_v<Dialog, QWidget*, const Arguments&...>)
            return Dialog(&owner, arguments...);
        else
            return Dialog(arguments...);
    }
};

} // namespace quillora::tests
