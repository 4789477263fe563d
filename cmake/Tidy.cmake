# The target "tidy": clang-tidy reads the product's source files. A file is read
# again only after its object file has changed, that is when the file or one of
# its headers has. Exists where clang-tidy is installed.
#
# The portable code is read with the commands of a build by Clang, whose
# compiler it shares. GCC's commands for Windows say less to Clang, so that half
# is read as a cross-compilation by Clang with the headers of MinGW.

find_program(CLANG_TIDY clang-tidy)
if(NOT CLANG_TIDY)
    message(STATUS "clang-tidy is not installed: the target tidy is left out")
    function(add_tidy)
    endfunction()
    return()
endif()

set(tidy_command ${CLANG_TIDY} --quiet)
if(WIN32)
    get_directory_property(warnings COMPILE_OPTIONS)
    list(FILTER warnings INCLUDE REGEX "^-W(all|extra|pedantic|conversion|shadow|format=2|unused)$")
    set(tidy_flags --target=x86_64-w64-mingw32 -std=c++20 -I${PROJECT_SOURCE_DIR} ${warnings})
    # Signs are left alone, as GCC's -Wconversion does in C++.
    list(APPEND tidy_flags -Wno-sign-conversion)
    foreach(folder IN LISTS CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES)
        list(APPEND tidy_flags -isystem${folder})
    endforeach()
else()
    list(APPEND tidy_command -p ${PROJECT_BINARY_DIR})
endif()

# add_tidy(TARGET...): "tidy" reads each source file of these targets.
function(add_tidy)
    foreach(target IN LISTS ARGN)
        get_target_property(sources ${target} SOURCES)
        get_target_property(source_folder ${target} SOURCE_DIR)
        get_target_property(binary_folder ${target} BINARY_DIR)
        foreach(source IN LISTS sources)
            cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${source_folder} OUTPUT_VARIABLE file)
            if(NOT file MATCHES "\\.cpp$")
                continue()
            endif()
            cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${source_folder} OUTPUT_VARIABLE object)
            cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE name)
            set(stamp ${PROJECT_BINARY_DIR}/tidy/${name}.stamp)
            cmake_path(GET stamp PARENT_PATH stamp_folder)
            set(command ${tidy_command} ${file})
            if(WIN32)
                list(APPEND command -- ${tidy_flags})
            endif()
            add_custom_command(
                OUTPUT ${stamp}
                COMMAND ${command}
                COMMAND ${CMAKE_COMMAND} -E make_directory ${stamp_folder}
                COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
                DEPENDS ${file} ${PROJECT_SOURCE_DIR}/.clang-tidy
                    ${binary_folder}/CMakeFiles/${target}.dir/${object}${CMAKE_CXX_OUTPUT_EXTENSION}
                COMMENT "Reading ${name}"
                VERBATIM)
            list(APPEND stamps ${stamp})
        endforeach()
    endforeach()
    add_custom_target(tidy DEPENDS ${stamps})
endfunction()
