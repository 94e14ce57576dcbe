#pragma once

#include <optional>
#include <string>

namespace quorlin::qt {

// What the command line asks of the program.
struct CommandLine {
    // Set when the program is to end at once: help or the version was printed (0),
    // or the line was wrong and the usage went to stderr (2).
    std::optional<int> exitCode;
    // The project to load at start, as named on the line.
    std::optional<std::string> projectPath;
    // Qt's -display option; empty means $DISPLAY.
    std::string displayName;
};

// Reads the arguments before the toolkit starts, so that help, the version and a
// wrong line need no display. The toolkit's own options are accepted and left to it.
CommandLine readCommandLine(int argc, char** argv);

}  // namespace quorlin::qt
