# Sourced by the tests that are shell scripts.
# shellcheck shell=bash
failures=0
# expect WHAT WANTED FOUND
expect() {
  [ "$2" = "$3" ] && return
  printf '%s: wanted\n%s\nfound\n%s\n' "$1" "$2" "$3"
  failures=$((failures + 1))
}
