# Where the files of pkg-config say that everything is.

# kivo_pkg_config_places(): sets kivo_pc_dir, where they are installed, and for their templates kivo_pc_prefix, kivo_pc_libdir
# and kivo_pc_includedir. The prefix follows from where the file lies, so that an installation can be moved.
macro(kivo_pkg_config_places)
    set(kivo_pc_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
    cmake_path(APPEND kivo_pc_full_dir "${CMAKE_INSTALL_PREFIX}" "${kivo_pc_dir}")
    cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY "${kivo_pc_full_dir}" OUTPUT_VARIABLE kivo_pc_prefix)
    set(kivo_pc_prefix "\${pcfiledir}/${kivo_pc_prefix}")
    cmake_path(APPEND kivo_pc_libdir "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
    cmake_path(APPEND kivo_pc_includedir "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}")
endmacro()
