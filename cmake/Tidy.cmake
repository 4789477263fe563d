# The target "tidy": Clang reads what no build of ./test shows. Exists where
# clang-tidy is installed.
#
# clang-tidy reads the product's source files. Those of some targets are read
# together, through a file that includes them all: most of what clang-tidy does is
# to look through the headers of the library and the platform, which costs five
# times as much file by file. So these files must not use one name for different
# things. They are read again only after one of the targets has been built again.
#
# Clang also reads headers alone, to show that they include what they need. Most
# portable ones are shown to by the preset native: it compiles every file by itself,
# and foo.cpp includes foo.h first (scripts/check-project). Those that have no such
# file are read here; for Windows, where files are compiled together, all are.
#
# The flags are those that Clang knows; for Windows it plays the cross-compiler,
# with the headers of MinGW.

find_program(CLANG_TIDY clang-tidy)
find_program(CLANG clang++)
if(NOT CLANG_TIDY OR NOT CLANG)
    message(STATUS "clang-tidy is not installed: the target tidy is left out")
    function(add_tidy)
    endfunction()
    return()
endif()

get_directory_property(tidy_warnings COMPILE_OPTIONS)
list(FILTER tidy_warnings INCLUDE REGEX "^-W(all|extra|pedantic|conversion|shadow|format=2|unused|cast-qual)$")
# Signs are left alone, as GCC's -Wconversion does in C++.
set(tidy_flags -std=c++${CMAKE_CXX_STANDARD} -I${PROJECT_SOURCE_DIR} -I${PROJECT_BINARY_DIR} ${tidy_warnings} -Wno-sign-conversion)
if(WIN32)
    list(APPEND tidy_flags --target=x86_64-w64-mingw32)
    # The standard library's headers; those of the compiler itself are Clang's own.
    set(library_folders ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
    list(FILTER library_folders INCLUDE REGEX "/c\\+\\+")
    foreach(folder IN LISTS library_folders)
        list(APPEND tidy_flags -isystem${folder})
    endforeach()
endif()

# The analyzer follows calls from one file into another, deeper than it could file by
# file. Without a limit it spends four fifths of its time on the last
# branches of a few functions that call through the whole engine.
set(analyzer_flags
    -Xclang -analyzer-config -Xclang max-nodes=40000
    # It leaves out what a file includes unless it is told not to.
    -Xclang -analyzer-opt-analyze-headers)
list(TRANSFORM analyzer_flags PREPEND --extra-arg=)

# files_of(VARIABLE TARGET PROPERTY PATTERN): the target's files, as absolute paths.
function(files_of variable target property pattern)
    get_target_property(names ${target} ${property})
    get_target_property(folder ${target} SOURCE_DIR)
    set(files)
    foreach(name IN LISTS names)
        if(name MATCHES "${pattern}")
            cmake_path(ABSOLUTE_PATH name BASE_DIRECTORY ${folder})
            list(APPEND files ${name})
        endif()
    endforeach()
    set(${variable} ${files} PARENT_SCOPE)
endfunction()

add_custom_target(tidy)

# add_headers_alone(TARGET VARIABLE): Clang reads the target's headers one by one.
function(add_headers_alone target variable)
    files_of(headers ${target} HEADER_SET "\\.h$")
    set(alone)
    foreach(header IN LISTS headers)
        cmake_path(REPLACE_EXTENSION header cpp OUTPUT_VARIABLE source)
        if(WIN32 OR NOT EXISTS ${source})
            list(APPEND alone ${header})
        endif()
    endforeach()
    if(NOT alone)
        return()
    endif()
    set(stamp ${PROJECT_BINARY_DIR}/tidy/${target}-headers.stamp)
    # What a header defines for others, it need not use itself.
    set(flags ${tidy_flags} -Werror -Wno-unused -Wno-unneeded-internal-declaration)
    # The headers of the platform, half a second each time, are read only once.
    set(precompile)
    if(WIN32)
        set(platform ${PROJECT_BINARY_DIR}/tidy/${target}-platform.pch)
        set(precompile COMMAND ${CLANG} ${flags}
            -x c++-header ${PROJECT_SOURCE_DIR}/toolkit/win32/win32.h -o ${platform})
        list(APPEND flags -include-pch ${platform})
    endif()
    add_custom_command(
        OUTPUT ${stamp}
        ${precompile}
        COMMAND ${CLANG} ${flags} -fsyntax-only -x c++ ${alone}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${headers}
        COMMENT "Reading headers of ${target} alone"
        VERBATIM)
    set(${variable} ${${variable}} ${stamp} PARENT_SCOPE)
endfunction()

# add_tidy(NAME TARGET...): "tidy" reads the source files of these targets, in one
# go, and their headers.
function(add_tidy name)
    set(includes)
    set(built)
    set(stamps)
    foreach(target IN LISTS ARGN)
        files_of(sources ${target} SOURCES "\\.cpp$")
        foreach(source IN LISTS sources)
            string(APPEND includes "#include \"${source}\"  // NOLINT(bugprone-suspicious-include)\n")
        endforeach()
        list(APPEND built ${target} $<TARGET_FILE:${target}>)
        add_headers_alone(${target} stamps)
    endforeach()
    set(all_files ${PROJECT_BINARY_DIR}/tidy/${name}.cpp)
    file(CONFIGURE OUTPUT ${all_files} CONTENT "${includes}" @ONLY)
    set(stamp ${PROJECT_BINARY_DIR}/tidy/${name}.stamp)
    add_custom_command(
        OUTPUT ${stamp}
        COMMAND ${CLANG_TIDY} --quiet --config-file=${PROJECT_SOURCE_DIR}/.clang-tidy
            ${analyzer_flags} ${all_files} -- ${tidy_flags}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${built} ${all_files} ${PROJECT_SOURCE_DIR}/.clang-tidy
        COMMENT "Reading ${name}"
        VERBATIM)
    add_custom_target(tidy-${name} DEPENDS ${stamp} ${stamps})
    add_dependencies(tidy tidy-${name})
endfunction()
