#!/usr/bin/env bash
# Runs a command as root in a tree of Debian, with the network of this system and nothing else of its environment.
#
#   scripts/trees/enter.sh TREE COMMAND [ARGUMENT...]
#
# What is mounted is seen by the command alone, and gone with it: nothing has to be unmounted, however it ends.
set -euo pipefail
[ $# -ge 2 ] || { echo "usage: scripts/trees/enter.sh TREE COMMAND [ARGUMENT...]" >&2; exit 2; }

tree=$(realpath "$1")
shift
variables=(PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root "TERM=${TERM:-dumb}")
while read -r name; do
  variables+=("$name=${!name}")
done < <(compgen -e | grep -iE '_proxy$|CERT|CA_BUNDLE|CAINFO' || true)

cp -L /etc/resolv.conf "$tree/etc/resolv.conf"
# In the second place for the package of certificates, which writes the first anew when it is installed.
certificates=/etc/ssl/certs/ca-certificates.crt
for copy in "$certificates" /usr/local/share/ca-certificates/machine.crt; do
  [ ! -f "$certificates" ] || install -D -m 644 "$certificates" "$tree$copy"
done

# shellcheck disable=SC2016
exec env -i "${variables[@]}" unshare --mount --pid --fork --kill-child bash -c '
  set -e
  mount -t proc proc "$0/proc"
  mount --rbind /dev "$0/dev"
  exec chroot "$0" "$@"' "$tree" "$@"
