# Two layouts. Beside each other: lib/tremlo holds the programs with their table folders, in a folder that its user can
# write to, where the tables can be replaced and answers of the services are kept; bin holds links only. The system's
# (TREMLO_SYSTEM_LAYOUT): programs in bin, tables in share/tremlo, which nobody but a package changes.
set(TREMLO_INSTALL_DIR ${CMAKE_INSTALL_LIBDIR}/tremlo)
if(CMAKE_INSTALL_LIBDIR MATCHES "/")
  # Debian's default names the architecture; the folder of one user's program has no need of it.
  set(TREMLO_INSTALL_DIR lib/tremlo)
endif()
set(TREMLO_TABLE_INSTALL_DIR ${TREMLO_INSTALL_DIR})
if(TREMLO_SYSTEM_LAYOUT)
  set(TREMLO_INSTALL_DIR ${CMAKE_INSTALL_BINDIR})
  set(TREMLO_TABLE_INSTALL_DIR share/tremlo)
endif()

install(TARGETS ${TREMLO_PROGRAMS} RUNTIME DESTINATION ${TREMLO_INSTALL_DIR})
# What code puts in place goes into the list of the installed files like the rest.
install(CODE "
  set(FROM \"${PROJECT_SOURCE_DIR}/data\")
  set(TO \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${TREMLO_TABLE_INSTALL_DIR}\")
  include(\"${PROJECT_SOURCE_DIR}/cmake/CopyTables.cmake\")
  list(TRANSFORM PLACED PREPEND \"\${CMAKE_INSTALL_PREFIX}/${TREMLO_TABLE_INSTALL_DIR}/\")
  list(APPEND CMAKE_INSTALL_MANIFEST_FILES \${PLACED})")

if(NOT TREMLO_SYSTEM_LAYOUT)
  foreach(program IN LISTS TREMLO_PROGRAMS)
    install(CODE "
      set(link \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/${program}\")
      file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
      file(CREATE_LINK \"../${TREMLO_INSTALL_DIR}/${program}\" \"\$ENV{DESTDIR}\${link}\" SYMBOLIC)
      list(APPEND CMAKE_INSTALL_MANIFEST_FILES \"\${link}\")
      message(STATUS \"Installing: \$ENV{DESTDIR}\${link}\")")
  endforeach()
endif()

# The manual and the table of its pages, where they have been built.
install(DIRECTORY ${TREMLO_TABLE_DIR}/SystemData DESTINATION ${TREMLO_TABLE_INSTALL_DIR}
  FILES_MATCHING PATTERN "manual*")

# The worked example of the manual, and what its other commands read.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples/ DESTINATION share/doc/tremlo/examples)

set(docs ${PROJECT_SOURCE_DIR}/docs)
set(desktop ${PROJECT_SOURCE_DIR}/data/desktop)
install(FILES ${docs}/tremlo-cli.1 DESTINATION share/man/man1)
install(FILES ${docs}/tremlo-cli.bash DESTINATION share/bash-completion/completions RENAME tremlo-cli)
if(TREMLO_WINDOW)
  install(FILES ${docs}/tremlo.1 ${docs}/tremlo-report.1 DESTINATION share/man/man1)
  install(FILES ${desktop}/tremlo.desktop DESTINATION share/applications)
  install(FILES ${desktop}/tremlo.xml DESTINATION share/mime/packages)
  install(FILES ${desktop}/tremlo.svg DESTINATION share/icons/hicolor/scalable/apps)
  foreach(size IN LISTS TREMLO_ICON_SIZES)
    install(FILES ${PROJECT_BINARY_DIR}/data/desktop/tremlo-${size}.png
            DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME tremlo.png)
  endforeach()
  install(FILES ${PROJECT_BINARY_DIR}/data/desktop/org.tremlo.tremlo.metainfo.xml DESTINATION share/metainfo)
  install(CODE "
    if(\"\$ENV{DESTDIR}\" STREQUAL \"\")
      set(PREFIX \"\${CMAKE_INSTALL_PREFIX}\")
      set(PROGRAM \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/tremlo\")
      include(\"${PROJECT_SOURCE_DIR}/cmake/TellDesktop.cmake\")
    endif()")
endif()

# `cpack` packs the folder that runs wherever it is unpacked.
set(CPACK_GENERATOR TGZ)
set(CPACK_PACKAGE_NAME tremlo)
set(CPACK_PACKAGE_FILE_NAME tremlo-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_STRIP_FILES ON)
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX "/")
set(CPACK_INSTALLED_DIRECTORIES "${PROJECT_SOURCE_DIR}/cmake/portable;/")
include(CPack)
