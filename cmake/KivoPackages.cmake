# Debian packages, made by cpack: the library, what building with it takes, and the viewer. The preset debian configures
# a build for them.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kivofunctionplotter)
set(CPACK_PACKAGE_VENDOR "The KivoFunctionPlotter developers")
set(CPACK_PACKAGE_CONTACT "The KivoFunctionPlotter developers <developers@kivofunctionplotter.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/KivoPackageDocuments.cmake")
set(CPACK_KIVO_CHECKOUT "${PROJECT_SOURCE_DIR}")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_COMPONENTS_ALL development)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkivofunctionplotter-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "interactive 3-D plot of a surface, for building programs
A C++ class that plots a surface z = f(x, y) in a window of the host program.

This package has the headers and the files for CMake and pkg-config.")

if(BUILD_SHARED_LIBS)
    # Where packages find the libraries of the others.
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
        "${PROJECT_BINARY_DIR}/KivoFunctionPlotter" "${PROJECT_BINARY_DIR}/controls/qt")
    set(version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
    list(APPEND CPACK_COMPONENTS_ALL runtime)
    set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libkivofunctionplotter${version})
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
    set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/debian/triggers")
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "fonts-liberation | fonts-dejavu-core")
    set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "interactive 3-D plot of a surface, shared library
A C++ class that plots a surface z = f(x, y) in a window of the host program,
with axes, contours, curves and measure points, or off-screen.")
else()
    # Whoever links the static library links these.
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
        "libegl-dev, libopengl-dev, libglu1-mesa-dev, libxcb1-dev, libpango1.0-dev")
endif()

if(KIVO_BUILD_VIEWER)
    list(APPEND CPACK_COMPONENTS_ALL viewer)
    set(CPACK_DEBIAN_VIEWER_PACKAGE_NAME kivo-viewer)
    set(CPACK_DEBIAN_VIEWER_PACKAGE_SECTION science)
    set(CPACK_DEBIAN_VIEWER_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_VIEWER_PACKAGE_RECOMMENDS "qt6-wayland, qt6-translations-l10n")
    set(CPACK_DEBIAN_VIEWER_DESCRIPTION "viewer of surfaces z = f(x, y)
Shows grids from files or formulas as lit 3-D surfaces with axes, contours,
curves and measure points, and draws pictures of them without a display.")
    if(BUILD_SHARED_LIBS)
        set(CPACK_COMPONENT_VIEWER_DEPENDS runtime qt6widgets)
    endif()
endif()

if(KIVO_BUILD_PYTHON)
    list(APPEND CPACK_COMPONENTS_ALL python)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-kivoplot)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS ON)
    # The compiled module is for this one version of Python.
    math(EXPR next_python "${Python_VERSION_MINOR} + 1")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
        "python3 (>= 3.${Python_VERSION_MINOR}), python3 (<< 3.${next_python}), python3-numpy")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
        "${PROJECT_SOURCE_DIR}/packaging/debian/python/postinst" "${PROJECT_SOURCE_DIR}/packaging/debian/python/prerm")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS "python3-pil")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-pyqt6, python3-tk")
    set(CPACK_DEBIAN_PYTHON_DESCRIPTION "interactive 3-D plot of a surface, Python module
Surfaces z = f(x, y) from NumPy arrays, as pictures and in windows of PyQt6
and tkinter.")
    if(BUILD_SHARED_LIBS)
        set(CPACK_COMPONENT_PYTHON_DEPENDS runtime)
    endif()
endif()

# The controls: a library, and what building with it takes.
foreach(component IN LISTS kivo_control_components)
    string(TOLOWER ${component} lower)
    string(TOUPPER ${lower} upper)
    list(APPEND CPACK_COMPONENTS_ALL ${lower}-development)
    set(CPACK_DEBIAN_${upper}-DEVELOPMENT_PACKAGE_NAME libkivofunctionplotter-${lower}-dev)
    set(CPACK_DEBIAN_${upper}-DEVELOPMENT_PACKAGE_SECTION libdevel)
    list(JOIN kivo_control_${component}_packages ", " CPACK_DEBIAN_${upper}-DEVELOPMENT_PACKAGE_DEPENDS)
    set(CPACK_COMPONENT_${upper}-DEVELOPMENT_DEPENDS development)
    set(CPACK_DEBIAN_${upper}-DEVELOPMENT_DESCRIPTION "interactive 3-D plot, control for ${kivo_control_${component}_toolkit}, for building programs
A ready-made control that shows a surface z = f(x, y) in a program.

This package has the headers and the files for CMake.")
    if(BUILD_SHARED_LIBS)
        list(APPEND CPACK_COMPONENTS_ALL ${lower})
        set(CPACK_COMPONENT_${upper}-DEVELOPMENT_DEPENDS development ${lower})
        set(CPACK_COMPONENT_${upper}_DEPENDS runtime)
        # A digit and the version's are told apart.
        string(REGEX REPLACE "([0-9])$" "\\1-" name "${lower}")
        set(CPACK_DEBIAN_${upper}_PACKAGE_NAME libkivofunctionplotter-${name}${version})
        set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION libs)
        set(CPACK_DEBIAN_${upper}_PACKAGE_SHLIBDEPS ON)
        set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/debian/triggers")
        set(CPACK_DEBIAN_${upper}_DESCRIPTION "interactive 3-D plot, control for ${kivo_control_${component}_toolkit}
A ready-made control that shows a surface z = f(x, y) in a program.")
    endif()
endforeach()

include(CPack)
