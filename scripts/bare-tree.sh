#!/usr/bin/env bash
# Tries what is committed as a new user of a Debian release would: makes a tree of that release with nothing in it but what
# every system has, clones the sources into it, runs a command there, and prints what passed. As root; needs debootstrap.
#
#   scripts/bare-tree.sh RELEASE [COMMAND]   as in: scripts/bare-tree.sh trixie "scripts/demo.sh && scripts/test.sh"
#
# That command is also what runs where none is named. Exit status: that of the command. The mirror is the machine's own, and so
# are the proxies and certificates. The tree takes 8 GB in $TMPDIR (/var/tmp), and is removed in the end; it is mounted in a name
# space of its own, which the rest of the machine does not see.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() {
  echo "bare-tree: $*" >&2
  exit 2
}

case $# in
  1 | 2) ;;
  *) echo "usage: scripts/bare-tree.sh RELEASE [COMMAND]" >&2; exit 2 ;;
esac
[ "$(id -u)" -eq 0 ] || fail "needs root"
command -v debootstrap >/dev/null || fail "needs debootstrap"
if [ -z "${BRV_IN_BARE_TREE-}" ]; then
  BRV_IN_BARE_TREE=1 exec unshare --mount --propagation private --pid --fork --kill-child "$0" "$@"
fi

release=$1
command=${2:-scripts/demo.sh && scripts/test.sh}
mirror=$(apt-get indextargets --format '$(SITE)' 'Identifier: Packages' 'Label: Debian' 'Component: main' | sed -n 1p)
[ -n "$mirror" ] || fail "no mirror of Debian in apt's sources"

folder=$(mktemp -d "${TMPDIR:-/var/tmp}/bare-tree.XXXXXX")
tree=$folder/tree
remove_tree() {
  for mounted in dev/pts dev proc; do
    ! mountpoint --quiet "$tree/$mounted" || umount --lazy "$tree/$mounted"
  done
  rm -rf --one-file-system "$folder"
}
trap remove_tree EXIT
trap 'exit 130' INT TERM

if ! debootstrap --variant=minbase "$release" "$tree" "$mirror" >"$folder/log" 2>&1; then
  tail -n 5 "$folder/log" >&2
  fail "debootstrap could not make a tree of $release"
fi
git clone --quiet --no-hardlinks . "$tree/src"
mount -t proc proc "$tree/proc"
mount --bind /dev "$tree/dev"
mount --bind /dev/pts "$tree/dev/pts"

cp /etc/resolv.conf "$tree/etc/resolv.conf"
# In the second place for the package of certificates, which writes the first anew when it is installed.
certificates=/etc/ssl/certs/ca-certificates.crt
for copy in "$certificates" /usr/local/share/ca-certificates/machine.crt; do
  [ ! -f "$certificates" ] || install -D -m 644 "$certificates" "$tree$copy"
done
environment=(HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "TERM=${TERM:-dumb}")
while read -r name; do
  environment+=("$name=${!name}")
done < <(compgen -e | grep -iE '_proxy$|CERT|CA_BUNDLE|CAINFO' || true)

status=0
env -i "${environment[@]}" chroot "$tree" bash -c "cd /src && $command" 2>&1 | tee "$folder/log" || status=${PIPESTATUS[0]}
echo "== $release: exit status $status"
sed -n -e 's/^== \([a-z]*\)$/\1:/p' -e '/tests passed/p' "$folder/log"
exit "$status"
