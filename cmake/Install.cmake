# lib/tremlo holds the programs with their table folders, in a folder that its user can write to:
# the tables can be replaced there, and answers of the services are kept there. bin holds links only.
set(TREMLO_INSTALL_DIR ${CMAKE_INSTALL_LIBDIR}/tremlo)
if(CMAKE_INSTALL_LIBDIR MATCHES "/")
  # Debian's default names the architecture; the folder of one user's program has no need of it.
  set(TREMLO_INSTALL_DIR lib/tremlo)
endif()

install(TARGETS ${TREMLO_PROGRAMS} RUNTIME DESTINATION ${TREMLO_INSTALL_DIR})
install(CODE "
  set(FROM \"${PROJECT_SOURCE_DIR}/data\")
  set(TO \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${TREMLO_INSTALL_DIR}\")
  include(\"${PROJECT_SOURCE_DIR}/cmake/CopyTables.cmake\")")

# The manual and the pages of its chapters, where the target "manual" has made them.
install(FILES ${TREMLO_PROGRAM_DIR}/SystemData/manual.pdf ${TREMLO_PROGRAM_DIR}/SystemData/manual.pages
        DESTINATION ${TREMLO_INSTALL_DIR}/SystemData OPTIONAL)

foreach(program IN LISTS TREMLO_PROGRAMS)
  install(CODE "
    set(link \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/${program}\")
    file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    file(CREATE_LINK \"../${TREMLO_INSTALL_DIR}/${program}\" \"\${link}\" SYMBOLIC)
    message(STATUS \"Installing: \${link}\")")
endforeach()

install(FILES ${PROJECT_SOURCE_DIR}/docs/tremlo-cli.1 ${PROJECT_SOURCE_DIR}/docs/tremlo-report.1 DESTINATION share/man/man1)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/tremlo.desktop DESTINATION share/applications)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/tremlo.xml DESTINATION share/mime/packages)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/tremlo.svg DESTINATION share/icons/hicolor/scalable/apps)
