# The target "tidy": clang-tidy reads the product's source files. Those of a
# target are read together, through a file that includes them all: most of what
# clang-tidy does is to look through the headers of the library and the platform,
# which costs five times as much file by file. So the files of a target must not
# use one name for different things. They are read again only after the target
# has been built again. Exists where clang-tidy is installed.
#
# The flags are those that Clang knows; for Windows it plays the cross-compiler,
# with the headers of MinGW.

find_program(CLANG_TIDY clang-tidy)
if(NOT CLANG_TIDY)
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

# add_tidy(TARGET...): "tidy" reads the source files of these targets.
function(add_tidy)
    foreach(target IN LISTS ARGN)
        get_target_property(sources ${target} SOURCES)
        get_target_property(folder ${target} SOURCE_DIR)
        set(includes)
        foreach(source IN LISTS sources)
            if(source MATCHES "\\.cpp$")
                cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder})
                string(APPEND includes "#include \"${source}\"  // NOLINT(bugprone-suspicious-include)\n")
            endif()
        endforeach()
        set(all_files ${PROJECT_BINARY_DIR}/tidy/${target}.cpp)
        file(CONFIGURE OUTPUT ${all_files} CONTENT "${includes}" @ONLY)
        set(stamp ${PROJECT_BINARY_DIR}/tidy/${target}.stamp)
        # The analyzer leaves out what a file includes unless it is told not to.
        add_custom_command(
            OUTPUT ${stamp}
            COMMAND ${CLANG_TIDY} --quiet --config-file=${PROJECT_SOURCE_DIR}/.clang-tidy
                --extra-arg=-Xclang --extra-arg=-analyzer-opt-analyze-headers
                ${all_files} -- ${tidy_flags}
            COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
            DEPENDS ${target} $<TARGET_FILE:${target}> ${all_files} ${PROJECT_SOURCE_DIR}/.clang-tidy
            COMMENT "Reading ${target}"
            VERBATIM)
        list(APPEND stamps ${stamp})
    endforeach()
    add_custom_target(tidy DEPENDS ${stamps})
endfunction()
