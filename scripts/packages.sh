# The Debian packages that this project needs, and their installation. To be sourced.

# What building and running the library and the viewer takes.
kivo_run_packages=(
    g++ cmake ninja-build pkg-config
    libegl-dev libgl-dev libopengl-dev libglu1-mesa-dev libxcb1-dev libpango1.0-dev
    qt6-base-dev qt6-wayland qt6-tools-dev qt6-l10n-tools qt6-translations-l10n libmuparser-dev libcli11-dev libboost-dev libpng-dev libgdal-dev
    libgl1-mesa-dri libegl1 libegl-mesa0 libgl1
    fonts-dejavu-core fonts-liberation fonts-vlgothic)

# What the tests take on top of that.
kivo_test_packages=(
    libgtest-dev libgmock-dev googletest clang-format clang-tidy doxygen git
    libx11-dev libxcb-xtest0-dev xvfb
    libgtk-3-dev libgtk-4-dev gobject-introspection gir1.2-gtk-4.0 python3-gi libqt6opengl6-dev
    qt6-declarative-dev qml6-module-qtquick qml6-module-qtquick-window qml6-module-qtqml qml6-module-qtqml-workerscript
    libwxgtk3.2-dev libglfw3-dev libsdl2-dev libfltk1.3-dev weston xwayland
    wine wine64 g++-mingw-w64-x86-64
    python3-dev pybind11-dev python3-numpy python3-pil python3-pytest mypy python3-pyqt6 python3-tk python3-pil.imagetk
    python3-setuptools python3-wheel python3-pip python3-venv
    dpkg-dev fakeroot file desktop-file-utils libxml2-utils abigail-tools valgrind locales python3)

# What the benchmarks take on top of what the library takes; other libraries to compare with are optional.
kivo_benchmark_packages=(libbenchmark-dev python3-matplotlib xvfb)

# install_packages <name>...: installs those that are missing, or says what to do.
install_packages() {
    local missing=() name
    for name in "$@"; do
        [ "$(dpkg-query --show --showformat='${Status}' "$name" 2>/dev/null)" = 'install ok installed' ] ||
            missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! sudo -n true 2>/dev/null; then
            printf '%s\n' "Some packages are missing, and installing them needs root. Run this as root, then try again:" \
                "  apt-get install --no-install-recommends ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo -n)
    fi
    printf 'Installing %s\n' "${missing[*]}" >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq >&2 &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}
