#pragma once

#include <string>
#include <string_view>

namespace quorlin {

// The 8-bit character set that stands for the Windows "ANSI" code page.
// Texts live in the program as UTF-8; they become Windows-1252 only where a
// single-byte code is needed (typed characters, project files).

// Each character as its Windows-1252 byte; a character the set cannot hold becomes '?'.
std::string utf8ToWindows1252(std::string_view utf8);
std::string windows1252ToUtf8(std::string_view bytes);

// The Unicode code point of a Windows-1252 byte (the five unassigned bytes map to themselves).
char32_t windows1252ToCodePoint(unsigned char byte);

}  // namespace quorlin
