#pragma once

#include <string>
#include <string_view>

namespace quorlin::win32 {

// Core keeps its texts in UTF-8; the window's controls speak UTF-16.
std::wstring wideFromUtf8(std::string_view text);
std::string utf8FromWide(std::wstring_view text);

// File paths go to the C++ library's narrow file functions, which take the ANSI code page.
std::wstring wideFromAnsi(std::string_view text);
std::string ansiFromWide(std::wstring_view text);

}  // namespace quorlin::win32
