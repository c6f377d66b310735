# Holds a shared library to its list of exported names and to its name for the loader:
#   cmake -D NM=... -D READELF=... -D LIBRARY=... -D SONAME=... -D LIST=... -P CheckExports.cmake

execute_process(COMMAND ${NM} -D --defined-only --format=posix ${LIBRARY}
                OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE " [^\n]*" "" symbols "${symbols}")
string(STRIP "${symbols}" symbols)
string(REPLACE "\n" ";" symbols "${symbols}")
file(STRINGS ${LIST} expected)

set(missing ${expected})
list(REMOVE_ITEM missing ${symbols})
set(extra ${symbols})
list(REMOVE_ITEM extra ${expected})
if(missing OR extra)
    message(FATAL_ERROR "exported names differ; missing: ${missing}; not in the list: ${extra}")
endif()

execute_process(COMMAND ${READELF} -d ${LIBRARY}
                OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
if(NOT dynamic MATCHES "SONAME[^\n]*\\[([^]]*)\\]" OR NOT CMAKE_MATCH_1 STREQUAL SONAME)
    message(FATAL_ERROR "the library calls itself '${CMAKE_MATCH_1}', not ${SONAME}")
endif()
