# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KyMath)

install(
    TARGETS KyMath KyMathStatic
    EXPORT KyMathTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT KyMathTargets NAMESPACE KyMath:: FILE KyMathTargets.cmake DESTINATION ${package_dir})

configure_package_config_file(cmake/KyMathConfig.cmake.in ${PROJECT_BINARY_DIR}/KyMathConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/KyMathConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/KyMathConfig.cmake
              ${PROJECT_BINARY_DIR}/KyMathConfigVersion.cmake DESTINATION ${package_dir})

# The way from the .pc file back to the prefix, so that an installed tree can be moved.
file(RELATIVE_PATH pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/KyMath.pc.in ${PROJECT_BINARY_DIR}/KyMath.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/KyMath.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Debugger views. gdb loads those beside the library, or, for a system's own libraries, from its data
# directory: a file beside those would be found first, and refused.
install(FILES debug/KyMath.natvis DESTINATION ${CMAKE_INSTALL_DATADIR}/KyMath)
install(
    CODE "
    set(libdir \"${CMAKE_INSTALL_LIBDIR}\")
    cmake_path(ABSOLUTE_PATH libdir BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}\")
    set(views_dir \"\${libdir}\")
    if(CMAKE_INSTALL_PREFIX MATCHES \"/usr$\")
        string(REGEX REPLACE \"^.*/usr/\" \"/usr/\" libdir \"\${libdir}\")
        set(views_dir \"\${CMAKE_INSTALL_PREFIX}/share/gdb/auto-load\${libdir}\")
    endif()
    file(INSTALL DESTINATION \"\${views_dir}\" TYPE FILE
         FILES \"$<TARGET_FILE:KyMath>-gdb.py\")")
