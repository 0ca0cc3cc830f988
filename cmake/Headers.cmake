# The target "headers" compiles each header alone, so that none leans on what its users happen to include before it.
# It is built on demand. A header is compiled as the sources of its own library are, but for the warnings: those come
# where it is used.

add_custom_target(headers)

# folimark_headers_alone(TARGET FOLDER): for the headers that lie directly in the folder, which are TARGET's.
function(folimark_headers_alone TARGET FOLDER)
  file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} ${FOLDER}/*.h)
  set(sources)
  foreach(header IN LISTS headers)
    set(source ${CMAKE_BINARY_DIR}/headers/${header}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${CMAKE_SOURCE_DIR}/${header}\"\n")
    list(APPEND sources ${source})
  endforeach()
  string(REPLACE "/" "_" name headers_${FOLDER})
  add_library(${name} OBJECT EXCLUDE_FROM_ALL ${sources})
  set_target_properties(${name} PROPERTIES
    INCLUDE_DIRECTORIES $<TARGET_PROPERTY:${TARGET},INCLUDE_DIRECTORIES>
    COMPILE_DEFINITIONS "$<TARGET_PROPERTY:${TARGET},COMPILE_DEFINITIONS>"
    POSITION_INDEPENDENT_CODE ON) # Qt's headers ask for it
  add_dependencies(headers ${name})
endfunction()

folimark_headers_alone(folimark_core toolkit/core)
folimark_headers_alone(folimark_screen toolkit/screen)
folimark_headers_alone(folimark_screen toolkit/screen/internal)
foreach(folder qt qt/controls qt/dialogs qt/drawing qt/list qt/windows)
  folimark_headers_alone(folimark_widgets toolkit/${folder})
endforeach()
folimark_headers_alone(folimark_pictures toolkit/pictures)
folimark_headers_alone(folimark_confinement toolkit/pictures/confinement)
folimark_headers_alone(folimark_decoders toolkit/pictures/decoders)
folimark_headers_alone(folimark_media media)
folimark_headers_alone(folimark_shell shell)
folimark_headers_alone(folimark_viewer viewer)
folimark_headers_alone(folimark_registry registry)
folimark_headers_alone(folimark_start shell/start)
if(FOLIMARK_TESTS)
  folimark_headers_alone(folimark_test_core tests/toolkit)
  folimark_headers_alone(picture_tests tests/toolkit/pictures)
  folimark_headers_alone(folimark_robot tests/robot)
endif()
if(FOLIMARK_TOUR)
  folimark_headers_alone(folimark-tour docs/tour)
endif()
