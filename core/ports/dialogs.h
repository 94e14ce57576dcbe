#pragma once

#include <optional>
#include <string>

namespace quorlin {

struct FileDialogSettings {
    std::string title;
    std::string filterDescription;
    std::string filterPattern;
    std::string defaultExtension;
    std::string fileName;  // offered as the initial choice
};

class Dialogs {
public:
    virtual ~Dialogs() = default;
    // A modal box with the text, an OK button only, no icon and the application's title.
    virtual void messageBox(const std::string& text) = 0;
    // The chosen path, or nothing when the user cancels.
    virtual std::optional<std::string> openFile(const FileDialogSettings& settings) = 0;
    virtual std::optional<std::string> saveFile(const FileDialogSettings& settings) = 0;
};

}  // namespace quorlin
