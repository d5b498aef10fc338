# Puts the shipped tables FROM/<folder> into TO/<folder>. A folder there without 見本.txt holds tables that its user has
# put in their place: it is left alone, so that no build and no installation turns them back into samples. Pictures are
# no tables: where they are missing they come all the same. PLACED then lists what was put there, below TO.
set(pictures SystemData/OffLine.bmp SystemData/kei_map_500.svg)
set(PLACED "")

foreach(folder DamCoef LowSpec SystemData)
  if(EXISTS "${TO}/${folder}" AND NOT EXISTS "${TO}/${folder}/見本.txt")
    message(STATUS "Keeping your tables in ${TO}/${folder}")
  else()
    file(COPY "${FROM}/${folder}" DESTINATION "${TO}")
    file(GLOB_RECURSE files RELATIVE "${FROM}" "${FROM}/${folder}/*")
    list(APPEND PLACED ${files})
  endif()
endforeach()

foreach(picture IN LISTS pictures)
  get_filename_component(folder "${TO}/${picture}" DIRECTORY)
  if(NOT EXISTS "${TO}/${picture}")
    file(COPY "${FROM}/${picture}" DESTINATION "${folder}")
    list(APPEND PLACED ${picture})
  endif()
endforeach()
