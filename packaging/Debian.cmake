# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0

# Debian packages, one for each component that is installed. scripts/package.sh builds and tests them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL KyMath_runtime KyMath_development KyMath_documentation)
if(KYMATH_LOCKSTEP)
    list(APPEND CPACK_COMPONENTS_ALL KyMathLockstep_runtime KyMathLockstep_development)
endif()
if(KYMATH_PYTHON)
    list(APPEND CPACK_COMPONENTS_ALL KyMath_python)
endif()
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/stage.cmake)
set(CPACK_KYMATH_SOURCE_DIR ${PROJECT_SOURCE_DIR})

set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each description begins with its own
set(CPACK_DEBIAN_PACKAGE_SOURCE kymath)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(what "Vectors, 4x4 matrices and the transformations built from them, quaternions,
Euler angles, rigid transforms, boxes, spheres, planes, convex polytopes, view
frusta, lines and sampled curves. Every function gives the same bits in every
build, whatever the flags of a program that uses it.
")

set(CPACK_DEBIAN_KYMATH_RUNTIME_PACKAGE_NAME libkymath${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_KYMATH_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_KYMATH_RUNTIME_DESCRIPTION "3-D geometry, exact to the last bit\n${what}
This package contains the shared library, and views of its types for gdb.")

set(CPACK_COMPONENT_KYMATH_DEVELOPMENT_DEPENDS KyMath_runtime)
set(CPACK_DEBIAN_KYMATH_DEVELOPMENT_PACKAGE_NAME libkymath-dev)
set(CPACK_DEBIAN_KYMATH_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_KYMATH_DEVELOPMENT_PACKAGE_DEPENDS "libc6-dev, g++ | libstdc++-dev")
set(CPACK_DEBIAN_KYMATH_DEVELOPMENT_PACKAGE_SUGGESTS libkymath-doc)
set(CPACK_DEBIAN_KYMATH_DEVELOPMENT_DESCRIPTION
    "3-D geometry, exact to the last bit (development files)\n${what}
This package contains the headers, the archive, and files for CMake,
pkg-config and debuggers that read natvis.")

set(lockstep "${what}This library takes its trigonometry from SLEEF: the same bits on every
processor and with every C library.
")

set(CPACK_DEBIAN_KYMATHLOCKSTEP_RUNTIME_PACKAGE_NAME libkymathlockstep${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_KYMATHLOCKSTEP_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_KYMATHLOCKSTEP_RUNTIME_DESCRIPTION
    "3-D geometry, exact to the last bit everywhere\n${lockstep}
This package contains the shared library, and views of its types for gdb.")

set(CPACK_COMPONENT_KYMATHLOCKSTEP_DEVELOPMENT_DEPENDS KyMathLockstep_runtime KyMath_development)
set(CPACK_DEBIAN_KYMATHLOCKSTEP_DEVELOPMENT_PACKAGE_NAME libkymathlockstep-dev)
set(CPACK_DEBIAN_KYMATHLOCKSTEP_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_KYMATHLOCKSTEP_DEVELOPMENT_PACKAGE_DEPENDS libsleef-dev)
set(CPACK_DEBIAN_KYMATHLOCKSTEP_DEVELOPMENT_PACKAGE_SUGGESTS libkymath-doc)
set(CPACK_DEBIAN_KYMATHLOCKSTEP_DEVELOPMENT_DESCRIPTION
    "3-D geometry, exact to the last bit everywhere (development files)\n${lockstep}
This package contains the archive, and files for CMake and pkg-config. The
headers are those of libkymath-dev.")

set(CPACK_DEBIAN_KYMATH_DOCUMENTATION_PACKAGE_NAME libkymath-doc)
set(CPACK_DEBIAN_KYMATH_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_KYMATH_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_KYMATH_DOCUMENTATION_DESCRIPTION
    "3-D geometry, exact to the last bit (documentation)\n${what}
This package contains the manual and example programs.")

set(CPACK_DEBIAN_KYMATH_PYTHON_PACKAGE_NAME python3-kymath)
set(CPACK_DEBIAN_KYMATH_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_KYMATH_PYTHON_PACKAGE_RECOMMENDS python3-numpy)
set(CPACK_DEBIAN_KYMATH_PYTHON_DESCRIPTION "3-D geometry, exact to the last bit (Python)\n${what}
This package contains the Python module kymath, and the library in it.
Functions on arrays need numpy.")

include(CPack)
