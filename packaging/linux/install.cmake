# Installed files and dependencies of the Debian package. dpkg-shlibdeps finds the libraries; the QML modules, which only
# documents name, are listed here.
set(CMAKE_INSTALL_DOCDIR share/doc/vesk-tandry)
include(GNUInstallDirs)

set(application_id com.olmeric.vesktandry)
set(linux_dir "${CMAKE_CURRENT_LIST_DIR}")

install(TARGETS tandry tandry-restore RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "${linux_dir}/${application_id}.desktop" "${linux_dir}/${application_id}.restore.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
configure_file("${linux_dir}/${application_id}.metainfo.xml.in" "${CMAKE_CURRENT_BINARY_DIR}/${application_id}.metainfo.xml" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${application_id}.metainfo.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

# The package's copyright file: the text of LICENSE, its first line the holder, the others indented as Debian wants them.
file(READ "${PROJECT_SOURCE_DIR}/LICENSE" license)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/LICENSE")
string(REGEX MATCH "^Copyright ([^\n]+)\n+(.*[^\n])\n*$" license "${license}")
set(license_holder "${CMAKE_MATCH_1}")
string(REPLACE "\n" "\n " license_terms " ${CMAKE_MATCH_2}")
configure_file("${linux_dir}/copyright.in" "${CMAKE_CURRENT_BINARY_DIR}/copyright" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/copyright" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

install(DIRECTORY "${TANDRY_MANUAL_DIR}/" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

# Debian compresses manual pages and change logs. -n leaves out name and date: the same sources give the same package.
find_program(TANDRY_GZIP gzip REQUIRED)
function(tandry_install_compressed source name folder)
    set(compressed "${CMAKE_CURRENT_BINARY_DIR}/${name}.gz")
    add_custom_command(OUTPUT "${compressed}"
        COMMAND "${TANDRY_GZIP}" -9nc "${source}" > "${compressed}" DEPENDS "${source}" VERBATIM)
    set_property(GLOBAL APPEND PROPERTY TANDRY_COMPRESSED "${compressed}")
    install(FILES "${compressed}" DESTINATION "${folder}")
endfunction()
foreach(page IN ITEMS tandry.1 tandry-restore.1)
    configure_file("${linux_dir}/${page}.in" "${CMAKE_CURRENT_BINARY_DIR}/${page}" @ONLY)
    tandry_install_compressed("${CMAKE_CURRENT_BINARY_DIR}/${page}" ${page} "${CMAKE_INSTALL_MANDIR}/man1")
endforeach()
tandry_install_compressed("${linux_dir}/changelog" changelog.Debian "${CMAKE_INSTALL_DOCDIR}")
tandry_install_compressed("${PROJECT_SOURCE_DIR}/CHANGELOG.md" changelog "${CMAKE_INSTALL_DOCDIR}")
get_property(compressed_files GLOBAL PROPERTY TANDRY_COMPRESSED)
add_custom_target(tandry_package_documents ALL DEPENDS ${compressed_files})

foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
    install(FILES "${linux_dir}/icons/${size}.png"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps" RENAME "${application_id}.png")
endforeach()
install(FILES "${PROJECT_SOURCE_DIR}/src/images/source/tray.svg"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" RENAME "${application_id}.svg")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vesk-tandry)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
# Counts the packages of one version of the program. The Debian release is appended, because each has its own Qt: after an
# upgrade of the system, apt finds the package of the new release.
set(TANDRY_PACKAGE_REVISION 1)
set(release "")
if(EXISTS /etc/os-release)
    file(STRINGS /etc/os-release os_release REGEX "^(ID|VERSION_ID)=")
    if(os_release MATCHES "(^|;)VERSION_ID=\"?([0-9.]+)")
        set(release "${CMAKE_MATCH_2}")
    endif()
    if(release AND os_release MATCHES "(^|;)ID=\"?([a-z]+)")
        string(REPLACE debian deb release "+${CMAKE_MATCH_2}${release}")
    endif()
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE "${TANDRY_PACKAGE_REVISION}${release}")
set(CPACK_PACKAGE_VENDOR Olmeric)
set(CPACK_PACKAGE_CONTACT "Olmeric <${TANDRY_CUSTOMER_EMAIL}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Follow-up of patients in allergy desensitisation")
set(CPACK_PACKAGE_DESCRIPTION
    "A small, always available widget for a physician's practice. It follows
patients through the five steps of the desensitisation pathway and shows
when each of them needs attention next. The user interface is in French.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES TRUE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    qml-module-qtquick2 qml-module-qtquick-controls qml-module-qtquick-localstorage qml-module-qtquick-window2
    libqt5sql5-sqlite "fonts-liberation | fonts-liberation2")
list(JOIN CPACK_DEBIAN_PACKAGE_DEPENDS ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, qtwayland5")
include(CPack)
