# Starts an X client that has no report of its own (xev, xmessage, xterm) and reports,
# one line each, where its control is and what the client did with clicks and keys.
import os
import re
import signal
import subprocess
import sys
import time


def say(*words, out=sys.stdout):
    print(*words, file=out, flush=True)


def start(command):
    client = subprocess.Popen(command, stdout=subprocess.PIPE, text=True)
    signal.signal(signal.SIGTERM, lambda *_: (client.terminate(), sys.exit(0)))
    return client


def placements(args):
    """The window's own and its descendants' (depth, width, height, absolute x, y), outermost first,
    once the window manager has placed the window."""
    time.sleep(0.5)
    for _ in range(200):
        out = subprocess.run(["xwininfo", "-tree", "-stats", *args], capture_output=True, text=True).stdout
        found = re.search(r"Absolute upper-left X:\s+(-?\d+).*?Y:\s+(-?\d+).*?Width: (\d+).*?Height: (\d+)", out, re.S)
        if found:
            x, y, w, h = map(int, found.groups())
            return [(0, w, h, x, y)] + [(len(m[1]), *map(int, m.groups()[1:])) for m in re.finditer(
                r"^( +)0x\w+ .*?(\d+)x(\d+)[+-]-?\d+[+-]-?\d+\s+\+(-?\d+)\+(-?\d+)$", out, re.M)]
        time.sleep(0.05)
    sys.exit("window not found")


def report_at(place, out=sys.stdout):
    _, w, h, x, y = place
    say("at button", x + w // 2, y + h // 2, out=out)
    say("ready", out=out)


def xev():
    client = start(["xev", "-geometry", "+400+520", "-event", "button"])
    report_at(placements(["-name", "Event Tester"])[1])
    kind = None
    for line in client.stdout:
        if line.startswith(("ButtonPress", "ButtonRelease")):
            kind = line.split()[0]
        button = re.search(r"button (\d+),", line)
        if kind and button:
            said = {("ButtonRelease", "1"): "clicked", ("ButtonPress", "3"): "menu"}.get((kind, button[1]))
            if said:
                say(said)
            kind = None


def xmessage():
    client = start(["xmessage", "-geometry", "+800+520", "-print", "-buttons", "Press", "xmessage target"])
    inner = placements(["-name", "xmessage"])
    button_level = sorted({p[0] for p in inner})[2]
    report_at([p for p in inner if p[0] == button_level][-1])
    for line in client.stdout:
        if line.strip() == "Press":
            say("clicked")


def xterm():
    os.dup2(1, 3, inheritable=True)
    os.execvp("xterm", ["xterm", "-geometry", "30x5+40+520", "-title", "xterm target", "-e", sys.executable,
                        os.path.abspath(__file__), "xterm-inside"])


# Inside xterm: the report goes to the descriptor 3 the wrapper left open, the mouse
# comes as xterm's press and release reports (ESC [ M b x y), keys as themselves.
def xterm_inside():
    import tty
    out = os.fdopen(3, "w")
    tty.setraw(0)
    os.write(1, b"\x1b[?1000h")
    report_at(placements(["-id", os.environ["WINDOWID"]])[0], out=out)
    typed, pending, last = "", b"", None
    while True:
        pending += os.read(0, 64)
        while pending:
            if pending.startswith(b"\x1b[M"):
                if len(pending) < 6:
                    break
                button = pending[3] - 32
                if button == 3 and last == 0:
                    say("clicked", out=out)
                elif button == 2:
                    say("menu", out=out)
                last, pending = button, pending[6:]
            else:
                char, pending = pending[:1].decode("latin-1"), pending[1:]
                if char == "\r":
                    say("text", typed, out=out)
                    typed = ""
                else:
                    typed += char


{"xev": xev, "xmessage": xmessage, "xterm": xterm, "xterm-inside": xterm_inside}[sys.argv[1]]()
