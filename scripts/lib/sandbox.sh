# SPDX-License-Identifier: MIT
# A sandbox of folders in which LogTest finds its configuration and writes its logs, on Linux or under Wine.
# shellcheck shell=bash disable=SC2034  # the names are for the tour

# lay_out_sandbox FOLDER BUILD: creates a sandbox for the programs of a Linux build.
lay_out_sandbox() {
  SANDBOX=$1
  LOG_TEST=("$2/tools/LogTest")
  LOG_TEST_ON_CONSOLE=("${LOG_TEST[@]}")
  QMRKCTL=("$2/tools/qmrkctl/qmrkctl")
  SANDBOX_NOTE='They lie below the base folders that QMRK_COMMON_PROGRAM_FILES and QMRK_COMMON_APPDATA name.'
  rm -rf "$SANDBOX"
  export QMRK_COMMON_PROGRAM_FILES="$SANDBOX/program_files"
  export QMRK_COMMON_APPDATA="$SANDBOX/common_data"
  export QMRK_APPDATA="$SANDBOX/user_data"
  unset DEFAULT_CA_NR
  fill_sandbox "$QMRK_COMMON_PROGRAM_FILES" "$QMRK_COMMON_APPDATA" "$QMRK_APPDATA"
}

# lay_out_wine_sandbox BUILD: uses the shell folders of the current Wine prefix, for the programs of a Windows build.
lay_out_wine_sandbox() {
  SANDBOX=$QMRK_WINE_PREFIX/drive_c
  SANDBOX_NOTE='They lie in the folders of the shell for common files and for application data.'
  LOG_TEST=("$WINE_RUN" "$1/bin/LogTest.exe")
  LOG_TEST_ON_CONSOLE=("$WINE_RUN" --on-console "$1/bin/LogTest.exe")
  QMRKCTL=("$WINE_RUN" "$1/bin/qmrkctl.exe")
  fill_sandbox "$SANDBOX/Program Files/Common Files" "$SANDBOX/ProgramData" \
    "$(echo "$SANDBOX"/users/"$(id -un)"/AppData/Roaming)"
}

# fill_sandbox PROGRAM_FILES COMMON_DATA USER_DATA: names the folders below the three base folders, creates those of the
# configuration, and copies the examples there.
fill_sandbox() {
  CFG_FOLDER="$1/Orvane Shared/qmrk/logging/cfg"
  INIT_FOLDER="$2/Orvane/qmrk/logging"
  LOG_FOLDER="$3/Orvane/Quillmark/Logging"
  mkdir -p "$CFG_FOLDER" "$INIT_FOLDER" "$3"
  cp "$ROOT"/examples/*.cfg "$CFG_FOLDER/"
  cp "$ROOT"/examples/*.init "$INIT_FOLDER/"
}

# set_key KEY VALUE: changes a key of CA12's configuration.
set_key() {
  sed -i "s|^$1=.*|$1=$2|" "$CFG_FOLDER/qmrk_logging_CA12.cfg"
}

# enable_classes LIST: replaces the class list of CA12.
enable_classes() {
  printf '%s\n' "$1" >"$INIT_FOLDER/qmrk_logging_CA12.init"
}

reset_examples() {
  cp "$ROOT"/examples/*.cfg "$CFG_FOLDER/"
  cp "$ROOT"/examples/*.init "$INIT_FOLDER/"
}

forget_logs() {
  rm -rf "${LOG_FOLDER:?}"
}
