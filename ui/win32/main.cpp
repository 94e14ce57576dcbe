#include <windows.h>

#include <exception>

#include "main_window.h"
#include "run/seeded_random.h"
#include "win32/win32_desktop.h"
#include "win32/win32_durable_files.h"
#include "win32/win32_screen_reader.h"
#include "win32/win32_text.h"
#include "win32_dialogs.h"
#include "win32_event_pump.h"
#include "win32_timers.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int showCommand) {
    using namespace quorlin;
    try {
        win32::Win32Desktop desktop;
        win32::Win32ScreenReader screen;
        FrmMain* frmPointer = nullptr;
        win32::Win32Timers timers([&frmPointer](TimerId id) {
            if (frmPointer) frmPointer->timerTick(id);
        });
        win32::Win32EventPump pump;
        win32::Win32Dialogs dialogs;
        SeededRandom random;
        win32::Win32DurableFiles files;
        FrmMain frm({desktop, screen, timers, pump, dialogs, random, &files}, win32::systemNumberLocale());
        frmPointer = &frm;

        win32::MainWindow window(frm);
        dialogs.setOwner(window.handle());
        pump.setDialogWindow(window.handle());
        frm.Form_Load(reinterpret_cast<WindowHandle>(window.handle()));
        timers.startReadout();
        window.show(showCommand);
        while (!pump.quitRequested()) pump.waitForEvents();
        frmPointer = nullptr;
        return pump.exitCode();
    } catch (const std::exception& error) {
        MessageBoxW(nullptr, win32::wideFromUtf8(error.what()).c_str(), L"Quorlin", MB_OK);
        return 1;
    }
}
