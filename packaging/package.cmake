# The Debian package: `cpack` in the build folder makes it, ./package also checks it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${KORVANE_MAINTAINER})
set(CPACK_PACKAGE_HOMEPAGE_URL ${KORVANE_HOMEPAGE})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for the 3D models of a game")
set(CPACK_PACKAGE_DESCRIPTION
"Opens dotXSI and DirectX text models, shows their frames, meshes and
materials, draws them and saves dotXSI. Frames, materials, textures and
texture coordinates are edited with unlimited undo and copied between models.
.
The 3D view needs no graphics card. The companion program korvane-tool
inspects, checks, converts and draws models without a window.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/package)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# on a Wayland desktop, the toolkit loads its plugin by name, which the automatic dependencies miss
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-wayland)

# adapts what `cmake --install` has installed to Debian
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/debian.cmake)
set(CPACK_RELEASE_DATE ${RELEASE_DATE})
include(CPack)
