#!/usr/bin/env bash
# unitctl dialog with real keys, on an X server of its own: unitctl_dialog_test.sh UNITCTL TEXTS [SCREENSHOT]
set -euo pipefail
unitctl=$1 texts=$2 screenshot=${3:-}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export HOME=$folder TMPDIR=$folder
settings=$folder/project.xml
fail() { echo "failed: $*" >&2; exit 1; }

# titled NAME   the visible window of that title; xdotool itself compares no more than ASCII
titled() {
  local id
  for id in $(xdotool search --onlyvisible --name '.*' 2>/dev/null); do
    [ "$(xprop -id "$id" -notype _NET_WM_NAME 2>/dev/null)" != "_NET_WM_NAME = \"$1\"" ] || { echo "$id"; return; }
  done
}

# run NAME KEYS [OPTION...]   opens the dialog, waits for the window of that name, presses the keys
run() {
  local name=$1 keys=$2; shift 2
  "$unitctl" "$@" dialog "$settings" >"$folder/out" 2>"$folder/err" &
  local program=$! window= try
  for try in $(seq 300); do
    window=$(LC_ALL=C.UTF-8 titled "$name") && [ -n "$window" ] && break
    sleep 0.1
  done
  [ -n "$window" ] || { cat "$folder/err" >&2; fail "no window \"$name\""; }
  sleep 1
  [ -z "$screenshot" ] || import -window "$window" "$screenshot"
  xdotool key --delay 150 $keys
  status=0
  wait "$program" || status=$?
}

"$unitctl" init "$settings" --system 0 >/dev/null
cp "$settings" "$folder/before.xml"

run "Project Units" "Down Escape"
[ "$status" = 0 ] && grep -q "closed without saving" "$folder/out" || fail "Escape closes without saving"
cmp "$settings" "$folder/before.xml" || fail "Escape leaves the file"

run "Project Units" "Down Return"
[ "$status" = 0 ] && [ "$(cat "$folder/out")" = "saved $settings" ] || fail "Return saves"
"$unitctl" diff "$folder/before.xml" "$settings" >"$folder/diff" && fail "the file has changed"
grep -q '^the unit system in use is "UK Imperial System"' "$folder/diff" || fail "to the next system"

run "项目单位" "Escape" --texts "$texts"
[ "$status" = 0 ] || fail "in another language"

# What is left behind: the settings, nothing in the home folder or among temporary files.
[ -z "$(find "$folder" -mindepth 1 \( -name 'unitctl-dialog-*' -o -name SysUnit.xml \))" ] || fail "nothing is left behind"

status=0
DISPLAY='' WAYLAND_DISPLAY='' "$unitctl" dialog "$settings" >"$folder/out" 2>"$folder/err" || status=$?
[ "$status" = 1 ] && grep -q "there is no window system" "$folder/err" || fail "no display is told: $(cat "$folder/err")"

cp "$unitctl" "$folder/alone"
status=0
"$folder/alone" dialog "$settings" 2>"$folder/err" || status=$?
[ "$status" = 1 ] && grep -q "the dialogs are not installed" "$folder/err" || fail "missing dialogs are told"
echo "unitctl dialog: all is well"
