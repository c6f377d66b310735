# One folder, one target, and an include works only where the target links the folder's target.
#
# Every target publishes its own folder through a link farm of one folder,
# <build>/include/<target>/<path of the folder>, so that `#include "Platform/Foundation/Data.h"`
# is found exactly by the targets that link pv_foundation.

# Publishes `folder` (a path from the top of the tree) to those who link `target`.
function(pv_publish_folder target folder)
    set(farm ${CMAKE_BINARY_DIR}/include/${target})
    cmake_path(GET folder PARENT_PATH parent)
    file(MAKE_DIRECTORY ${farm}/${parent})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${farm}/${folder} SYMBOLIC)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "INTERFACE_LIBRARY")
        target_include_directories(${target} INTERFACE ${farm})
    else()
        target_include_directories(${target} PUBLIC ${farm})
    endif()
endfunction()

# Adds a library of one folder: pv_library(target FOLDER path SOURCES file...
#   [PUBLIC target...] [PRIVATE target...])
function(pv_library target)
    cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    list(TRANSFORM ARG_SOURCES PREPEND ${CMAKE_SOURCE_DIR}/${ARG_FOLDER}/)
    add_library(${target} STATIC ${ARG_SOURCES})
    target_link_libraries(${target} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
    pv_publish_folder(${target} ${ARG_FOLDER})
    pv_check_headers(${target} ${ARG_FOLDER})
endfunction()

# Adds a module of the text library, a shared object that is opened at need:
# pv_module(name SOURCES file... LINK target...)
#
# Modules lie in the bundle, so that it stays whole wherever it is moved.
function(pv_module name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    set(target pv_module_${name})
    add_library(${target} MODULE ${ARG_SOURCES})
    target_link_libraries(${target} PRIVATE ${ARG_LINK})
    target_include_directories(${target} PRIVATE ${CMAKE_BINARY_DIR}/include/pv_text)
    if(NOT PARLAVOX_SANITIZE)
        target_link_options(${target} PRIVATE LINKER:--no-undefined)
    endif()
    set(folder Parlavox.mdimporter/Contents/Linux/Modules)
    set_target_properties(${target} PROPERTIES
        PREFIX ""
        SUFFIX ".so"
        OUTPUT_NAME ${name}
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${folder})
    install(TARGETS ${target} LIBRARY DESTINATION lib/parlavox/${folder})
    add_dependencies(pv_text ${target})
endfunction()

# Adds the target `<target>_headers`, which compiles each header of `folder` alone.
function(pv_check_headers target folder)
    if(NOT PARLAVOX_DEVELOPER)
        return()
    endif()
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}
         ${CMAKE_SOURCE_DIR}/${folder}/*.h)
    set(units)
    foreach(header IN LISTS headers)
        string(MAKE_C_IDENTIFIER ${header} name)
        set(unit ${CMAKE_BINARY_DIR}/headers/${name}.cpp)
        file(CONFIGURE OUTPUT ${unit} CONTENT "#include \"@header@\"\n" @ONLY)
        list(APPEND units ${unit})
    endforeach()
    if(units)
        add_library(${target}_headers OBJECT EXCLUDE_FROM_ALL ${units})
        get_target_property(type ${target} TYPE)
        if(type STREQUAL "EXECUTABLE" OR type STREQUAL "MODULE_LIBRARY")
            target_include_directories(${target}_headers PRIVATE
                $<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>)
        else()
            target_link_libraries(${target}_headers PRIVATE ${target})
        endif()
        set_property(GLOBAL APPEND PROPERTY PV_HEADER_CHECKS ${target}_headers)
    endif()
endfunction()

# Adds the target `<target>_c_headers`, which compiles the headers of `folder` whose names match one
# of the given globs, each alone, as C: pv_check_c_headers(target folder glob...)
function(pv_check_c_headers target folder)
    if(NOT PARLAVOX_DEVELOPER)
        return()
    endif()
    list(TRANSFORM ARGN PREPEND ${CMAKE_SOURCE_DIR}/${folder}/ OUTPUT_VARIABLE globs)
    file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} ${globs})
    set(units)
    foreach(header IN LISTS headers)
        string(MAKE_C_IDENTIFIER ${header} name)
        set(unit ${CMAKE_BINARY_DIR}/headers/${name}.c)
        file(CONFIGURE OUTPUT ${unit} CONTENT "#include \"@header@\"\n" @ONLY)
        list(APPEND units ${unit})
    endforeach()
    add_library(${target}_c_headers OBJECT EXCLUDE_FROM_ALL ${units})
    target_include_directories(${target}_c_headers PRIVATE
        $<TARGET_PROPERTY:${target},INTERFACE_INCLUDE_DIRECTORIES>)
    set_property(GLOBAL APPEND PROPERTY PV_HEADER_CHECKS ${target}_c_headers)
endfunction()

# Adds the target `headers_alone`, which builds all the header checks; call it after every folder.
function(pv_add_headers_alone)
    get_property(checks GLOBAL PROPERTY PV_HEADER_CHECKS)
    add_custom_target(headers_alone)
    if(checks)
        add_dependencies(headers_alone ${checks})
    endif()
endfunction()

# Adds a program of tests: pv_test(target FOLDER path SOURCES file... LINK target...)
function(pv_test target)
    cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;LINK" ${ARGN})
    list(TRANSFORM ARG_SOURCES PREPEND ${CMAKE_SOURCE_DIR}/Tests/${ARG_FOLDER}/)
    add_executable(${target} ${ARG_SOURCES})
    target_link_libraries(${target} PRIVATE ${ARG_LINK} pv_test_support GTest::gtest
                                            GTest::gtest_main)
    gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
endfunction()

# Adds a fuzz target: pv_fuzz(target FOLDER path SOURCE file LINK target...)
#
# It is a fuzzer where there is libFuzzer, otherwise a program that replays the files and folders it
# is given. Either way a test runs it over its seeds, Fuzz/<path>/corpus/<target>.
function(pv_fuzz target)
    cmake_parse_arguments(ARG "" "FOLDER;SOURCE" "LINK" ${ARGN})
    set(folder ${CMAKE_SOURCE_DIR}/Fuzz/${ARG_FOLDER})
    add_executable(${target} ${folder}/${ARG_SOURCE})
    add_dependencies(fuzz_targets ${target})
    target_link_libraries(${target} PRIVATE ${ARG_LINK} pv_fuzz_support)
    if(PARLAVOX_LIBFUZZER)
        target_link_options(${target} PRIVATE -fsanitize=fuzzer)
        # Shared libraries count their coverage through functions of the fuzzer.
        set_target_properties(${target} PROPERTIES ENABLE_EXPORTS ON)
        set(replay -runs=0)
    else()
        target_link_libraries(${target} PRIVATE pv_fuzz_replay)
        set(replay)
    endif()
    add_test(NAME Fuzz.${target} COMMAND ${target} ${replay} ${folder}/corpus/${target})
    set_tests_properties(Fuzz.${target} PROPERTIES TIMEOUT 300)
endfunction()
