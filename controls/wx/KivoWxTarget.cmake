# What find_package(wxWidgets) has found, as a target.
if(NOT TARGET KivoWx::wxWidgets)
    add_library(KivoWx::wxWidgets INTERFACE IMPORTED GLOBAL)
    set_target_properties(KivoWx::wxWidgets PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES "${wxWidgets_INCLUDE_DIRS}"
        INTERFACE_COMPILE_DEFINITIONS "${wxWidgets_DEFINITIONS}"
        INTERFACE_COMPILE_OPTIONS "${wxWidgets_CXX_FLAGS}"
        INTERFACE_LINK_LIBRARIES "${wxWidgets_LIBRARIES}")
endif()
