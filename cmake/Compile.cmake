# How all our targets are compiled.
add_library(korvane_compile INTERFACE)
target_include_directories(korvane_compile INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(korvane_compile INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS)
target_compile_options(korvane_compile INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wno-missing-field-initializers
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op>)
if(KORVANE_WERROR)
    target_compile_options(korvane_compile INTERFACE -Werror)
endif()
if(KORVANE_SANITIZE)
    target_compile_options(korvane_compile INTERFACE -fsanitize=address,undefined
                                                     -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(korvane_compile INTERFACE -fsanitize=address,undefined)
endif()

# Most of what is compiled are headers of the toolkit and the standard library. A target precompiles those that
# most of its files include, or those of another target (REUSE_FROM). ./lint and a plain configuration go
# without: they show a file that lacks an include of its own.
function(korvane_precompile target)
    if(KORVANE_PCH)
        if(ARGV1 STREQUAL "REUSE_FROM")
            target_precompile_headers(${target} ${ARGN})
        else()
            target_precompile_headers(${target} PRIVATE <algorithm> <functional> <memory> <optional>
                                                        <string> <variant> <vector> ${ARGN})
        endif()
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            target_compile_options(${target} PRIVATE -fpch-preprocess)
        endif()
    endif()
endfunction()
