"""Runs what of the recipe needs no Conan, with stand-ins for Conan's modules: offline_check.py <folder>

The files that the recipe exports are copied to the folder; the recipe's version is printed, then the CMake variables that
it sets, one in a line.
"""
import fnmatch
import importlib.util
import os
import shutil
import sys
import types


def copy(_recipe, pattern, source, destination, excludes=()):
    for folder, _, names in os.walk(source):
        for name in names:
            path = os.path.relpath(os.path.join(folder, name), source)
            if fnmatch.fnmatch(path, pattern) and not any(fnmatch.fnmatch(path, other) for other in excludes):
                target = os.path.join(destination, path)
                os.makedirs(os.path.dirname(target), exist_ok=True)
                shutil.copy(os.path.join(folder, name), target)


def load(_recipe, path):
    with open(path, encoding="utf-8") as file:
        return file.read()


class Toolchain:
    def __init__(self, _recipe):
        self.cache_variables = {}

    def generate(self):
        for name, value in self.cache_variables.items():
            print(f"-D{name}={'ON' if value else 'OFF'}")


def stand_in(name, **attributes):
    module = types.ModuleType(name)
    module.__dict__.update(attributes)
    sys.modules[name] = module


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    stand_in("conan", ConanFile=object)
    stand_in("conan.errors", ConanInvalidConfiguration=ValueError)
    stand_in("conan.tools")
    stand_in("conan.tools.build", check_min_cppstd=None)
    stand_in("conan.tools.cmake", CMake=None, CMakeToolchain=Toolchain, cmake_layout=None)
    stand_in("conan.tools.files", copy=copy, load=load)
    stand_in("conan.tools.system")
    stand_in("conan.tools.system.package_manager", Apt=None)
    found = importlib.util.spec_from_file_location("recipe", os.path.join(here, "conanfile.py"))
    module = importlib.util.module_from_spec(found)
    found.loader.exec_module(module)

    recipe = module.KivoFunctionPlotterRecipe()
    recipe.recipe_folder = here
    recipe.export_sources_folder = sys.argv[1]
    recipe.set_version()
    print(recipe.version)
    recipe.export_sources()
    recipe.generate()


if __name__ == "__main__":
    main()
