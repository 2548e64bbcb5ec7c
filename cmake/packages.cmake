# What `make install` and `make package` put in place. The prefix may be chosen at either, so nothing here depends on it.
include(CMakePackageConfigHelpers)

set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Configurable NC post-processor for flat cutting jobs")
set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Brindle)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS BrindleDrv EXPORT BrindleTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES include/brindle/brindle.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/brindle)
install(TARGETS brindle RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET BrindleEditor)
    # The library looks for it beside itself.
    install(TARGETS BrindleEditor LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()

# find_package(Brindle) gives the target Brindle::BrindleDrv.
install(EXPORT BrindleTargets NAMESPACE Brindle:: DESTINATION ${config_folder})
configure_package_config_file(cmake/BrindleConfig.cmake.in ${PROJECT_BINARY_DIR}/BrindleConfig.cmake
    INSTALL_DESTINATION ${config_folder} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/BrindleConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/BrindleConfig.cmake ${PROJECT_BINARY_DIR}/BrindleConfigVersion.cmake
    DESTINATION ${config_folder})

file(RELATIVE_PATH prefix_from_pc /${pkgconfig_folder} /)
configure_file(cmake/brindle.pc.in brindle.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/brindle.pc DESTINATION ${pkgconfig_folder})

install(FILES docs/man/brindle.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES completions/brindle.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME brindle)
install(FILES completions/_brindle DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(FILES python/brindle.py DESTINATION ${CMAKE_INSTALL_DATADIR}/brindle/python)

install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR}
    PATTERN man EXCLUDE PATTERN __pycache__ EXCLUDE)

# `make package`: a Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brindle)
set(CPACK_PACKAGE_VENDOR "Brindle developers")
set(CPACK_PACKAGE_CONTACT "Brindle developers <developers@brindle.invalid>")
set(CPACK_PACKAGE_DESCRIPTION
    "Brindle turns drawings of flat cutting jobs into NC programs for any controller, which a tuning file describes. This
package holds the command, the library with its header, and the editor of tunings.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
find_program(FILE_TYPES file) # which the search for dependencies needs too
if(DPKG_SHLIBDEPS AND FILE_TYPES)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
else()
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libstdc++6, libgcc-s1, libmuparser2v5, libcairo2")
    if(TARGET BrindleEditor)
        string(APPEND CPACK_DEBIAN_PACKAGE_DEPENDS ", libqt6widgets6")
    endif()
endif()
include(CPack)
