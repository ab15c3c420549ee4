#!/usr/bin/env bash
# completion_test.sh PROGRAMS SOURCE: what the shell offers behind a command line that has been begun.
set -u
programs=$1 source=$2
scripts=/usr/share/bash-completion/bash_completion
[ -e $scripts ] || { echo "SKIPPED: package bash-completion is not installed"; exit 77; }
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
. "$source/tests/support/expect.sh"
# shellcheck disable=SC1090,SC1091 # another package's, and ours
{ . $scripts; . "$source/packaging/completion.bash"; }
PATH=$programs:$PATH

# offered WORDS...: for the last of the words, which may be empty.
offered() {
  COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMP_LINE="$*" COMP_TYPE=9 COMP_KEY=9
  COMP_POINT=${#COMP_LINE} COMPREPLY=()
  _triaxlab "$1" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}" 2>/dev/null
  echo "${COMPREPLY[*]}"
}

expect "commands" "import init" "$(offered triaxlab-cli i | tr ' ' '\n' | sort | xargs)"
expect "a command behind options with values" "workbook workbook-raw" \
  "$(offered triaxlab-cli --app / --today 2024-05-06 work)"
expect "sources" "nanjing new-qvb" "$(offered triaxlab-cli import n | tr ' ' '\n' | sort | xargs)"
expect "kinds" "tk0 triaxial" "$(offered triaxlab-cli results t | tr ' ' '\n' | sort | xargs)"
expect "options of a command" "--progress" "$(offered triaxlab-cli results triaxial --pr)"
expect "options of both programs" "--app --today" "$(offered triaxlab-cli --a) $(offered triaxlab --t)"
expect "layouts" "three-in-one" "$(offered triaxlab-cli print triaxial X --layout three)"
expect "papers" "A3 A4" "$(offered triaxlab-cli print triaxial X --paper A | tr ' ' '\n' | sort | xargs)"
mkdir "$folder/databases"
touch "$folder/data.ku"
expect "files" "$folder/data.ku $folder/databases" \
  "$(offered triaxlab-cli import auto "$folder/da" | tr ' ' '\n' | sort | xargs)"
expect "folders alone" "$folder/databases" "$(offered triaxlab --app "$folder/da")"

exit $((failures > 0))
