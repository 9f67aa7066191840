# Sourced by the runs that need clang (scripts/run-tsan.sh, scripts/run-fuzz.sh).

# True when clang++ is there; otherwise says that NAME checks nothing.
have_clang() {
    command -v clang++ >/dev/null 2>&1 && return 0
    echo "$1: no clang++, nothing checked"
    return 1
}

# clang_build BUILD OPTION TARGET...: configures BUILD with clang, ccache where there is one,
# and the CMake OPTION, then builds the targets.
clang_build() {
    local build=$1 option=$2
    shift 2
    local launcher=()
    command -v ccache >/dev/null 2>&1 &&
        launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
        -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ "$option" "${launcher[@]}" >/dev/null
    cmake --build "$build" --target "$@"
}
