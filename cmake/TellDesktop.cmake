# For an installation on this machine: the entry in PREFIX names the program by its absolute PROGRAM, since a desktop's
# PATH need not hold it, and the desktop's lists of types and programs are brought up to date.
cmake_policy(VERSION 3.25)
string(REGEX REPLACE "([\\\"`$])" "\\\\\\1" quoted "${PROGRAM}")
# The entry's text takes a backslash of its own for each backslash, and a per cent sign for a code.
string(REPLACE "\\" "\\\\" quoted "${quoted}")
string(REPLACE "%" "%%" quoted "${quoted}")
string(REPLACE "\\" "\\\\" plain "${PROGRAM}")
set(entry "${PREFIX}/share/applications/tremlo.desktop")
file(READ "${entry}" text)
string(REPLACE "\nExec=tremlo " "\nExec=\"${quoted}\" " text "${text}")
string(REPLACE "\nTryExec=tremlo\n" "\nTryExec=${plain}\n" text "${text}")
file(WRITE "${entry}" "${text}")

# tell COMMAND FOLDER: a machine without the command has no desktop that waits for it.
function(tell command folder)
  find_program(found_${command} ${command})
  if(found_${command})
    execute_process(COMMAND ${found_${command}} "${PREFIX}/share/${folder}" OUTPUT_QUIET)
  else()
    message(STATUS "Not found, so not run: ${command} ${PREFIX}/share/${folder}")
  endif()
endfunction()
tell(update-mime-database mime)
tell(update-desktop-database applications)
# Desktops look at the folder's time before they look for new icons.
file(TOUCH_NOCREATE "${PREFIX}/share/icons/hicolor")
