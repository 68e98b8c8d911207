"""Builds the checkout that this recipe lies in."""
import os
import re

from conan import ConanFile
from conan.errors import ConanInvalidConfiguration
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load
from conan.tools.system.package_manager import Apt


class KivoFunctionPlotterRecipe(ConanFile):
    name = "kivofunctionplotter"
    description = "An interactive 3-D plot of z = f(x, y) for somebody else's desktop program"
    license = "MIT"
    topics = ("plot", "3d", "surface", "opengl")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "fPIC": [True, False]}
    default_options = {"shared": True, "fPIC": True}
    implements = ["auto_shared_fpic"]

    @property
    def _checkout(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def set_version(self):
        project = load(self, os.path.join(self._checkout, "CMakeLists.txt"))
        self.version = re.search(r"^ +VERSION ([0-9.]+)$", project, re.MULTILINE).group(1)

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "LICENSE", "LICENSES/*", "cmake/*", "KivoFunctionPlotter/*",
                        "controls/core/*", "controls/win32/*"):
            copy(self, pattern, self._checkout, self.export_sources_folder, excludes=("*/tests/*", "*/benchmarks/*", "*/abi/*"))

    def validate(self):
        check_min_cppstd(self, 17)
        if self.settings.os not in ("Linux", "Windows") or self.settings.compiler not in ("gcc", "clang"):
            raise ConanInvalidConfiguration("it is built by GCC or Clang, for Linux or Windows (MinGW)")

    def system_requirements(self):
        # OpenGL comes with the driver and fonts with the desktop; Pango and XCB are those that know them.
        development = ["libegl-dev", "libopengl-dev", "libglu1-mesa-dev", "libxcb1-dev", "libpango1.0-dev", "pkg-config"]
        Apt(self).install(development)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        for part in ("TESTS", "EXAMPLES", "VIEWER", "CONTROLS"):
            toolchain.cache_variables[f"KIVO_BUILD_{part}"] = False
        toolchain.cache_variables["KIVO_WARNINGS_AS_ERRORS"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        for pattern in ("LICENSE", "LICENSES/*"):
            copy(self, pattern, self.source_folder, os.path.join(self.package_folder, "licenses"))
        CMake(self).install()

    def package_info(self):
        # CMake finds the package's own description of itself.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs.append(os.path.join("lib", "cmake", "KivoFunctionPlotter"))
        self.cpp_info.libs = ["KivoFunctionPlotter"]
        if self.options.shared:
            return
        self.cpp_info.defines = ["KIVO_STATIC"]
        if self.settings.os == "Windows":
            self.cpp_info.system_libs = ["opengl32", "glu32", "gdi32", "user32", "ssp"]
        else:
            self.cpp_info.system_libs = ["GLU", "OpenGL", "EGL", "dl", "xcb", "pangocairo-1.0", "pango-1.0", "cairo",
                                         "gobject-2.0", "glib-2.0"]
