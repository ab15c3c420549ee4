#!/usr/bin/env bash
# release_test.sh SOURCE: a release of a small house of its own, whose checks do what they are told.
set -u
source=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
. "$source/tests/support/expect.sh"
command -v dpkg-parsechangelog >/dev/null || { echo "SKIPPED: package dpkg-dev is not installed"; exit 77; }
unset VISUAL EDITOR
export HOME=$folder GIT_AUTHOR_NAME=lab GIT_AUTHOR_EMAIL=lab@lab.example GIT_COMMITTER_NAME=lab GIT_COMMITTER_EMAIL=lab@lab.example

house=$folder/house
mkdir -p "$house/packaging"
cd "$house" || exit 1
cp "$source/packaging/release" packaging
for check in test packaging/make_packages packaging/try_package; do
  printf '#!/bin/sh\necho %s >>"%s/checked"\n[ ! -e "%s/broken" ]\n' $check "$folder" "$folder" >$check
  chmod +x $check
done
printf 'triaxlab (0.9.0) bookworm; urgency=medium\n\n  * Begin.\n\n -- lab <lab@lab.example>  Mon, 06 May 2024 08:00:00 +0000\n' \
  >packaging/changelog
git init -q -b main . && git add . && git commit -qm Begin

# release VERSION: its status, and what it said in ${said}.
release() { said=$(packaging/release "$@" 2>&1 </dev/null); }
newest() { dpkg-parsechangelog -l packaging/changelog -S "$1"; }

release 1.0.0
expect "nothing to release" "1 0.9.0" "$? $(newest Version)"
echo one >file && git add file && git commit -qm "Tell of a change whose first line is so long that it takes more than one line of the changelog"
release 0.9.0
expect "no version goes back" "1 0.9.0" "$? $(newest Version)"
release next
expect "a version is three numbers" "1 0.9.0" "$? $(newest Version)"
echo two >file
release 1.0.0
expect "what isn't committed isn't released" "1 0.9.0" "$? $(newest Version)"
git checkout -q file

touch "$folder/broken"
release 1.0.0
expect "a check that fails leaves all as it was" "1 0.9.0 " "$? $(newest Version) $(git status --porcelain)$(git tag)"
rm "$folder/broken" "$folder/checked"

release 1.0.0
expect "a release" "0 1.0.0" "$? $(newest Version)"
expect "is checked" "test packaging/make_packages" "$(head -n 2 "$folder/checked" | xargs)"
expect "committed and tagged" "Release 1.0.0 v1.0.0 " "$(git log -1 --format=%s) $(git describe) $(git status --porcelain)"
expect "tells what was committed" "  * Tell of a change whose first line is so long" "$(grep -o '^  \* Tell.*so long' packaging/changelog)"
expect "in lines of 80 at most" "" "$(grep -E '^.{81}' packaging/changelog)"
release 1.0.1
expect "and isn't told again" "1 Nothing was committed since 1.0.0." "$? $said"

exit $((failures > 0))
