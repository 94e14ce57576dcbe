#!/usr/bin/env bash
# The command line: help, version, wrong lines, a missing display or project.
# Usage: command_line_test.sh QUORLIN_BINARY VERSION
set -uo pipefail
quorlin=$1 version=$2
out=$(mktemp) err=$(mktemp)
trap 'rm -f "$out" "$err"' EXIT
failures=0

# expect NAME EXIT_CODE STDOUT_PATTERN STDERR_PATTERN -- COMMAND...
# The patterns are extended regular expressions; "^$" asks for no output at all.
expect() {
  local name=$1 code=$2 stdout=$3 stderr=$4
  shift 5
  "$@" >"$out" 2>"$err"
  local got=$?
  local ok=1
  [ "$got" -eq "$code" ] || ok=0
  if [ "$stdout" = "^$" ]; then [ ! -s "$out" ] || ok=0; else grep -Eq -- "$stdout" "$out" || ok=0; fi
  if [ "$stderr" = "^$" ]; then [ ! -s "$err" ] || ok=0; else grep -Eq -- "$stderr" "$err" || ok=0; fi
  if [ $ok -eq 1 ]; then
    echo "ok: $name"
  else
    failures=$((failures + 1))
    echo "FAILED: $name (exit $got, wanted $code)"
    sed 's/^/  stdout: /' "$out"
    sed 's/^/  stderr: /' "$err"
  fi
}

expect "--help prints usage" 0 "^Usage: .*quorlin \[options\] \[FILE.tpl\]$" "^$" -- "$quorlin" --help
expect "-h is --help" 0 "-h, --help" "^$" -- "$quorlin" -h
expect "--version" 0 "^quorlin $version$" "^$" -- "$quorlin" --version
expect "-v is --version" 0 "^quorlin $version$" "^$" -- "$quorlin" -v
expect "Qt's own options are accepted" 0 "^quorlin $version$" "^$" -- "$quorlin" -style Fusion -reverse --version
expect "an unknown option" 2 "^$" "^quorlin: Unknown option 'bogus'\.$" -- "$quorlin" --bogus
expect "usage follows the error" 2 "^$" "^Usage: " -- "$quorlin" --bogus
expect "two project files" 2 "^$" "^quorlin: Only one project file can be opened\.$" -- "$quorlin" a.tpl b.tpl
expect "no DISPLAY" 1 "^$" "^quorlin: no X display: DISPLAY is not set\. Quorlin runs on an X11 desktop\.$" \
  -- env -u DISPLAY -u WAYLAND_DISPLAY "$quorlin"
expect "help needs no display" 0 "^Usage: " "^$" -- env -u DISPLAY "$quorlin" --help
expect "-display names the display" 1 "^$" '^quorlin: cannot open the X display ":32000"\.$' \
  -- env -u DISPLAY "$quorlin" -display :32000
# The window stays up (timeout ends it) and the terminal is told why the track list is empty.
expect "a missing project" 124 "^$" "^quorlin: cannot open /nonexistent/setup\.tpl: " \
  -- timeout 3 "$quorlin" /nonexistent/setup.tpl

[ $failures -eq 0 ] || { echo "$failures failed"; exit 1; }
