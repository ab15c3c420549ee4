#!/usr/bin/env bash
# install_test.sh BUILD SOURCE: what `cmake --install` puts into a folder, and how the programs work from there.
set -u
build=$1 source=$2
folder=$(mktemp -d)
trap 'chmod -R u+w "$folder"; rm -rf "$folder"' EXIT
. "$source/tests/support/expect.sh"
prefix=$folder/prefix

cmake --install "$build" --prefix "$prefix" >"$folder/log" || cat "$folder/log"
wanted() {
  cat "$source/tests/packaging/installed_files.txt"
  (cd "$source" && find samples -type f ! -name README.md -printf 'share/triaxlab/%p\n')
}
expect "the files of an installation" "$(wanted | LC_ALL=C sort)" "$(cd "$prefix" && find . -type f -printf '%P\n' | LC_ALL=C sort)"

# From here on nobody writes there: neither may anybody, nor does one who may.
chmod -R a-w "$prefix"
state() { cd "$prefix" && find . -printf '%p %s %T@ %C@\n' | LC_ALL=C sort; }
before=$(state)
export XDG_DATA_HOME=$folder/home QT_QPA_PLATFORM=offscreen
unset TRIAXLAB_APP
workspace=$folder/home/triaxlab
samples=$prefix/share/triaxlab/samples
cd "$folder" || exit 1

# does WHAT COMMAND...: which is expected to succeed.
does() {
  local what=$1 said
  shift
  said=$("$@" 2>&1) || expect "$what" "status 0" "status $? and: $said"
}
does "a database is imported" "$prefix/bin/triaxlab-cli" import auto "$samples/HSZSJ.KU" --show 3
does "the reader of Jet databases is found" "$prefix/bin/triaxlab-cli" import win "$samples/SZData.dat"
does "the drawer of pages is found" \
  "$prefix/bin/triaxlab-cli" print triaxial WKSZ2024-018.txt --layout three-in-one --out "$folder/pages.pdf"
expect "a PDF is there" "%PDF" "$(head -c 4 "$folder/pages.pdf")"
: >"$folder/nothing.play"
does "the windows start" "$prefix/bin/triaxlab" --play "$folder/nothing.play"
expect "projects are in the person's own folder" yes "$([ -e "$workspace/HSZS/WKSZ2024-018.txt" ] && echo yes)"
expect "settings as well" yes "$([ -e "$workspace/qvb.sys" ] && echo yes)"
expect "the installation is as it was" "$before" "$(state)"

chmod u+w "$prefix/bin"
touch "$prefix/bin/.portable"
does "a marked installation starts" "$prefix/bin/triaxlab-cli" init
expect "and has its settings in it" yes "$([ -e "$prefix/bin/qvb.sys" ] && echo yes)"
does "and the helpers where they were" "$prefix/bin/triaxlab-cli" import win "$samples/SZData.dat"

exit $((failures > 0))
