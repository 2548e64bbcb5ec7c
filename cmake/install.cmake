# What is installed. The prefix may be chosen as late as then, so nothing here depends on it.
include(CMakePackageConfigHelpers)

set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Brindle)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS BrindleDrv EXPORT BrindleTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES include/brindle/brindle.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/brindle)
if(BRINDLE_COMMAND)
    install(TARGETS brindle RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES docs/man/brindle.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES completions/brindle.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME brindle)
    install(FILES completions/_brindle DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
endif()
if(BRINDLE_EDITOR)
    install(TARGETS BrindleEditor LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/brindle)
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

install(FILES python/brindle.py DESTINATION ${CMAKE_INSTALL_DATADIR}/brindle/python)

install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR}
    PATTERN man EXCLUDE PATTERN __pycache__ EXCLUDE)
