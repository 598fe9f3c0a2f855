#!/usr/bin/env bash
# Installs the Debian packages that one kind of work needs, non-interactively
# and only those that are missing; says what it installs, and why, first.
#
#   tools/bootstrap.sh TARGET...   TARGET: native win test demo fuzz bench all
#
# The Makefile's targets call it with what they need. Without missing
# packages it prints nothing and changes nothing.
set -euo pipefail

# Package and what it is for, per target.
native=(
    "cmake:the build"
    "make:the build"
    "g++:the native build"
    "libasan8:AddressSanitizer runtime of the native build"
    "libubsan1:UndefinedBehaviorSanitizer runtime of the native build"
    "googletest:the tests (built from source by each build)"
    "libimage-exiftool-perl:the EXIF and IPTC tests read and write pictures with exiftool"
)
win=(
    "cmake:the build"
    "make:the build"
    "g++-mingw-w64-x86-64-posix:the Windows cross compiler"
    "binutils-mingw-w64-x86-64:the Windows linker and resource compiler"
    "python3:the icon generator (tools/make_icons.py)"
    "googletest:the tests (built from source by each build)"
    "wine:runs the Windows programs"
    "wine64:runs the Windows programs (64-bit)"
    "fonts-wine:Wine's fonts (Marlett draws the caption buttons)"
    "xvfb:the private X server that tests and the tour run on"
    "procps:the runner's test looks for leftover processes with ps"
)
fuzz=(
    "cmake:the build"
    "make:the build"
    "googletest:configuring the build"
    "clang:the fuzzing build (libFuzzer)"
    "libclang-rt-14-dev:libFuzzer and the sanitizer runtimes of clang"
)
bench=(
    "libbenchmark-dev:the native benchmarks (Google Benchmark)"
)

wanted=()
for target in "$@"; do
    case "$target" in
    native) wanted+=("${native[@]}") ;;
    win | demo) wanted+=("${win[@]}") ;;
    test) wanted+=("${native[@]}" "${win[@]}") ;;
    fuzz) wanted+=("${fuzz[@]}") ;;
    bench) wanted+=("${native[@]}" "${win[@]}" "${bench[@]}") ;;
    all) wanted+=("${native[@]}" "${win[@]}" "${fuzz[@]}" "${bench[@]}") ;;
    *)
        echo "usage: tools/bootstrap.sh native|win|test|demo|fuzz|bench|all..." >&2
        exit 2
        ;;
    esac
done
if [ ${#wanted[@]} -eq 0 ]; then
    echo "usage: tools/bootstrap.sh native|win|test|demo|fuzz|bench|all..." >&2
    exit 2
fi

missing=()
reasons=()
declare -A seen=()
for entry in "${wanted[@]}"; do
    p=${entry%%:*}
    [ -n "${seen[$p]:-}" ] && continue
    seen[$p]=1
    status=$(dpkg-query -W -f='${Status}' "$p" 2>/dev/null || true)
    if [ "$status" != "install ok installed" ]; then
        missing+=("$p")
        reasons+=("$(printf '  %-28s %s' "$p" "${entry#*:}")")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "bootstrap ($*): installing these Debian packages with apt-get:"
printf '%s\n' "${reasons[@]}"
SUDO=
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "bootstrap: run as root or install sudo" >&2; exit 1; }
    SUDO=sudo
fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq "${missing[@]}" >/dev/null
echo "bootstrap: done"
