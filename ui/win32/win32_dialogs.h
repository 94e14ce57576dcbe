#pragma once

#include <windows.h>

#include "ports/dialogs.h"
#include "text/value_of_text.h"

namespace quorlin::win32 {

// Message boxes and the common file dialogs, owned by the main window.
class Win32Dialogs : public Dialogs {
public:
    void setOwner(HWND owner) { owner_ = owner; }

    void messageBox(const std::string& text) override;
    std::optional<std::string> openFile(const FileDialogSettings& settings) override;
    std::optional<std::string> saveFile(const FileDialogSettings& settings) override;

private:
    std::optional<std::string> show(const FileDialogSettings& settings, bool save);

    HWND owner_ = nullptr;
};

// The decimal separator of the user's locale.
NumberLocale systemNumberLocale();

}  // namespace quorlin::win32
