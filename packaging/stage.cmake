# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0

# CPack runs this after installing each component in its own folder, before it packs them: adds what
# Debian wants in every package, and the control files of the library.

set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
set(root ${CPACK_TEMPORARY_DIRECTORY})
set(control ${CPACK_TOPLEVEL_DIRECTORY})
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC) # of SOURCE_DATE_EPOCH, if that is set

foreach(component ${CPACK_COMPONENTS_ALL})
    string(TOUPPER ${component} upper)
    set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    set(doc ${root}/${component}/usr/share/doc/${package})
    file(COPY ${CPACK_KYMATH_SOURCE_DIR}/packaging/copyright DESTINATION ${doc})
    file(WRITE ${doc}/changelog.Debian
         "kymath (${version}) unstable; urgency=medium\n\n"
         "  * The changes of this release are in changelog.gz.\n\n"
         " -- ${CPACK_PACKAGE_CONTACT}  ${now}\n")
    file(COPY_FILE ${CPACK_KYMATH_SOURCE_DIR}/CHANGELOG.md ${doc}/changelog)
    execute_process(COMMAND gzip -9n ${doc}/changelog ${doc}/changelog.Debian
                    COMMAND_ERROR_IS_FATAL ANY)
    file(GLOB files ${doc}/copyright ${doc}/changelog*) # whatever modes the sources have
    file(CHMOD ${files} FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endforeach()

# The licence is in Debian's copyright file: links to it lead there.
set(doc ${root}/KyMath_documentation/usr/share/doc/${CPACK_DEBIAN_KYMATH_DOCUMENTATION_PACKAGE_NAME})
foreach(page README.md CONTRIBUTING.md)
    file(READ ${doc}/${page} text)
    string(REPLACE "](LICENSE)" "](copyright)" text "${text}")
    file(WRITE ${doc}/${page} "${text}")
endforeach()

# A package is not moved, and the system's own folder of headers is to be known as such.
file(GLOB pcs ${root}/*_development/usr/lib/*/pkgconfig/*.pc)
foreach(pc IN LISTS pcs)
    file(READ ${pc} text)
    string(REGEX REPLACE "prefix=[^\n]*/\\.\\./[^\n]*" "prefix=/usr" text "${text}")
    file(WRITE ${pc} "${text}")
endforeach()

# Not by CPACK_DEBIAN_PACKAGE_SHLIBDEPS: that would add scripts that call ldconfig besides the trigger.
file(WRITE ${control}/debian/control "Source: kymath\n")
function(find_dependencies component pattern first)
    file(GLOB files ${root}/${component}/usr/lib/${pattern})
    execute_process(COMMAND dpkg-shlibdeps -O ${files} WORKING_DIRECTORY ${control}
                    OUTPUT_VARIABLE depends OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET
                    COMMAND_ERROR_IS_FATAL ANY)
    string(REPLACE "shlibs:Depends=" "${first}" depends "${depends}")
    string(TOUPPER ${component} component)
    set(CPACK_DEBIAN_${component}_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
endfunction()

# Which packages a library needs, and which version of it a program needs: the minor version that the
# program was built with. The symbols are exactly those of tests/abi/exported.txt.
file(STRINGS ${CPACK_KYMATH_SOURCE_DIR}/tests/abi/exported.txt exported)
foreach(library KyMath KyMathLockstep)
    set(runtime ${library}_runtime)
    if(NOT CPACK_COMPONENTS_ALL MATCHES ${runtime})
        continue()
    endif()
    string(TOUPPER ${library} upper)
    set(package ${CPACK_DEBIAN_${upper}_RUNTIME_PACKAGE_NAME})
    set(major ${CPACK_PACKAGE_VERSION_MAJOR})
    set(minor ${major}.${CPACK_PACKAGE_VERSION_MINOR})
    set(files ${control}/${library})
    set(tag ${upper}_${major})
    list(TRANSFORM exported REPLACE "(.+)" " \\1@${tag} ${minor}\n" OUTPUT_VARIABLE names)
    file(WRITE ${files}/names "lib${library}.so.${major} ${package} #MINVER#\n ${tag}@${tag} ${minor}\n" ${names})
    execute_process(COMMAND dpkg-gensymbols -c4 -v${version} -p${package} -P${root}/${runtime}
                            -I${files}/names -O${files}/symbols
                    COMMAND_ERROR_IS_FATAL ANY)
    file(WRITE ${files}/shlibs "lib${library} ${major} ${package} (>= ${minor})\n")
    file(WRITE ${files}/triggers "activate-noawait ldconfig\n")
    set(CPACK_DEBIAN_${upper}_RUNTIME_PACKAGE_CONTROL_EXTRA
        ${files}/symbols ${files}/shlibs ${files}/triggers)
    find_dependencies(${runtime} */lib${library}.so.?.?.? "")
endforeach()

# The module: compiled by Python for Python when it is installed.
if(CPACK_COMPONENTS_ALL MATCHES KyMath_python)
    find_dependencies(KyMath_python python3/dist-packages/kymath/*.so "python3 (>= 3.11), ")
    file(WRITE ${control}/postinst "#!/bin/sh\nset -e\n[ \"$1\" != configure ] || py3compile -p python3-kymath\n")
    file(WRITE ${control}/prerm "#!/bin/sh\nset -e\npy3clean -p python3-kymath\n")
    set(CPACK_DEBIAN_KYMATH_PYTHON_PACKAGE_CONTROL_EXTRA ${control}/postinst ${control}/prerm)
endif()
