# The Debian packages of Tally Board, by what they are needed for. Sourced by scripts/common.sh.
# shellcheck shell=bash disable=SC2034

# To compile the program.
packages_build=(
    g++ cmake ninja-build pkg-config
    qt6-base-dev qt6-charts-dev libqt6opengl6-dev qt6-svg-dev libsqlcipher-dev libxlsxwriter-dev libminizip-dev
    zlib1g-dev
)

# To run it, and the guided tour, on a machine without a desktop: the platform has no font of its own.
packages_run=(fonts-dejavu-core)

# To run ./test: the test library, the two checks of the code, the quicker linker, a display of its own for the
# end-to-end tests.
packages_test=(libgtest-dev clang-format clang-tidy lld unzip xvfb xauth xdotool)

# For ./test --full: the benchmarks, the rendering of exported workbooks (with the letters of their standard font, and
# without), and the Debian package.
packages_full=(libbenchmark-dev libreoffice-calc-nogui fonts-crosextra-carlito poppler-utils dpkg-dev)

# For ./test --mutants: the parser that finds what can be changed in the code.
packages_mutants=(python3-clang)
