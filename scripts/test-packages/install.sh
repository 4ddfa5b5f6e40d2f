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
names=(brvhost libbrvedk-dev libbrvplatform1)
work=$(mktemp -d)

install() { apt-get install -q -y --no-install-recommends "$@"; }

files_of_the_system() {
  find / -xdev \( -path /dev -o -path /proc -o -path /tmp -o -path /packages -o -path "/legerlines-$version" -o -path /var/cache \
                  -o -path /var/lib/apt -o -path /var/lib/dpkg -o -path /var/log -o -path '*/__pycache__' \) -prune -o -print |
    LC_ALL=C sort
}

# The packages as those of an earlier version, with a file that the later one has no more.
make_earlier() {
  local name
  for name in "${names[@]}"; do
    dpkg-deb --raw-extract "$folder/${name}_"*"_$processor.deb" "$work/$name"
    sed -i "/^\(Version\|Depends\):/s/$version/0.9.0/g" "$work/$name/DEBIAN/control"
    touch "$work/$name/usr/share/doc/$name/earlier"
    dpkg-deb --root-owner-group --build "$work/$name" "$work" >/dev/null
  done
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
[ "$(dpkg-query -W -f '${Version}\n' "${names[@]}" | sort -u | wc -l)" -eq 1 ]
ls /usr/share/doc/*/earlier
run_sample "$work" brvhost
install "$folder"/*"_$processor.deb"
if ls /usr/share/doc/*/earlier 2>/dev/null; then
  echo "test-packages: files of the earlier version are left" >&2
  exit 1
fi
run_sample "$work" brvhost

man brvhost | grep -F "$bundle"
[ "$(brvhost --version)" = "brvhost $version" ]
complete_in_bash
zsh -fc 'autoload -U compinit; compinit -D; [ "$_comps[brvhost]" = _brvhost ]'

apt-get remove -q -y brvhost
apt-get purge -q -y libbrvedk-dev libbrvplatform1
apt-get autoremove -q -y --purge
files_of_the_system >"$work/after"
diff "$work/before" "$work/after"
