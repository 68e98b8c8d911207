#!/usr/bin/env bash
# Uses the library as other projects do; each of their programs draws a picture, and so do plugins on Linux,
# which are unloaded and loaded again. All paths have a blank in them.
#   scripts/test-package.sh part shared|static Debug|Release add_subdirectory|FetchContent [mingw]
#       builds it as a part of another project, installs it from there, and uses that by find_package and pkg-config;
#       with CXXFLAGS, where these are set
#   scripts/test-package.sh installed linux|mingw
#       installs what is built already, and uses that by find_package and pkg-config
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
mode=$1
case $mode in
part) kind=$2 configuration=$3 way=$4 platform=${5:-linux} ;;
installed) kind=shared configuration=Release platform=$2 ;;
esac
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
ln -s "$root" "$place/the checkout"
prefix="$place/the prefix"
version=$(sed -nE 's/^ +VERSION ([0-9.]+)$/\1/p' "$root/CMakeLists.txt")
consumer=KivoFunctionPlotter/tests/consumer

compiler=g++ suffix='' options=() run=(env -u DISPLAY -u WAYLAND_DISPLAY)
if [ "$platform" = mingw ]; then
    compiler=x86_64-w64-mingw32-g++-posix suffix=.exe
    options=("-DCMAKE_TOOLCHAIN_FILE=$root/cmake/mingw-w64-x86_64.cmake")
    run=("$root/scripts/with-display.sh" "$root/scripts/with-wine.sh")
fi

# build <folder> <option>...: the consumer, found there as consumer
build() {
    cmake -S "$place/the checkout/$consumer" -B "$place/$1" -G Ninja -DCMAKE_BUILD_TYPE="$configuration" \
        "${options[@]}" "${@:2}"
    cmake --build "$place/$1"
}

# try <program>: it draws its picture, with headers of this version.
try() {
    local printed
    printed=$("${run[@]}" "$1$suffix" | tr -d '\r')
    echo "$1 printed \"$printed\""
    [ "$printed" = "$version" ]
}

# try_plugin <folder>: the plugin there draws each time it is loaded, by the host there.
try_plugin() {
    [ "$platform" = linux ] || return 0
    "${run[@]}" timeout 60 "$place/by package/plugin_host" "$1/plugin.so" worker
    echo "$1/plugin.so draws again and again"
}

if [ "$mode" = part ]; then
    # Joined sources compile in a third of the time; other projects ask for them, too.
    build "as a part" -DCMAKE_UNITY_BUILD=ON -DCONSUME="$way" -DCHECKOUT="$place/the checkout" -DKIVO_INSTALL=ON -DCMAKE_INSTALL_PREFIX="$prefix" \
        -DBUILD_SHARED_LIBS="$([ "$kind" = shared ] && echo ON || echo OFF)"
    try "$place/as a part/consumer"
    cmake --install "$place/as a part"
    rm -r "$place/as a part" # the installation does not need it
else
    built=${KIVO_BUILD:-$root/build-$([ "$platform" = mingw ] && echo mingw || echo release)}
    for component in runtime development {qt6widgets,qt6quick,gtk4,wx}{,-development}; do
        cmake --install "$built" --prefix "$prefix" --component "$component"
    done
fi

# It may be moved.
mv "$prefix" "$place/another prefix"
prefix="$place/another prefix"
package=$(find "$prefix" -name KivoFunctionPlotterConfig.cmake -printf '%h')
build "by package" -DCONSUME=find_package -DKivoFunctionPlotter_DIR="$package"
try "$place/by package/consumer"
try_plugin "$place/by package"

# The controls, each where it was built. What is built for packages finds the library where the system has it.
libraries=${package%/cmake/*}
if [ -e "$package/KivoFunctionPlotter-Qt6Widgets.cmake" ]; then
    cmake -S "$place/the checkout/$consumer/qt6widgets" -B "$place/qt" -G Ninja -DKivoFunctionPlotter_DIR="$package"
    cmake --build "$place/qt"
    LD_LIBRARY_PATH=$libraries QT_QPA_PLATFORM=offscreen try "$place/qt/qt_consumer"
    (run=("$root/scripts/with-display.sh") && LD_LIBRARY_PATH=$libraries try "$place/qt/qt_consumer")
fi
if [ -e "$package/KivoFunctionPlotter-Qt6Quick.cmake" ]; then
    cmake -S "$place/the checkout/$consumer/qt6quick" -B "$place/quick" -G Ninja -DKivoFunctionPlotter_DIR="$package"
    cmake --build "$place/quick"
    LD_LIBRARY_PATH=$libraries QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software try "$place/quick/quick_consumer"
    LD_LIBRARY_PATH=$libraries QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software \
        "$place/quick/quick_consumer" "$libraries/qt6/qml"
fi

if [ -e "$package/KivoFunctionPlotter-Gtk4.cmake" ]; then
    cmake -S "$place/the checkout/$consumer/gtk4" -B "$place/gtk" -G Ninja -DKivoFunctionPlotter_DIR="$package"
    cmake --build "$place/gtk"
    (run=("$root/scripts/with-display.sh") && LD_LIBRARY_PATH=$libraries try "$place/gtk/gtk_consumer")
fi

if [ -e "$package/KivoFunctionPlotter-Wx.cmake" ]; then
    cmake -S "$place/the checkout/$consumer/wx" -B "$place/wx" -G Ninja -DKivoFunctionPlotter_DIR="$package"
    cmake --build "$place/wx"
    (run=("$root/scripts/with-display.sh") && LD_LIBRARY_PATH=$libraries try "$place/wx/wx_consumer")
fi

# pkg-config prints blanks as a shell wants them.
PKG_CONFIG_PATH=$(find "$prefix" -name KivoFunctionPlotter.pc -printf '%h')
export PKG_CONFIG_PATH
[ "$(pkg-config --modversion KivoFunctionPlotter)" = "$version" ]
form=()
[ "$kind" = shared ] || form=(--static)
eval "flags=($(pkg-config "${form[@]}" --cflags --libs KivoFunctionPlotter))"
mkdir "$place/by pkg-config"
if [ "$platform" = mingw ]; then # only our library is beside the program
    if [ "$kind" = shared ]; then
        cp "$prefix"/bin/*.dll "$place/by pkg-config"
        flags=(-Wl,-Bdynamic "${flags[@]}" -Wl,-Bstatic)
    fi
    flags=(-static "${flags[@]}")
fi
read -ra own <<<"${CXXFLAGS:-}"
"$compiler" -std=c++17 "${own[@]}" "$root/$consumer/main.cpp" -o "$place/by pkg-config/consumer$suffix" "${flags[@]}"
LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH") try "$place/by pkg-config/consumer"
if [ "$platform" = linux ]; then
    "$compiler" -std=c++17 "${own[@]}" -shared -fPIC -Wl,--version-script="$root/$consumer/plugin.map" "$root/$consumer/plugin.cpp" \
        -o "$place/by pkg-config/plugin.so" "${flags[@]}"
    LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH") try_plugin "$place/by pkg-config"
fi
if [ -e "$PKG_CONFIG_PATH/KivoPlotGtk4.pc" ]; then
    eval "flags=($(pkg-config --cflags --libs KivoPlotGtk4))"
    cc "$root/$consumer/gtk4/main.c" -o "$place/by pkg-config/gtk_consumer" "${flags[@]}"
    LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH") "$root/scripts/with-display.sh" "$place/by pkg-config/gtk_consumer"
fi
