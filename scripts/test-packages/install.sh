#!/usr/bin/env bash
# In a tree of its own: installs the packages, uses them as their users do, upgrades them from an earlier version, removes them,
# and looks for what is left.
#
#   install.sh FOLDER   where the packages are
set -euo pipefail
folder=$1
cd "$(dirname "$0")/../.."
. scripts/package/release.sh
. scripts/test-packages/sample.sh

processor=$(dpkg --print-architecture)
packages=("$folder"/*_{"$processor",all}.deb)
names=("${packages[@]##*/}")
names=("${names[@]%%_*}")
work=$(mktemp -d)

install() { apt-get install -q -y --no-install-recommends "$@"; }

files_of_the_system() {
  find / -xdev \( -path /dev -o -path /proc -o -path /tmp -o -path /packages -o -path "/legerlines-$version" -o -path /var/cache \
                  -o -path /var/lib/apt -o -path /var/lib/dpkg -o -path /var/log -o -path '*/__pycache__' \) -prune -o -print |
    LC_ALL=C sort
}

# The packages as those of an earlier version, with a file that the later one has no more.
make_earlier() {
  local package name
  for package in "${packages[@]}"; do
    name=${package##*/}
    name=${name%%_*}
    dpkg-deb --raw-extract "$package" "$work/$name"
    sed -i "/^\(Version\|Depends\):/s/$version/0.9.0/g" "$work/$name/DEBIAN/control"
    touch "$work/$name/usr/share/doc/$name/earlier"
    dpkg-deb --root-owner-group --build "$work/$name" "$work" >/dev/null
  done
}

# The page that shows what run_sample has hidden, and whether there are ledger lines in it.
show_sample() {
  local work=$1
  brvhost-preview "$work/hidden.musicxml" --before samples/piano.musicxml -o "$work/sample.html"
  grep -q lineDash "$work/sample.html"
}

complete_in_bash() {
  bash -c '. /usr/share/bash-completion/bash_completion
           loader=$(complete -p -D | sed "s/.*-F \([^ ]*\).*/\1/")
           "$loader" brvhost || true
           complete -p brvhost'
}

apt-get update -q
install man-db bash-completion zsh
files_of_the_system >"$work/before"
make_earlier

install "$work"/*.deb
[ "$(dpkg-query -W -f '${Version}\n' "${names[@]}" | grep -c '^0\.9\.0')" -eq "${#names[@]}" ]
ls /usr/share/doc/*/earlier
run_sample "$work" brvhost
install "${packages[@]}"
if ls /usr/share/doc/*/earlier 2>/dev/null; then
  echo "test-packages: files of the earlier version are left" >&2
  exit 1
fi
run_sample "$work" brvhost

man brvhost | grep -F "$bundle"
man brvhost-run | grep -F "brvhost run --item"
[ "$(man -w brvhost run)" = "$(man -w brvhost-run)" ]
[ "$(brvhost --version)" = "brvhost $version" ]
show_sample "$work"
man brvhost-preview | grep -F -- --before
brvhost-preview --version | grep -F "brvhost-preview $version"
complete_in_bash
zsh -fc 'autoload -U compinit; compinit -D; [ "$_comps[brvhost]" = _brvhost ]'

apt-get remove -q -y brvhost brvhost-preview
apt-get purge -q -y libbrvedk-dev libbrvplatform1
apt-get autoremove -q -y --purge
files_of_the_system >"$work/after"
diff "$work/before" "$work/after"
