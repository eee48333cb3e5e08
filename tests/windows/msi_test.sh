#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# msi_test.sh BUILD SOURCE: makes the installer and runs it under Wine by the commands of docs/windows.md: it brings programs
# that log with no further step, and the task; a later version takes its place; the removal leaves what an administrator may
# have changed.
set -Eeuo pipefail
trap 'echo "line $LINENO failed: $BASH_COMMAND"' ERR
build=$1
source=$2
run="$source/scripts/lib/run-under-wine"
# A machine of its own: Wine starts the services, of which the task needs one, only when its server begins, and that of the
# other tests stays.
folder=$(mktemp -d)
export QMRK_WINE_PREFIX=$folder/machine
trap 'rm -rf "$folder"' EXIT
. "$source/tests/windows/shell_folders.sh"
export -n GTEST_OUTPUT

commands=$(python3 -B "$source/tests/docs/page_blocks.py" "$source/docs/windows.md" 'The installer' 1/1)
{ read -r install && read -r remove; } <<<"$commands"
[ "$commands" = "$install"$'\n'"$remove" ]
msiexec() { "$run" msiexec "$@"; }

cmake --build "$build" --target windows-msi >"$folder/make.log" 2>&1 || { cat "$folder/make.log"; exit 1; }
later=$folder/qmrk_log-later-windows-x86_64.msi
former=$folder/qmrk_log-former-windows-x86_64.msi
cp "$build"/qmrk_log-*.msi "$later"
cd "$folder"
# Where Windows wants it, though Wine takes it elsewhere, too: after InstallValidate (1400), before InstallInitialize (1500).
msiinfo export "$later" InstallExecuteSequence | grep -x $'RemoveExistingProducts\t\t1450\r*' >/dev/null
lay_out "$source/examples"
cfg="$common_files/Orvane Shared/qmrk/logging/cfg/qmrk_logging_CA12.cfg"
cfg32="${common_files/Program Files/Program Files (x86)}/Orvane Shared"
init=$program_data/Orvane/qmrk/logging/qmrk_logging_CA12.init
programs="$(shell_folder ProgramFiles)/Orvane/Quillmark Logging"
task="$(shell_folder SystemRoot)/system32/tasks/Orvane qmrk lease sweep"
trap 'clean; rm -rf "$folder" "${programs%/*}" "$cfg32" "$task"' EXIT
clean

# there PATH..., gone PATH...
there() { for path in "$@"; do [ -e "$path" ] || { echo "there is no $path"; exit 1; }; done; }
gone() { for path in "$@"; do [ ! -e "$path" ] || { echo "$path is left"; exit 1; }; done; }

# As an earlier version would be.
code='{8D5A1F60-0B5C-4E0F-9F0E-3B6F2A0C7D11}'
later_code=$(msiinfo export "$later" Property | tr -d '\r' | sed -n 's/^ProductCode\t//p')
cp "$later" "$former"
msibuild "$former" -q "UPDATE \`Property\` SET \`Value\` = '0.9.0' WHERE \`Property\` = 'ProductVersion'" \
  -q "UPDATE \`Property\` SET \`Value\` = '$code' WHERE \`Property\` = 'ProductCode'"

# expect_products CODE...: these are installed, and no others.
expect_products() {
  "$run" reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' >"$folder/products"
  local found
  found=$(grep -o '{.*}' "$folder/products" | sort || true)
  [ "$found" = "$(printf '%s\n' "$@" | sort)" ] || { echo "installed is: $found, not: $*"; exit 1; }
}

echo '-- installed'
eval "${install/<version>/former}"
there "$programs/bin/qmrkctl.exe" "$programs/LICENSE" "$programs/licences/boost.txt" "$cfg" \
  "$cfg32/qmrk/logging/cfg/qmrk_logging_GE.cfg" "$init" "$task"
command=$(tr -d '\r' <"$task" | sed -n 's|.*<Command>"%ProgramFiles%\\\(.*\)"</Command>.*|\1|p')
there "$(shell_folder ProgramFiles)/${command//\\//}"
"$run" "$programs/bin/LogTest.exe" --classes 'Demo.App.info;' --lines 3
expect "$common_log" '\[Demo\.App\.info\] .* of 3' 3

expect_products "$code"

echo '-- a later version'
printf '# edited here\r\n' >>"$cfg"
edited=$(sha256sum <"$cfg")
printf 'Demo.Net;\r\n' >"$init"
eval "${install/<version>/later}"
there "$programs/bin/qmrkctl.exe" "$task"
[ "$(sha256sum <"$cfg")" = "$edited" ] || { echo "$cfg was replaced"; exit 1; }
[ "$(tr -d '\r' <"$init")" = 'Demo.Net;' ] || { echo "$init was replaced"; exit 1; }
expect_products "$later_code"

echo '-- removed'
eval "${remove/<version>/later}"
gone "$programs" "$task"
expect_products
there "$cfg" "$init"
[ "$(sha256sum <"$cfg")" = "$edited" ] || { echo "$cfg was changed"; exit 1; }
