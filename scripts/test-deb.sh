#!/usr/bin/env bash
# Builds the Debian packages, looks into them, installs them into a root of their own, uses what is there, and removes
# them again: scripts/test-deb.sh
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
PATH=$PATH:/usr/sbin:/sbin
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
version=$(sed -nE 's/^ +VERSION ([0-9.]+)$/\1/p' CMakeLists.txt)
architecture=$(dpkg --print-architecture)
libraries=usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
packages=(libkivofunctionplotter0.1 libkivofunctionplotter-dev kivo-viewer
    libkivofunctionplotter-qt6widgets0.1 libkivofunctionplotter-qt6widgets-dev
    libkivofunctionplotter-qt6quick0.1 libkivofunctionplotter-qt6quick-dev
    libkivofunctionplotter-gtk4-0.1 libkivofunctionplotter-gtk4-dev
    libkivofunctionplotter-wx0.1 libkivofunctionplotter-wx-dev)
packages+=(python3-kivoplot)

fail() {
    echo "$1" >&2
    exit 1
}

build=${KIVO_BUILD:-build-debian} # that of the tests is made for packages, too
[ -n "${KIVO_BUILD:-}" ] || scripts/build.sh debian
rm -f "$build"/*.deb
(cd "$build" && cpack)

# same_files <package> <file>...: it has these, its documents and nothing else.
same_files() {
    local wanted found
    wanted=$(printf './%s\n' "${@:2}" "usr/share/doc/$1/"{changelog.gz,changelog.Debian.gz,copyright} | sort)
    found=$(dpkg-deb --fsys-tarfile "$place/$1.deb" | tar -t | grep -v '/$' | sort)
    diff <(echo "$wanted") <(echo "$found") || fail "$1 has other files"
}

# has_field <package> <field> <pattern>
has_field() {
    local value
    value=$(dpkg-deb --field "$place/$1.deb" "$2")
    grep -qE -- "$3" <<<"$value" || fail "$1: $2 is \"$value\""
}

for package in "${packages[@]}"; do
    cp "$build/${package}_$version-1_$architecture.deb" "$place/$package.deb"
    has_field "$package" Maintainer '^The KivoFunctionPlotter developers <'
    has_field "$package" Version "^$version-1\$"
    odd=$(dpkg-deb --contents "$place/$package.deb" | grep -vE '^(drwxr-xr-x|-rw-r--r--|lrwxrwxrwx) root/root ' |
        grep -v '^-rwxr-xr-x root/root .* ./usr/bin/' || true)
    [ -z "$odd" ] || fail "$package: owners or modes: $odd"
done
same_files libkivofunctionplotter0.1 "$libraries/libKivoFunctionPlotter.so.0.1" \
    "$libraries/libKivoFunctionPlotter.so.$version"
same_files libkivofunctionplotter-dev usr/include/Kivo{Axis,Build,ColorMap,Contours,FunctionPlotter,Host,Legend,Motion,Picture,Platform,PlotView,Points,Style,Surfaces,Types,Version,View,Window}.h \
    "$libraries/libKivoFunctionPlotter.so" "$libraries/pkgconfig/KivoFunctionPlotter.pc" \
    "$libraries"/cmake/KivoFunctionPlotter/KivoFunctionPlotter{Config,ConfigVersion,Targets,Targets-release}.cmake
same_files kivo-viewer usr/bin/kivo-viewer usr/share/applications/kivo-viewer.desktop \
    usr/share/icons/hicolor/scalable/apps/kivo-viewer.svg usr/share/man/man1/kivo-viewer.1.gz
same_files libkivofunctionplotter-qt6widgets0.1 "$libraries/libKivoPlotQt6Widgets.so.0.1" \
    "$libraries/libKivoPlotQt6Widgets.so.$version"
same_files libkivofunctionplotter-qt6widgets-dev usr/include/KivoPlotWidget.h "$libraries/libKivoPlotQt6Widgets.so" \
    "$libraries/qt6/plugins/designer/libkivoplotwidgetplugin.so" \
    "$libraries"/cmake/KivoFunctionPlotter/KivoFunctionPlotter-Qt6Widgets.cmake \
    "$libraries"/cmake/KivoFunctionPlotter/KivoPlotQt6WidgetsTargets{,-release}.cmake
same_files libkivofunctionplotter-qt6quick0.1 "$libraries/libKivoPlotQt6Quick.so.0.1" \
    "$libraries/libKivoPlotQt6Quick.so.$version" "$libraries"/qt6/qml/Kivo/{libkivoplotquickplugin.so,qmldir}
same_files libkivofunctionplotter-qt6quick-dev usr/include/KivoPlotItem.h "$libraries/libKivoPlotQt6Quick.so" \
    "$libraries"/cmake/KivoFunctionPlotter/KivoFunctionPlotter-Qt6Quick.cmake \
    "$libraries"/cmake/KivoFunctionPlotter/KivoPlotQt6QuickTargets{,-release}.cmake
has_field libkivofunctionplotter-qt6quick0.1 Depends "(^|, )libqt6quick6"
has_field libkivofunctionplotter-qt6widgets0.1 Depends "(^|, )libkivofunctionplotter0.1 \(= $version-1\)"
has_field libkivofunctionplotter-qt6widgets0.1 Depends "(^|, )libqt6widgets6"
has_field libkivofunctionplotter-qt6widgets-dev Depends "(^|, )libkivofunctionplotter-qt6widgets0.1 \(= $version-1\)"
same_files libkivofunctionplotter-gtk4-0.1 "$libraries/libKivoPlotGtk4.so.0.1" "$libraries/libKivoPlotGtk4.so.$version" \
    "$libraries/girepository-1.0/Kivo-0.1.typelib"
same_files libkivofunctionplotter-gtk4-dev usr/include/kivoplot.h "$libraries/libKivoPlotGtk4.so" \
    usr/share/gir-1.0/Kivo-0.1.gir "$libraries/pkgconfig/KivoPlotGtk4.pc" \
    "$libraries"/cmake/KivoFunctionPlotter/KivoFunctionPlotter-Gtk4.cmake \
    "$libraries"/cmake/KivoFunctionPlotter/KivoPlotGtk4Targets{,-release}.cmake
has_field libkivofunctionplotter-gtk4-0.1 Depends "(^|, )libkivofunctionplotter0.1 \(= $version-1\)"
has_field libkivofunctionplotter-gtk4-0.1 Depends "(^|, )libgtk-4-1"
has_field libkivofunctionplotter-gtk4-dev Depends "(^|, )libkivofunctionplotter-gtk4-0.1 \(= $version-1\)"
python=usr/lib/python3/dist-packages
module=$python/kivoplot/_kivoplot.$(/usr/bin/python3 -c 'import sysconfig; print(sysconfig.get_config_var("SOABI"))').so
same_files python3-kivoplot "$module" \
    "$python"/kivoplot/{__init__,_arrays,_colors,_files,_plot,_records,_show,qt,tk}.py \
    "$python"/kivoplot/{_kivoplot.pyi,py.typed}
same_files libkivofunctionplotter-wx0.1 "$libraries/libKivoPlotWx.so.0.1" "$libraries/libKivoPlotWx.so.$version"
same_files libkivofunctionplotter-wx-dev usr/include/wxKivoPlot.h "$libraries/libKivoPlotWx.so" \
    "$libraries"/cmake/KivoFunctionPlotter/{KivoFunctionPlotter-Wx,KivoWxTarget,KivoPlotWxTargets{,-release}}.cmake
has_field libkivofunctionplotter-wx0.1 Depends "(^|, )libwxgtk3.2-1"
has_field libkivofunctionplotter-wx-dev Depends "(^|, )libkivofunctionplotter-wx0.1 \(= $version-1\)"
for library in libc6 libegl1 libopengl0 libglu1-mesa libpangocairo-1.0-0 libstdc[+][+]6 libxcb1; do
    has_field libkivofunctionplotter0.1 Depends "(^|, )$library( |,|\$)"
done
has_field libkivofunctionplotter-dev Depends "^libkivofunctionplotter0.1 \(= $version-1\)\$"
for library in "libkivofunctionplotter0.1 \(= $version-1\)" "libkivofunctionplotter-qt6widgets0.1 \(= $version-1\)" \
    libmuparser libqt6gui6 libqt6widgets6 libqt6printsupport6; do
    has_field kivo-viewer Depends "(^|, )$library"
done
for library in "libkivofunctionplotter0.1 \(= $version-1\)" "python3 \(>= 3" "python3 \(<< 3" python3-numpy; do
    has_field python3-kivoplot Depends "(^|, )$library"
done
# What they depend on is there to be installed.
apt-get --quiet=2 --simulate install "$place"/*.deb

# A root that has nothing but dpkg's own records; the linker's cache and what Python compiles are made in it, too.
system=$place/root
mkdir -p "$system"/var/lib/dpkg/{info,updates,triggers} "$system/etc" "$place/bin"
touch "$system/var/lib/dpkg/status"
printf '#!/bin/sh\nexec /sbin/ldconfig -r "$DPKG_ROOT"\n' >"$place/bin/ldconfig"
cat >"$place/bin/py3compile" <<'PROGRAM'
#!/bin/sh
[ "$*" = "-p python3-kivoplot" ] && exec /usr/bin/python3 -m compileall -q "$DPKG_ROOT/usr/lib/python3/dist-packages/kivoplot"
PROGRAM
cat >"$place/bin/py3clean" <<'PROGRAM'
#!/bin/sh
[ "$*" = "-p python3-kivoplot" ] && exec rm -rf "$DPKG_ROOT/usr/lib/python3/dist-packages/kivoplot/__pycache__"
PROGRAM
chmod +x "$place"/bin/*
in_root() {
    PATH=$place/bin:$PATH fakeroot dpkg --root="$system" --log="$place/dpkg.log" --force-not-root \
        --force-script-chrootless --force-depends "$@"
}
in_root --install "$place"/*.deb
[ -z "$(in_root --verify)" ] || fail "files differ from their checksums"
[ -d "$system/$python/kivoplot/__pycache__" ] || fail "the Python module is not compiled"

grep -q "not stripped" <(file "$system/$libraries/libKivoFunctionPlotter.so.$version" "$system/usr/bin/kivo-viewer") &&
    fail "debug information is left"
for program in usr/bin/kivo-viewer "$module"; do
    readelf --dynamic "$system/$program" | grep -E 'RPATH|RUNPATH' && fail "$program has a search path"
done
cmp <(sed -n '/^Permission is/,$p' LICENSE) \
    <(sed -n '/^ Permission is/,$p' "$system/usr/share/doc/kivo-viewer/copyright" | sed 's/^ //; s/^\.$//')
xmllint --noout "$system/usr/share/icons/hicolor/scalable/apps/kivo-viewer.svg"
desktop-file-validate "$system/usr/share/applications/kivo-viewer.desktop"
zgrep -q '^.SH SYNOPSIS' "$system/usr/share/man/man1/kivo-viewer.1.gz"

export LD_LIBRARY_PATH="$system/$libraries"
cmake -S KivoFunctionPlotter/tests/consumer -B "$place/consumer" -G Ninja \
    -DKivoFunctionPlotter_DIR="$system/$libraries/cmake/KivoFunctionPlotter"
cmake --build "$place/consumer"
[ "$(env -u DISPLAY "$place/consumer/consumer")" = "$version" ] || fail "the program says another version"
[ "$("$system/usr/bin/kivo-viewer" --version)" = "kivo-viewer $version" ] || fail "the viewer says another version"
env -u DISPLAY "$system/usr/bin/kivo-viewer" --picture "$place/plot.png" --size 400x300
grep -q 'PNG image data, 400 x 300' <<<"$(file "$place/plot.png")" || fail "the viewer drew no picture"

env -u DISPLAY PYTHONDONTWRITEBYTECODE=1 PYTHONPATH="$system/$python" /usr/bin/python3 - "$place/python.png" <<'PROGRAM'
import sys
import numpy as np, kivoplot as kp
kp.plot(np.eye(9), size=(400, 300)).save(sys.argv[1])
PROGRAM
grep -q 'PNG image data, 400 x 300' <<<"$(file "$place/python.png")" || fail "the Python module drew no picture"

in_root --purge "${packages[@]}"
left=$(find "$system" -mindepth 1 -not -path "$system/var*" -not -path "$system/etc" -not -name ld.so.cache \
    -not -path "$system/var/cache*")
[ -z "$left" ] || fail "left behind: $left"
