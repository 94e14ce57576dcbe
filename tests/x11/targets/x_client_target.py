# Starts an X client that has no report of its own (xmessage, xterm, a browser) and
# reports, one line each, where its control is and what the client did with clicks and keys.
import os
import re
import signal
import subprocess
import sys
import tempfile
import time


def start(command, **options):
    client = subprocess.Popen(command, stdout=subprocess.PIPE, text=True, **options)
    signal.signal(signal.SIGTERM, lambda *_: (client.terminate(), client.wait(), sys.exit(0)))
    return client


def report_button(*window):
    """Reports the centre of the last window in the tree (xmessage's button, xterm's text area) once placed."""
    time.sleep(0.5)
    for _ in range(200):
        out = subprocess.run(["xwininfo", "-tree", *window], capture_output=True, text=True).stdout
        if places := re.findall(r"(\d+)x(\d+)[+-]-?\d+[+-]-?\d+\s+\+(-?\d+)\+(-?\d+)$", out, re.M):
            w, h, x, y = map(int, places[-1])
            for name in ("button", "entry"):  # a client without an entry is typed into where it is clicked
                print("at", name, x + w // 2, y + h // 2, flush=True)
            return print("ready", flush=True)
        time.sleep(0.05)
    sys.exit("window not found")


def xmessage():
    client = start(["xmessage", "-geometry", "+800+520", "-print", "-buttons", "Press", "xmessage target"])
    report_button("-name", "xmessage")
    if client.stdout.readline().strip() == "Press":
        print("clicked", flush=True)


def xterm():
    os.dup2(1, 3, inheritable=True)
    os.execvp("xterm", ["xterm", "-geometry", "30x5+40+520", "-title", "xterm target", "-e", sys.executable,
                        os.path.abspath(__file__), "xterm-inside"])


# Inside xterm: the report goes to the descriptor 3 the wrapper left open, the mouse
# comes as xterm's press and release reports (ESC [ M b x y), keys as themselves.
def xterm_inside():
    import tty
    sys.stdout = os.fdopen(3, "w")
    tty.setraw(0)
    os.write(1, b"\x1b[?1000h")
    report_button("-id", os.environ["WINDOWID"])
    keys, last = os.fdopen(0, "rb"), None
    while key := keys.read(1):
        if key != b"\x1b":
            print("typed", key.decode("latin-1"), flush=True)
            continue
        button = keys.read(5)[2] - 32
        if button == 3 and last == 0:
            print("clicked", flush=True)
        elif button == 2:
            print("menu", flush=True)
        last = button


# In kiosk mode on the local target page, on a profile of its own that goes with it;
# the page reports on the browser's console.
def browser():
    page = "file://" + os.path.join(os.path.dirname(os.path.abspath(__file__)), "browser_target.html")
    with tempfile.TemporaryDirectory(prefix="quorlin-browser-", ignore_cleanup_errors=True) as profile:
        if sys.argv[1] == "firefox-esr":
            with open(os.path.join(profile, "user.js"), "w") as prefs:
                prefs.write('user_pref("devtools.console.stdout.content", true);\n')
                for pref in ("browser.shell.checkDefaultBrowser", "datareporting.policy.dataSubmissionEnabled",
                             "browser.aboutwelcome.enabled", "toolkit.telemetry.reportingpolicy.firstRun"):
                    prefs.write(f'user_pref("{pref}", false);\n')
            command = ["firefox-esr", "--kiosk", "--no-remote", "--profile", profile, page]
        else:
            command = ["chromium", "--kiosk", "--no-first-run", "--no-default-browser-check", "--no-sandbox",
                       "--disable-gpu", "--password-store=basic", "--enable-logging=stderr", "--v=0",
                       f"--user-data-dir={profile}", page]
        for line in start(command, stderr=subprocess.STDOUT, errors="replace").stdout:
            if said := re.search(r'quorlin: ([^"]*)', line):
                # Firefox writes characters beyond ASCII as \xNN escapes.
                print(re.sub(r"\\x([0-9A-Fa-f]{2})", lambda m: chr(int(m[1], 16)), said[1].rstrip()), flush=True)


{"xmessage": xmessage, "xterm": xterm, "xterm-inside": xterm_inside}.get(sys.argv[1], browser)()
