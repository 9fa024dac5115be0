#!/bin/sh
# Runs a command on an X server of its own: with_xvfb.sh COMMAND [ARGUMENT...]
# XVFB_SCREEN (default 1280x1024x24) is the size of its screen.
set -eu
folder=$(mktemp -d)
trap 'kill "$server" 2>/dev/null || :; rm -rf "$folder"' EXIT
server=
mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 "${XVFB_SCREEN:-1280x1024x24}" -nolisten tcp -noreset 3>"$folder/display" 2>"$folder/log" &
server=$!
if ! read -r number <"$folder/display"; then
  cat "$folder/log" >&2
  exit 1
fi
# Nothing of the session this runs in: no theme, no accessibility bus, no settings of a user.
DISPLAY=":$number" GDK_BACKEND=x11 NO_AT_BRIDGE=1 GSETTINGS_BACKEND=memory GTK_THEME=Adwaita XDG_CONFIG_HOME="$folder" \
  G_MESSAGES_PREFIXED= "$@"
