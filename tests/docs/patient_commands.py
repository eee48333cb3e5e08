# SPDX-License-Identifier: MIT
"""What the commands of a page are run with."""

# Applications may take more than the usual 2 s to answer while the machine is busy.
PATIENT = """
qmrkctl() {
  case $* in
    signal* | 'classes enable '* | 'classes disable '* | 'classes only '* | 'classes set '*) command qmrkctl "$@" --wait 60s ;;
    *) command qmrkctl "$@" ;;
  esac
}
"""
