# The runnable folder: the programs, and beside them the resources that they look up through the working
# directory. What ships is copied at every build, but a file that the user's program has changed is left alone.

set(JSUM_DIST_DIR "${PROJECT_BINARY_DIR}/dist")

add_custom_target(jsum_dist ALL
  COMMAND "${CMAKE_COMMAND}"
    "-DWRITTEN=${PROJECT_SOURCE_DIR}/resources"
    "-DGENERATED=${PROJECT_BINARY_DIR}/shipped"
    "-DTARGET=${JSUM_DIST_DIR}/resources"
    "-DMANIFEST=${PROJECT_BINARY_DIR}/shipped.txt"
    -P "${PROJECT_SOURCE_DIR}/cmake/ship.cmake"
  COMMENT "Shipping resources"
  VERBATIM)
