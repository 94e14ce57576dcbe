# Starts a browser in kiosk mode on the local target page, on a profile of its own,
# and passes on the page's console lines that report to the test.
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile

browser = sys.argv[1]
page = "file://" + os.path.join(os.path.dirname(os.path.abspath(__file__)), "browser_target.html")
profile = tempfile.mkdtemp(prefix="quorlin-browser-")
if browser == "firefox-esr":
    with open(os.path.join(profile, "user.js"), "w") as prefs:
        for pref in ("devtools.console.stdout.content\", true", "browser.shell.checkDefaultBrowser\", false",
                     "datareporting.policy.dataSubmissionEnabled\", false", "browser.aboutwelcome.enabled\", false",
                     "toolkit.telemetry.reportingpolicy.firstRun\", false"):
            prefs.write(f'user_pref("{pref});\n')
    command = [browser, "--kiosk", "--no-remote", "--profile", profile, page]
else:
    command = [browser, "--kiosk", "--no-first-run", "--no-default-browser-check", "--no-sandbox", "--disable-gpu",
               "--password-store=basic", "--enable-logging=stderr", "--v=0", f"--user-data-dir={profile}", page]
client = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")


def stop(*_):
    client.terminate()
    client.wait()
    shutil.rmtree(profile, ignore_errors=True)
    sys.exit(0)


signal.signal(signal.SIGTERM, stop)
for line in client.stdout:
    said = re.search(r'quorlin: ([^"]*)', line)
    if said:
        # Firefox writes characters beyond ASCII as \xNN escapes.
        print(re.sub(r"\\x([0-9A-Fa-f]{2})", lambda m: chr(int(m[1], 16)), said[1].rstrip()), flush=True)
stop()
