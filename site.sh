#!/usr/bin/env bash
# site.sh [FOLDER]: makes the web site in dist/site, or in the folder, in place of the site that is there: the help, the documents, pictures, and downloads of the
# packages that lie in dist/. scripts/check-site.sh makes and checks it.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

case "${1:-}" in
  -h | --help)
    sed -n '2,3s/^# \{0,1\}//p' "$0"
    exit 0
    ;;
  -*) fail "unknown argument '$1' (see --help)" ;;
esac
need_packages "${site_packages[@]}"
exec python3 -B site/make.py "${1:-dist/site}"
