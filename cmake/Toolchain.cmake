# The language, the warnings and the sanitizers, the same for every target.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib/parlavox)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/archives)

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

# g++ takes the enumerators of a scoped enumeration for shadows of types, clang does not.
add_compile_options(-Wall -Wextra -Wpedantic $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>)
add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>
                    $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>)
if(PARLAVOX_DEVELOPER)
    add_compile_options(-Werror)
endif()

# g++ 12 warns of overlaps that cannot be where a string is put together from a literal.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
endif()

# A unique symbol keeps a library mapped after it was unloaded.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fno-gnu-unique>)
endif()

# Paths in messages and debug information begin at the top of the tree.
add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=)

# What nobody calls is not linked.
add_compile_options(-ffunction-sections -fdata-sections)
add_link_options(LINKER:--gc-sections LINKER:--as-needed)

if(PARLAVOX_SANITIZE)
    add_compile_options(-fsanitize=${PARLAVOX_SANITIZE} -fno-omit-frame-pointer
                        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${PARLAVOX_SANITIZE})
endif()

# What libFuzzer steers by; the sanitizers' run-time stands in for it in all other programs.
if(PARLAVOX_LIBFUZZER)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(PARLAVOX_COVERAGE)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()
