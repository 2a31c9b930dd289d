# What is installed where, and the two Debian packages of it. The programs find their parts by where they lie
# themselves, so that the whole can be moved.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(parts ${CMAKE_INSTALL_LIBDIR}/korvanta)
set(shared ${CMAKE_INSTALL_DATADIR}/korvanta)

# --- korvanta ------------------------------------------------------------------------------------------------
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME runtime)
set_target_properties(korvanta-host korvanta-play PROPERTIES INSTALL_RPATH "$ORIGIN/../${parts}")
set_target_properties(data widgets sharedforms PaymentKorvanta PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS korvanta-host korvanta-play RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS data widgets sharedforms EXPORT Korvanta LIBRARY DESTINATION ${parts})
install(TARGETS PaymentKorvanta LIBRARY DESTINATION ${parts})
foreach(companion RowSieve RowSeek ReportSetup SheetOut SheetOut1)
    set_target_properties(${companion} PROPERTIES INSTALL_RPATH "$ORIGIN/../..")
    install(TARGETS ${companion} LIBRARY DESTINATION ${parts}/DLLS/SharedForms)
endforeach()
install(DIRECTORY ${CMAKE_BINARY_DIR}/Help schema DESTINATION ${shared})
install(FILES packaging/korvanta.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/korvanta.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/korvanta-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME korvanta.xml)
install(FILES packaging/korvanta.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# Compressed as the packages' policy has it: the same bytes from the same text.
foreach(text man/korvanta-host.1 man/korvanta-play.1 changelog)
    set(packed ${CMAKE_BINARY_DIR}/packed/${text}.gz)
    add_custom_command(OUTPUT ${packed} DEPENDS packaging/${text}
                       COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packed/man
                       COMMAND gzip -9nc ${CMAKE_SOURCE_DIR}/packaging/${text} > ${packed})
    list(APPEND packed_texts ${packed})
endforeach()
add_custom_target(packed-texts ALL DEPENDS ${packed_texts})
install(FILES ${CMAKE_BINARY_DIR}/packed/man/korvanta-host.1.gz ${CMAKE_BINARY_DIR}/packed/man/korvanta-play.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/packed/changelog.gz RENAME changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/korvanta)
install(FILES packaging/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/korvanta)

# --- libpaymentkorvanta-dev ----------------------------------------------------------------------------------
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME dev)
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/korvanta)
set(docs ${CMAKE_INSTALL_DATADIR}/doc/libpaymentkorvanta-dev)
install(TARGETS tsql EXPORT Korvanta ARCHIVE DESTINATION ${parts})
install(FILES src/shell/PaymentKorvanta.h src/services/ModuleVariables.h src/data/CodePage.h src/data/Connection.h
              src/data/Dataset.h src/data/Errors.h src/data/HostContext.h src/data/Query.h
              src/data/tsql/Embedded.h src/widgets/Components.h src/widgets/EventBoundary.h src/widgets/Form.h
              src/sharedforms/CompanionEntries.h src/sharedforms/DlgMsg.h src/sharedforms/TempGridForm.h
        DESTINATION ${headers})
set(config ${CMAKE_INSTALL_LIBDIR}/cmake/Korvanta)
install(EXPORT Korvanta FILE KorvantaTargets.cmake NAMESPACE Korvanta:: DESTINATION ${config})
configure_package_config_file(packaging/KorvantaConfig.cmake.in ${CMAKE_BINARY_DIR}/KorvantaConfig.cmake
                              INSTALL_DESTINATION ${config} PATH_VARS parts)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/KorvantaConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/KorvantaConfig.cmake ${CMAKE_BINARY_DIR}/KorvantaConfigVersion.cmake
        DESTINATION ${config})
install(DIRECTORY packaging/example/ DESTINATION ${docs}/examples/host)
install(FILES ${CMAKE_BINARY_DIR}/packed/changelog.gz RENAME changelog.Debian.gz DESTINATION ${docs})
install(FILES packaging/copyright DESTINATION ${docs})

# --- packages ------------------------------------------------------------------------------------------------
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korvanta)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Korvanta <packages@korvanta.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL runtime dev)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME korvanta)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "payroll base information of an accounting suite
One right-to-left Persian window in which a payroll operator keeps what the
monthly payroll is computed from: pay items, loans, coefficient tables,
insurance schemes, tax brackets, code lists, cost centres, banks, and the
layouts of the files sent to outside bodies. A company is a file or a
database on SQL Server.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-dejavu-core")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS "tdsodbc")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libpaymentkorvanta-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEV_DESCRIPTION "payroll base information - for hosts of the module
The entry header of the loadable module, the headers of what a host hands to
it, a CMake package, and an example host.")
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
    "korvanta (= ${PROJECT_VERSION}-1), qt6-base-dev, libicu-dev, libsqlite3-dev, pkg-config, cmake")
set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF)
include(CPack)
