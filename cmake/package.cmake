# The Debian package: `./dev package`. One package holds all that is installed; what it needs at run time is asked of the
# files themselves.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ov-model)
set(CPACK_PACKAGE_VENDOR Orvane)
set(CPACK_PACKAGE_CONTACT "The OV_Model developers <ov-model@example.com>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
    "A library for driver hosts in C++, C and Python that becomes any device which a descriptor database describes,\n\
with its headers, its Python package, its examples, and the tool ovmodel for authors and test engineers.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What a host's compiler and Python need beside it.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libicu-dev, python3")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS graphviz)
include(CPack)
