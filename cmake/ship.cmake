# cmake -DSOURCE=... -DTARGET=... -DMANIFEST=... -P ship.cmake
#
# Copies the resources that ship beside the program. MANIFEST remembers the hash of each file as it was copied:
# only a file that still is what a build put there is ever overwritten. One that is missing is put back, unless
# its kept copy (.bak) stands there: then the program itself will restore it at its next start.

set(compiled_in "^(ui_images|styles)/|\\.qrc$")

file(GLOB_RECURSE files RELATIVE "${SOURCE}" "${SOURCE}/*")
list(FILTER files EXCLUDE REGEX "${compiled_in}")

set(shipped "")
if(EXISTS "${MANIFEST}")
  file(STRINGS "${MANIFEST}" shipped)
endif()

set(manifest "")
foreach(name IN LISTS files)
  file(SHA256 "${SOURCE}/${name}" hash)
  set(place "${TARGET}/${name}")
  if(EXISTS "${place}")
    file(SHA256 "${place}" present)
    list(FIND shipped "${present} ${name}" untouched)
    if(present STREQUAL hash OR NOT untouched EQUAL -1)
      set(copy TRUE)
    else()
      set(copy FALSE)
    endif()
  elseif(EXISTS "${place}.bak")
    set(copy FALSE)
  else()
    set(copy TRUE)
  endif()
  if(copy)
    get_filename_component(folder "${place}" DIRECTORY)
    file(COPY "${SOURCE}/${name}" DESTINATION "${folder}")
    string(APPEND manifest "${hash} ${name}\n")
  else()
    # What was shipped before still tells whether somebody changed it since.
    foreach(line IN LISTS shipped)
      if(line MATCHES "^[0-9a-f]+ (.*)$" AND CMAKE_MATCH_1 STREQUAL name)
        string(APPEND manifest "${line}\n")
      endif()
    endforeach()
  endif()
endforeach()
file(WRITE "${MANIFEST}" "${manifest}")
