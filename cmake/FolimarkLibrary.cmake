# What all of the project's code is built with, in one place.
add_library(folimark_options INTERFACE)
target_compile_options(folimark_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(FOLIMARK_SANITIZE)
  target_compile_options(folimark_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(folimark_options INTERFACE -fsanitize=address,undefined)
endif()

# folimark_library(NAME DIRECTORIES dir... SOURCES file... LINKS library... [PRIVATE_LINKS library...])
#
# A static library. Its DIRECTORIES are what others may include from; since a library sees only the folders of
# what it links, an include that points upwards doesn't build.
function(folimark_library NAME)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "DIRECTORIES;SOURCES;LINKS;PRIVATE_LINKS")
  add_library(${NAME} STATIC ${ARG_SOURCES})
  target_include_directories(${NAME} PUBLIC ${ARG_DIRECTORIES})
  target_link_libraries(${NAME} PUBLIC ${ARG_LINKS} PRIVATE folimark_options ${ARG_PRIVATE_LINKS})
endfunction()
