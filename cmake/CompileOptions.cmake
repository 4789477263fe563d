# What every source file of the project is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

# "engine/vorstek_engine.h" means the same in every file.
include_directories(${PROJECT_SOURCE_DIR})

# A fused multiply-add would round once where the calculator rounds twice, and
# its digits would depend on the processor.
add_compile_options(-ffp-contract=off)

# Square roots are the processor's instruction, which rounds correctly, instead of
# a call of the C library, which may not.
add_compile_options(-fno-math-errno)

# Packages are built as MinSizeRel: most of the program has to be small. The sources
# that people wait for are optimised as in the other builds, but their rare branches
# stay where they are: a part of a function that is moved away costs a frame of its own.
#
# optimise_for_speed(TARGET SOURCE...)
function(optimise_for_speed target)
    if(CMAKE_BUILD_TYPE STREQUAL "MinSizeRel")
        list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
        set_property(SOURCE ${ARGN} TARGET_DIRECTORY ${target} APPEND PROPERTY
            COMPILE_OPTIONS -O2 -fno-reorder-blocks-and-partition)
    endif()
endfunction()

# The program's tables of pointers are relocated when it starts: 35 kB of entries, or
# 1 kB where linker and loader know the packed form (glibc 2.36). Code and constants
# share pages, instead of each filling its own up to 4 kB.
if(CMAKE_BUILD_TYPE STREQUAL "MinSizeRel")
    include(CheckLinkerFlag)
    check_linker_flag(CXX -Wl,-z,pack-relative-relocs HAS_PACKED_RELOCATIONS)
    if(HAS_PACKED_RELOCATIONS)
        add_link_options(-Wl,-z,pack-relative-relocs -Wl,-z,noseparate-code)
    endif()
endif()

# Warnings are errors in the presets only (CMAKE_COMPILE_WARNING_AS_ERROR): other
# compilers find other things, and nobody's build should end there.
add_compile_options(
    -Wall
    -Wextra
    -Wpedantic
    -Wconversion
    -Wshadow
    -Wformat=2
    -Wcast-align
    -Wcast-qual
    -Wextra-semi
    -Wnon-virtual-dtor
    -Woverloaded-virtual
    -Wundef
    -Wunused)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(
        -Wduplicated-branches
        -Wduplicated-cond
        -Wlogical-op
        # Cutting a text to its array is what snprintf is used for here.
        -Wno-format-truncation)
else()
    # GCC's -Wconversion leaves signs alone in C++; both compilers ask the same.
    add_compile_options(-Wno-sign-conversion)
endif()

option(VORSTEK_SANITIZE "Check memory use and undefined behaviour at run time" OFF)
if(VORSTEK_SANITIZE)
    set(sanitizers -fsanitize=address,undefined,float-cast-overflow)
    add_compile_options(
        ${sanitizers}
        -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
    # In instrumented code GCC takes parts of the standard library for
    # uninitialised; the other builds keep the warning.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options(-Wno-maybe-uninitialized)
    endif()
    add_link_options(${sanitizers})
endif()

# The fuzzer finds its way by the branches that an input takes.
option(VORSTEK_FUZZ "Count branches for the fuzz targets of tests/fuzz (Clang)" OFF)
if(VORSTEK_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
