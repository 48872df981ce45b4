# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# What programs need to run, what is needed to build them, and, only on request, the documentation.
set(development COMPONENT KyMath_development)
set(documentation COMPONENT KyMath_documentation EXCLUDE_FROM_ALL)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KyMath)

# Both libraries have the same headers, installed with the first.
set(libraries KyMath)
if(KYMATH_LOCKSTEP)
    list(APPEND libraries KyMathLockstep)
endif()
set(excluded "")
foreach(library IN LISTS libraries)
    install(
        TARGETS ${library}
        EXPORT ${library}Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${library}_runtime
                NAMELINK_COMPONENT ${library}_development
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${development} ${excluded})
    set(excluded EXCLUDE_FROM_ALL)
    install(
        TARGETS ${library}Static
        EXPORT ${library}Targets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${library}_development
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${development} ${excluded})
    install(TARGETS ${library}Inline EXPORT ${library}Targets)
    install(EXPORT ${library}Targets NAMESPACE KyMath:: DESTINATION ${package_dir}
            COMPONENT ${library}_development)
endforeach()

write_basic_package_version_file(${PROJECT_BINARY_DIR}/KyMathConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES cmake/KyMathConfig.cmake ${PROJECT_BINARY_DIR}/KyMathConfigVersion.cmake
        DESTINATION ${package_dir} ${development})

# The path from the .pc file back to the prefix, so that an installed tree can be moved.
file(RELATIVE_PATH pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
foreach(library IN LISTS libraries)
    set(pc_requirement -lm)
    set(pc_name KyMath)
    if(library STREQUAL "KyMathLockstep")
        set(pc_requirement "-lsleef -lm")
        set(pc_name KyMath-lockstep)
    endif()
    configure_file(cmake/KyMath.pc.in ${PROJECT_BINARY_DIR}/${pc_name}.pc @ONLY)
    configure_file(cmake/KyMath-inline.pc.in ${PROJECT_BINARY_DIR}/${pc_name}-inline.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${pc_name}.pc ${PROJECT_BINARY_DIR}/${pc_name}-inline.pc
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${library}_development)
endforeach()

# Debugger views. gdb loads those beside the library, or, for a library of the system, from its data
# directory: there, a file beside the library would be found first, and refused.
install(FILES debug/KyMath.natvis DESTINATION ${CMAKE_INSTALL_DATADIR}/KyMath ${development})
foreach(library IN LISTS libraries)
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
         FILES \"$<TARGET_FILE:${library}>-gdb.py\")"
        COMPONENT ${library}_runtime)
endforeach()

# The same folders as in the sources, so that pages find their pictures.
install(FILES README.md CHANGELOG.md CONTRIBUTING.md SECURITY.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR} ${documentation})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} ${documentation}
        FILES_MATCHING PATTERN *.md PATTERN *.png PATTERN *.svg)
install(FILES tests/coverage/unreachable.txt DESTINATION ${CMAKE_INSTALL_DOCDIR}/tests/coverage
        ${documentation})
install(FILES tests/memory/ignored.txt DESTINATION ${CMAKE_INSTALL_DOCDIR}/tests/memory
        ${documentation})
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} ${documentation})
install(DIRECTORY build/docs/html DESTINATION ${CMAKE_INSTALL_DOCDIR} ${documentation} OPTIONAL)
