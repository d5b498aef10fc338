# Puts the shipped tables FROM/<folder> into TO/<folder>. A folder there without 見本.txt holds tables that its user has
# put in their place: it is left alone, so that no build and no installation turns them back into samples.
foreach(folder DamCoef LowSpec SystemData)
  if(EXISTS "${TO}/${folder}" AND NOT EXISTS "${TO}/${folder}/見本.txt")
    message(STATUS "Keeping your tables in ${TO}/${folder}")
  else()
    file(COPY "${FROM}/${folder}" DESTINATION "${TO}")
  endif()
endforeach()
