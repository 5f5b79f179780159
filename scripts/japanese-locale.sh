#!/usr/bin/env bash
# Creates the Japanese locale, from which Wine takes its code page, if it is missing.
set -euo pipefail
. "$(dirname "$0")/common.sh"
locale -a | grep -i '^ja_JP.utf-\?8$' >/dev/null && exit 0
need_packages locales
say "Making the locale ja_JP.UTF-8"
as_root sed -i 's/^# *\(ja_JP.UTF-8 UTF-8\)/\1/' /etc/locale.gen
grep -q '^ja_JP.UTF-8' /etc/locale.gen || echo 'ja_JP.UTF-8 UTF-8' | as_root tee -a /etc/locale.gen >/dev/null
as_root locale-gen >/dev/null || fail "the locale ja_JP.UTF-8 could not be made"
