#!/usr/bin/env bash
# Runs a command as root in a tree of Debian, with the network of this system and nothing else of its environment.
#
#   scripts/test-packages/enter.sh TREE COMMAND [ARGUMENT...]
#
# What is mounted is seen by the command alone, and gone with it: nothing has to be unmounted, however it ends.
set -euo pipefail

tree=$(realpath "$1")
shift
variables=(PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive)
for name in {http,https,no}_proxy {HTTP,HTTPS,NO}_PROXY SSL_CERT_FILE; do
  [ -z "${!name:-}" ] || variables+=("$name=${!name}")
done
mkdir -p "$tree/etc/ssl/certs"
for file in /etc/resolv.conf /etc/ssl/certs/ca-certificates.crt; do
  [ ! -e "$file" ] || cp -L "$file" "$tree$file"
done

# shellcheck disable=SC2016
exec env -i "${variables[@]}" unshare --mount --pid --fork --kill-child bash -c '
  set -e
  mount -t proc proc "$0/proc"
  mount --rbind /dev "$0/dev"
  exec chroot "$0" "$@"' "$tree" "$@"
