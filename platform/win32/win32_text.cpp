#include "win32/win32_text.h"

#include <windows.h>

namespace quorlin::win32 {

namespace {

std::wstring toWide(UINT codePage, std::string_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(codePage, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), size, wide.data(), length);
    return wide;
}

std::string toNarrow(UINT codePage, std::wstring_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(codePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), size, narrow.data(), length, nullptr, nullptr);
    return narrow;
}

}  // namespace

std::wstring wideFromUtf8(std::string_view text) { return toWide(CP_UTF8, text); }
std::string utf8FromWide(std::wstring_view text) { return toNarrow(CP_UTF8, text); }
std::wstring wideFromAnsi(std::string_view text) { return toWide(CP_ACP, text); }
std::string ansiFromWide(std::wstring_view text) { return toNarrow(CP_ACP, text); }

}  // namespace quorlin::win32
