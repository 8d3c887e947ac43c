# What every module is built with: warnings, bans and the include root. A module is one static library, declared by
# add_module(name FILES... LINKS...); it can include only what it links.

add_library(build_options INTERFACE)
target_include_directories(build_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(build_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-qual -Wimplicit-fallthrough -Wno-missing-field-initializers)
# With Chinese texts an implicit narrow string is a fault, so the toolkit's implicit conversions are off.
target_compile_definitions(build_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS QT_NO_FOREACH)

# On in the presets of developers and CI. Another compiler's new warning must not stop who builds a release.
option(WARNINGS_AS_ERRORS "treat warnings as errors" OFF)
if(WARNINGS_AS_ERRORS)
    target_compile_options(build_options INTERFACE -Werror)
endif()

option(SANITIZE "build with the address and undefined-behaviour sanitizers" OFF)
if(SANITIZE)
    target_compile_options(build_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(build_options INTERFACE -fsanitize=address,undefined)
endif()

# add_module(name [CORE] FILES files... LINKS targets...): CORE modules have no screen and link Qt6::Core alone.
function(add_module name)
    cmake_parse_arguments(M "CORE" "" "FILES;LINKS" ${ARGN})
    add_library(${name} STATIC ${M_FILES})
    target_link_libraries(${name} PUBLIC build_options ${M_LINKS})
    if(M_CORE)
        target_link_libraries(${name} PUBLIC Qt6::Core)
    else()
        target_link_libraries(${name} PUBLIC Qt6::Widgets)
        target_precompile_headers(${name} PRIVATE <QtWidgets> <functional> <memory> <optional> <vector>)
    endif()
endfunction()
