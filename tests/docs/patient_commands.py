# SPDX-License-Identifier: MIT
"""What the commands of a page are run with."""

# While the machine is busy, applications may take more than the usual 2 s to answer, and longer to begin to listen, or to
# listen again, than a reader takes to type.
PATIENT = """
awaitListeners() {
  for _ in {1..300}; do
    case $(command qmrkctl apps --json) in
      *'"listens": "no"'* | *'"listens": "updating"'*) sleep 0.1 ;;
      *) return 0 ;;
    esac
  done
}
qmrkctl() {
  case $* in
    signal* | 'classes enable '* | 'classes disable '* | 'classes only '* | 'classes set '*)
      awaitListeners
      command qmrkctl "$@" --wait 60s ;;
    *) command qmrkctl "$@" ;;
  esac
}
"""
