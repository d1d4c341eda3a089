# What `cmake --install` and the Debian package put on a machine.
#
# The program keeps its databases in the folder of its own executable, because in an office with several clients
# that folder is shared and all clients meet there. So it is not spread over /usr/bin and /var: everything lies in
# one folder of /opt, which the package's postinst makes writable for the group "tallyboard" and in which it makes
# the databases that do not exist yet. No package step ever removes or overwrites a database.

if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
    set_property(CACHE CMAKE_INSTALL_PREFIX PROPERTY VALUE /opt/tally-board)
endif()

install(TARGETS tallyboard tally-setup tally-sample DESTINATION .)
install(FILES README.md LICENSE DESTINATION .)
install(FILES resources/icons/app.svg DESTINATION . RENAME tallyboard.svg)

# The menu entry is one of the machine, not of the folder: only the package brings it.
configure_file(packaging/tallyboard.desktop.in tallyboard.desktop @ONLY)
configure_file(packaging/postinst.in packaging/postinst @ONLY FILE_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
install(FILES ${PROJECT_BINARY_DIR}/tallyboard.desktop DESTINATION /usr/share/applications
    COMPONENT menu EXCLUDE_FROM_ALL)

set(CPACK_PACKAGE_NAME tally-board)
set(CPACK_PACKAGE_CONTACT "The Tally Board developers <tally-board@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_SET_DESTDIR ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_COMPONENTS_ALL Unspecified menu)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS passwd)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, fonts-crosextra-carlito, libreoffice-calc, libglib2.0-bin")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/packaging/postinst)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
