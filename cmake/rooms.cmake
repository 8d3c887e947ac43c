# What every room is built with: the warnings, the bans and the include root. A room is one static library;
# it is declared by room(name FILES... LINKS...) and sees nothing that it does not link.

add_library(house INTERFACE)
target_include_directories(house INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(house INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-qual -Wimplicit-fallthrough
    -Wno-missing-field-initializers -Werror)
# With Chinese texts an implicit narrow string is a fault, so the toolkit's implicit conversions are off.
target_compile_definitions(house INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS QT_NO_FOREACH)

option(SANITIZE "build with the address and undefined-behaviour sanitizers" OFF)
if(SANITIZE)
    target_compile_options(house INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(house INTERFACE -fsanitize=address,undefined)
endif()

# room(name [CORE] FILES files... LINKS targets...): CORE rooms have no screen and link Qt6::Core alone.
function(room name)
    cmake_parse_arguments(R "CORE" "" "FILES;LINKS" ${ARGN})
    add_library(${name} STATIC ${R_FILES})
    target_link_libraries(${name} PUBLIC house ${R_LINKS})
    if(R_CORE)
        target_link_libraries(${name} PUBLIC Qt6::Core)
    else()
        target_link_libraries(${name} PUBLIC Qt6::Widgets)
        target_precompile_headers(${name} PRIVATE <QtWidgets> <functional> <memory> <optional> <vector>)
    endif()
endfunction()
