# The flags that every target of the project is built with, and the helper by which an area of the house
# says which of its files are rules (no widgets) and which are screens.

add_library(tally_flags INTERFACE)
target_compile_definitions(tally_flags INTERFACE QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(tally_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    $<$<BOOL:${TALLY_WARNINGS_AS_ERRORS}>:-Werror>)
if(TALLY_SANITIZE)
    target_compile_options(tally_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(tally_flags INTERFACE -fsanitize=address,undefined)
endif()

# tally_area([DOMAIN file...] [SCREENS file...]) adds the files of the current folder to tally_domain and
# tally_screens. Domain files see no widgets, and the linker holds them to it.
function(tally_area)
    cmake_parse_arguments(PARSE_ARGV 0 area "" "" "DOMAIN;SCREENS")
    list(TRANSFORM area_DOMAIN PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    list(TRANSFORM area_SCREENS PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    target_sources(tally_domain PRIVATE ${area_DOMAIN})
    target_sources(tally_screens PRIVATE ${area_SCREENS})
endfunction()
