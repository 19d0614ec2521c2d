# The bundle goes below lib as it is; what a desktop looks for goes where it looks.
set(AMBREL_DATA ${PROJECT_SOURCE_DIR}/Sources/Ambrel/Resources)
install(DIRECTORY ${PROJECT_BINARY_DIR}/Ambrel.app DESTINATION lib/ambrel USE_SOURCE_PERMISSIONS)
install(FILES ${AMBREL_DATA}/app.ambrel.Ambrel.desktop DESTINATION share/applications)
install(FILES ${AMBREL_DATA}/app.ambrel.Ambrel.metainfo.xml DESTINATION share/metainfo)
foreach(size 16 22 24 32 48 64 128 256 512)
  install(FILES ${AMBREL_DATA}/icon/app.ambrel.Ambrel-${size}.png
    DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME app.ambrel.Ambrel.png)
endforeach()
install(FILES ${AMBREL_DATA}/icon/app.ambrel.Ambrel.svg DESTINATION share/icons/hicolor/scalable/apps)
# These two know where everything goes, which is said as late as at the installation.
install(CODE [[
  set(root "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
  file(MAKE_DIRECTORY "${root}/bin" "${root}/share/dbus-1/services")
  file(CREATE_LINK ../lib/ambrel/Ambrel.app/ambrel "${root}/bin/ambrel" SYMBOLIC)
  file(WRITE "${root}/share/dbus-1/services/app.ambrel.Ambrel.service"
    "[D-BUS Service]\nName=app.ambrel.Ambrel\nExec=${CMAKE_INSTALL_PREFIX}/bin/ambrel\n")
]])

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ambrel)
set(CPACK_PACKAGE_CONTACT "the Ambrel authors <authors@ambrel.app>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Quits applications when their last window closes")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# QML modules are loaded by name, which no linker sees.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qml6-module-qtqml, qml6-module-qtqml-models, qml6-module-qtqml-workerscript, \
qml6-module-qtquick, qml6-module-qtquick-layouts, qml6-module-qtquick-shapes, qml6-module-qtquick-templates, \
qml6-module-qtquick-window")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fonts-inter)
include(CPack)
