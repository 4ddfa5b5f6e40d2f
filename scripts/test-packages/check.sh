#!/usr/bin/env bash
# Checks the tutorial's extension against the calling convention. It may fail for one reason: a function of the kit that it calls
# leaves frames loaded.
#
#   check.sh BUNDLE COMMAND...   COMMAND is how brvhost checks a bundle
set -euo pipefail
bundle=$1
shift

facts=$("$@" "$bundle" || true)
echo "$facts"
grep -q '^ok *terminates$' <<<"$facts"
if grep '^FAILED' <<<"$facts" | grep -v 'leaves frames loaded'; then
  echo "test-packages: $bundle does not keep to the calling convention" >&2
  exit 1
fi
