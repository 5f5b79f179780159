# What the product says about itself; its version is the project's. Everything that shows one of these takes it from
# here: the programs (src/base/Product.h), Windows' version resource, the help file and the packages.
set(QUILLON_URL "https://quillon.example.org/")
set(QUILLON_COPYRIGHT "Copyright (C) 2026 The Quillon developers")
set(QUILLON_MAINTAINER "The Quillon developers <quillon@quillon.example.org>")
# The name by which desktops know the program.
set(QUILLON_APPLICATION_ID "org.example.quillon")

set(product_source ${PROJECT_BINARY_DIR}/generated/Product.cpp)
configure_file(${PROJECT_SOURCE_DIR}/cmake/Product.cpp.in ${product_source} @ONLY)
