# The product's name, address, date and descriptions; its version is the project's. The programs (src/base/Product.h),
# Windows' version resource, the help file, the packages and their manifests take them from here.
set(QUILLON_URL "https://quillon.example.org/")
# The day of the version: it stands wherever a time would otherwise make two builds of the same sources differ.
set(QUILLON_DATE "2026-11-23")
set(QUILLON_COPYRIGHT "Copyright (C) 2026 The Quillon developers")
set(QUILLON_MAINTAINER "The Quillon developers <quillon@quillon.example.org>")
# The descriptions that Windows shows for the files.
set(QUILLON_DESCRIPTION_JA "Quillon ファイル名一括変更")
set(QUILLON_DESCRIPTION_EN "Quillon file renamer")
set(QUILLON_CLI_DESCRIPTION_JA "Quillon ファイル名一括変更 (コマンドライン)")
set(QUILLON_CLI_DESCRIPTION_EN "Quillon file renamer (command line)")
set(QUILLON_BREGEXP_DESCRIPTION_JA "Quillon 正規表現ライブラリ")
set(QUILLON_BREGEXP_DESCRIPTION_EN "Quillon regular expressions")
# The name by which desktops know the program.
set(QUILLON_APPLICATION_ID "org.example.quillon")
