# shellcheck shell=bash disable=SC2034
# What each part of a release needs to know; sourced by bash in the root folder of the sources.

version=$(sed -n 's/^project(LegerLines VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
# The time that the files of a release bear is that of the version's entry in the changelog.
time=${SOURCE_DATE_EPOCH:-$(date -d "$(sed -n 's/^ -- .*>  //p' debian/changelog | head -n 1)" +%s)}

# Ends a part that this machine cannot make.
unavailable() {
  echo "package: $*" >&2
  exit 77
}
