#!/usr/bin/env bash
# site.sh [FOLDER]: makes the web site in dist/site, or in the folder, in place of the site that is there: the help, the
# documents, pictures, and downloads of the packages that lie in dist/. scripts/check-site.sh makes and checks it.
set -euo pipefail
folder=${1:+$(realpath --canonicalize-missing -- "$1")}
cd "$(dirname "$0")"
. scripts/common.sh
help_if_asked "$@"

case "${1:-}" in -*) fail "unknown argument '$1' (see --help)" ;; esac
need_packages "${site_packages[@]}"
exec python3 -B site/make.py "${folder:-dist/site}"
