# One folder that can be put anywhere: the programs with their table folders, writable to its user. The libraries of
# others are added by scripts/windows.
install(TARGETS ${TREMLO_PROGRAMS} RUNTIME DESTINATION .)
install(CODE "
  set(FROM \"${PROJECT_SOURCE_DIR}/data\")
  set(TO \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
  include(\"${PROJECT_SOURCE_DIR}/cmake/CopyTables.cmake\")")
