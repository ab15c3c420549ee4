#!/usr/bin/env bash
# prepare_test.sh PREPARE: installing packages while another program does the same.
set -u
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export FAKE=$folder PATH="$folder/bin:$PATH"
mkdir "$folder/bin"

# fake NAME: a program of that name with the text of standard input.
fake() {
  { echo '#!/usr/bin/env bash'; cat; } >"$folder/bin/$1"
  chmod +x "$folder/bin/$1"
}
fake dpkg-query <<<'exit 1'
fake sudo <<<'[ "$1" = -n ] || exec "$@"'
fake sleep <<<'echo "slept" >>"$FAKE/calls"'
# Says what lies in the file "answers", a line a call, and succeeds when there is none left.
fake apt-get <<'PROGRAM'
echo "apt-get $*" >>"$FAKE/calls"
answer=$(head -n 1 "$FAKE/answers")
sed -i 1d "$FAKE/answers"
[ -z "$answer" ] || { echo "$answer" >&2; exit 100; }
PROGRAM

. "$1"
. "$(dirname "$0")/../support/expect.sh"

# installing ANSWERS...: what is called when apt-get answers so, and what is said.
installing() {
  : >"$folder/calls"
  printf '%s\n' "$@" >"$folder/answers"
  said=$(install some-package 2>&1)
  calls=$(sed 's/^apt-get .* \(update\|install\).*/\1/' "$folder/calls" | tr '\n' ' ')
}

lock="E: Could not get lock /var/lib/apt/lists/lock. It is held by process 1 (apt-get)"

installing ""
expect "nobody else is at it" "update install " "$calls"
expect "the lock of dpkg is waited for" 2 "$(grep -c -- '-o DPkg::Lock::Timeout=600' "$folder/calls")"

installing "$lock" "$lock" "" "$lock" ""
expect "another program is at it" "update slept update slept update install slept install " "$calls"
expect "waiting is told once each time" 2 "$(grep -c 'waiting for it' <<<"$said")"

installing "E: Unable to locate package some-package"
expect "another failure is not tried again" "update " "$calls"
expect "and is told" 1 "$(grep -c 'Unable to locate' <<<"$said")"

exit $((failures > 0))
