#!/usr/bin/env bash
# Makes the web site in build/site and checks its links, its HTML and that it asks for nothing from elsewhere.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
help_if_asked "$@"

./site.sh build/site
python3 -B site/check.py build/site || fail "the site's links are wrong"
need_checkers
# The configuration lies beside the checkers' list; the pages themselves carry none.
"$checkers/node_modules/.bin/html-validate" --config scripts/checkers/html-validate.json 'build/site/**/*.html' ||
  fail "html-validate found the above"
