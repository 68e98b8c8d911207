#!/usr/bin/env bash
# A program whose strings and vectors lie otherwise in memory than the library's is refused by the headers, in a sentence;
# one that is built as the library is is not. scripts/test-standard-library.sh
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
consumer=$root/KivoFunctionPlotter/tests/consumer

# refused <sentence> <flag>...: the consumer, compiled with these flags, is refused in that sentence and accepted without the
# last of them.
refused() {
    local sentence=$1 flags=("${@:2}")
    if "${CXX:-g++}" -std=c++17 -fsyntax-only "$consumer/main.cpp" "${flags[@]}" 2>"$place/words"; then
        echo "accepted: ${flags[*]}"
        exit 1
    fi
    grep -qE "error: .*$sentence" "$place/words" || { cat "$place/words" && exit 1; }
    "${CXX:-g++}" -std=c++17 -fsyntax-only "$consumer/main.cpp" "${flags[@]::${#flags[@]}-1}"
    echo "refused: ${flags[-1]}"
}

# configured <folder> <option>...: a project around the library; the headers of both are in $headers.
configured() {
    cmake -S "$consumer" -B "$place/$1" -G Ninja -DCONSUME=add_subdirectory -DCHECKOUT="$root" -DCMAKE_UNITY_BUILD=ON -DCMAKE_BUILD_TYPE=Debug "${@:2}"
    headers=("-I$root/KivoFunctionPlotter/include" "-I$place/$1/plotter/KivoFunctionPlotter/include"
        "-I$place/$1/plotter/KivoFunctionPlotter/include/Debug")
}

# Every header of the usual build refuses, whichever comes first.
made=${KIVO_BUILD:-$root/build-release}/KivoFunctionPlotter/include
usual=("-I$root/KivoFunctionPlotter/include" "-I$made" "-I$made/Release")
refused 'another _GLIBCXX_USE_CXX11_ABI' "${usual[@]}" -D_GLIBCXX_USE_CXX11_ABI=0
refused '_GLIBCXX_DEBUG' "${usual[@]}" -D_GLIBCXX_DEBUG
for header in FunctionPlotter Host Picture Platform Window; do
    "${CXX:-g++}" -std=c++17 -fsyntax-only -D_GLIBCXX_DEBUG "${usual[@]}" -x c++ - <<<"#include <Kivo$header.h>" \
        2>"$place/words" || true
    grep -q 'error: .*only one has _GLIBCXX_DEBUG' "$place/words" || { echo "Kivo$header.h accepts another library" && exit 1; }
done

# The old interface for all of a project, in which test-package.sh draws a picture.
configured old -DCMAKE_CXX_FLAGS=-D_GLIBCXX_USE_CXX11_ABI=0
refused 'another _GLIBCXX_USE_CXX11_ABI' "${headers[@]}" -D_GLIBCXX_USE_CXX11_ABI=0 -U_GLIBCXX_USE_CXX11_ABI

# Checked containers for one configuration of the project around the library, in which the picture is drawn here.
echo 'add_compile_definitions($<$<CONFIG:Debug>:_GLIBCXX_DEBUG>)
add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fno-common>)' >"$place/around.cmake"
configured checked -DBUILD_SHARED_LIBS=OFF -DCMAKE_PROJECT_Consumer_INCLUDE="$place/around.cmake"
refused '_GLIBCXX_DEBUG' "${headers[@]}" -D_GLIBCXX_DEBUG -U_GLIBCXX_DEBUG
cmake --build "$place/checked" --target consumer
env -u DISPLAY "$place/checked/consumer"
