# What Debian wants of a package beside its files: the licence, lists of changes, and compressed manual pages. cpack runs
# this on the installed components before it packs them.

# The licence's text, without its title and the line of the copyright, in the form of a field.
file(READ "${CPACK_KIVO_CHECKOUT}/packaging/debian/copyright" copyright)
file(READ "${CPACK_KIVO_CHECKOUT}/LICENSE" licence)
string(REGEX REPLACE "^.*\n(Permission is)" "\\1" licence "${licence}")
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REGEX REPLACE "([^\n]+\n)" " \\1" licence "${licence}")

string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(changes "kivofunctionplotter (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * Packages of ${CPACK_PACKAGE_VERSION}; changelog.gz says what is new in it.

 -- ${CPACK_PACKAGE_CONTACT}  ${now}
")

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" name)
    set(shared_files "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}${CPACK_PACKAGING_INSTALL_PREFIX}/share")
    set(documents "${shared_files}/doc/${CPACK_DEBIAN_${name}_PACKAGE_NAME}")
    file(MAKE_DIRECTORY "${documents}")
    file(WRITE "${documents}/copyright" "${copyright}${licence}")
    file(GLOB_RECURSE manual_pages "${shared_files}/man/*.1")
    file(COPY_FILE "${CPACK_KIVO_CHECKOUT}/CHANGELOG.md" "${documents}/changelog")
    file(WRITE "${documents}/changelog.Debian" "${changes}")
    execute_process(COMMAND gzip --best --no-name --force
            "${documents}/changelog" "${documents}/changelog.Debian" ${manual_pages}
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
