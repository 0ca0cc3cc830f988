# What all of the project's code is built with, in one place.
add_library(folimark_options INTERFACE)
target_compile_options(folimark_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow=local -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
# A raise would else stand in a part of its function that has no name, and call stacks need names.
# That comes with optimisation only; clang-tidy, which reads the commands of a build without, doesn't know the option.
target_compile_options(folimark_options INTERFACE $<$<NOT:$<CONFIG:Debug>>:-fno-reorder-blocks-and-partition>)
if(FOLIMARK_SANITIZE)
  target_compile_options(folimark_options INTERFACE
    -fsanitize=${FOLIMARK_SANITIZE} -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(folimark_options INTERFACE -fsanitize=${FOLIMARK_SANITIZE})
endif()

# folimark_library(NAME DIRECTORIES dir... LINKS library... [PRIVATE_LINKS library...] [EXCEPT file...])
#
# A static library of all the sources that lie in its DIRECTORIES, but for the EXCEPTed. The directories are what others
# may include from; since a library sees only the folders of what it links, an include that points upwards doesn't build.
function(folimark_library NAME)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "DIRECTORIES;LINKS;PRIVATE_LINKS;EXCEPT")
  list(TRANSFORM ARG_DIRECTORIES APPEND "/*.cpp" OUTPUT_VARIABLE patterns)
  file(GLOB sources CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${patterns})
  list(REMOVE_ITEM sources "" ${ARG_EXCEPT})
  add_library(${NAME} STATIC ${sources})
  target_include_directories(${NAME} PUBLIC ${ARG_DIRECTORIES})
  target_link_libraries(${NAME} PUBLIC ${ARG_LINKS} PRIVATE folimark_options ${ARG_PRIVATE_LINKS})
endfunction()
