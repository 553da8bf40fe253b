# cmake -DWRITTEN=... -DGENERATED=... -DTARGET=... -DMANIFEST=... -P ship.cmake
#
# Copies what ships beside the program from two folders. MANIFEST remembers the hash of each file as it was copied:
# only a file that still is what a build put there is ever overwritten. One that is missing is put back, unless
# its kept copy (.bak) stands there: then the program itself restores it at its next start.

cmake_policy(VERSION 3.25)

set(compiled_in "^(ui_images|styles)/|\\.qrc$")

set(shipped "")
if(EXISTS "${MANIFEST}")
  file(STRINGS "${MANIFEST}" shipped)
endif()
set(manifest "")

# Sets `copy` to whether the file at `place`, named `name`, may be replaced by one with this hash.
macro(decide place name hash)
  set(copy TRUE)
  if(EXISTS "${place}")
    file(SHA256 "${place}" present)
    if(NOT present STREQUAL "${hash}" AND NOT "${present} ${name}" IN_LIST shipped)
      set(copy FALSE)
    endif()
  elseif(EXISTS "${place}.bak")
    set(copy FALSE)
  endif()
endmacro()

foreach(source "${WRITTEN}" "${GENERATED}")
  file(GLOB_RECURSE files RELATIVE "${source}" "${source}/*")
  list(FILTER files EXCLUDE REGEX "${compiled_in}")
  foreach(name IN LISTS files)
    set(place "${TARGET}/${name}")
    file(SHA256 "${source}/${name}" hash)
    decide("${place}" "${name}" "${hash}")
    if(copy)
      get_filename_component(folder "${place}" DIRECTORY)
      file(COPY "${source}/${name}" DESTINATION "${folder}")
      list(APPEND manifest "${hash} ${name}")
    else()
      # What was shipped before goes on telling whether somebody changed it since.
      set(before "${shipped}")
      list(FILTER before INCLUDE REGEX "^[0-9a-f]+ ${name}$")
      list(APPEND manifest ${before})
    endif()
  endforeach()
endforeach()
list(JOIN manifest "\n" lines)
file(WRITE "${MANIFEST}" "${lines}\n")
