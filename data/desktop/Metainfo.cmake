# Writes the data of software centres for VERSION into OUT. ADDRESS: https address of the folder with docs/pictures;
# empty while there is none, and the pictures are left out then.
cmake_policy(VERSION 3.25)
set(SCREENSHOTS "")
if(ADDRESS)
  file(READ ${CMAKE_CURRENT_LIST_DIR}/screenshots.xml.in pictures)
  string(CONFIGURE "${pictures}" SCREENSHOTS @ONLY)
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/org.tremlo.tremlo.metainfo.xml.in "${OUT}" @ONLY)
