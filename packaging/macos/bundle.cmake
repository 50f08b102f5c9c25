# Builds the program as a bundle that contains the update framework. packaging/macos/make-bundle adds Qt's frameworks,
# the signatures and the disk image.
set(bundle_contents "$<TARGET_BUNDLE_CONTENT_DIR:tandry>")

set_target_properties(tandry PROPERTIES
    MACOSX_BUNDLE TRUE
    MACOSX_BUNDLE_INFO_PLIST "${CMAKE_CURRENT_BINARY_DIR}/Info.plist"
    BUILD_RPATH "@executable_path/../Frameworks"
    INSTALL_RPATH "@executable_path/../Frameworks")

find_library(TANDRY_SPARKLE_FRAMEWORK Sparkle REQUIRED)
add_custom_command(TARGET tandry POST_BUILD
    COMMAND ditto "${TANDRY_SPARKLE_FRAMEWORK}" "${bundle_contents}/Frameworks/Sparkle.framework"
    COMMENT "Embedding the update framework")

# tandry-restore, which finds the same data folder from inside the bundle, and the manual.
add_dependencies(tandry tandry-restore tandry_manual)
add_custom_command(TARGET tandry POST_BUILD
    COMMAND "${CMAKE_COMMAND}" -E copy "$<TARGET_FILE:tandry-restore>" "${bundle_contents}/MacOS/tandry-restore"
    COMMAND "${CMAKE_COMMAND}" -E copy_directory "${TANDRY_MANUAL_DIR}" "${bundle_contents}/Resources/manuel"
    COMMENT "Adding the second program and the manual")

# scripts/render-pictures renders the icon from the drawing of the tray icon.
target_sources(tandry PRIVATE "${CMAKE_CURRENT_LIST_DIR}/tandry.icns")
set_source_files_properties("${CMAKE_CURRENT_LIST_DIR}/tandry.icns"
    TARGET_DIRECTORY tandry PROPERTIES MACOSX_PACKAGE_LOCATION Resources)

install(TARGETS tandry BUNDLE DESTINATION .)
