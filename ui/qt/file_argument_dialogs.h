#pragma once

#include <optional>
#include <string>
#include <utility>

#include "ports/dialogs.h"

namespace quorlin::qt {

// The window's dialogs, except that the first Open dialog is answered with the
// project named on the command line: "Load project" then loads it as it loads a
// file the user chose. Every later dialog is the user's.
class FileArgumentDialogs : public Dialogs {
public:
    FileArgumentDialogs(Dialogs& user, std::optional<std::string> projectPath)
        : user_(user), projectPath_(std::move(projectPath)) {}

    void messageBox(const std::string& text) override { user_.messageBox(text); }
    std::optional<std::string> saveFile(const FileDialogSettings& settings) override {
        return user_.saveFile(settings);
    }
    std::optional<std::string> openFile(const FileDialogSettings& settings) override {
        if (!projectPath_) return user_.openFile(settings);
        return std::exchange(projectPath_, std::nullopt);
    }

private:
    Dialogs& user_;
    std::optional<std::string> projectPath_;
};

}  // namespace quorlin::qt
