#include "win32_dialogs.h"

#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "win32/win32_text.h"
#include "form/layout.h"

namespace quorlin::win32 {

void Win32Dialogs::messageBox(const std::string& text) {
    MessageBoxW(owner_, wideFromUtf8(text).c_str(), wideFromUtf8(kWindowTitle).c_str(), MB_OK);
}

std::optional<std::string> Win32Dialogs::openFile(const FileDialogSettings& settings) { return show(settings, false); }

std::optional<std::string> Win32Dialogs::saveFile(const FileDialogSettings& settings) { return show(settings, true); }

// No overwrite question and no file-must-exist check: a missing file fails when read.
// Paths travel in the ANSI code page, as the narrow file functions take them.
std::optional<std::string> Win32Dialogs::show(const FileDialogSettings& settings, bool save) {
    const std::wstring filter = wideFromUtf8(settings.filterDescription) + L'\0' +
                                wideFromUtf8(settings.filterPattern) + L'\0' + L'\0';
    const std::wstring title = wideFromUtf8(settings.title);
    const std::wstring extension = wideFromUtf8(settings.defaultExtension);
    std::vector<wchar_t> file(32768, L'\0');
    const std::wstring initial = wideFromAnsi(settings.fileName);
    std::copy_n(initial.begin(), std::min(initial.size(), file.size() - 1), file.begin());

    OPENFILENAMEW ofn{};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = owner_;
    ofn.lpstrFilter = filter.c_str();
    ofn.nFilterIndex = 1;
    ofn.lpstrFile = file.data();
    ofn.nMaxFile = static_cast<DWORD>(file.size());
    ofn.lpstrTitle = title.c_str();
    ofn.lpstrDefExt = extension.c_str();
    ofn.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    const BOOL chosen = save ? GetSaveFileNameW(&ofn) : GetOpenFileNameW(&ofn);
    if (!chosen) return std::nullopt;
    return ansiFromWide(file.data());
}

NumberLocale systemNumberLocale() {
    wchar_t separator[8] = L".";
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, separator, 8);
    return NumberLocale{utf8FromWide(separator)};
}

}  // namespace quorlin::win32
