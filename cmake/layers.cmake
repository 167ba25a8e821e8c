# The include rule of the layers, enforced by the compiler: a layer's sources are compiled
# against a folder of its own in the build tree, layers/<target>, that holds a link to the
# layer's own folder of src/ and to those of the layers below it, and nothing else. An
# #include of a header of a higher layer then finds no file and fails the build, e.g.
#   src/model/units.cpp: fatal error: display/view_state.h: No such file or directory
# Whoever links a whole stack (karvane_core, karvane_shell) sees all of src/ instead.

# Coverage builds record each header under the path it was included by; the links are mapped
# back onto src/ there, so that a header's lines count once, under its own name.
string(TOUPPER "${CMAKE_BUILD_TYPE}" karvane_build_type)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU"
   AND "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${karvane_build_type}}" MATCHES "--coverage")
  set(KARVANE_MAP_LAYER_PATHS ON)
endif()

# karvane_layer_includes(TARGET FOLDER...): TARGET compiles against the listed folders of src/.
function(karvane_layer_includes target)
  set(dir ${CMAKE_BINARY_DIR}/layers/${target})
  file(MAKE_DIRECTORY ${dir})
  # Links left from an earlier configuration with other folders go.
  file(GLOB present LIST_DIRECTORIES true RELATIVE ${dir} ${dir}/*)
  foreach(name ${present})
    if(NOT name IN_LIST ARGN)
      file(REMOVE ${dir}/${name})
    endif()
  endforeach()
  foreach(folder ${ARGN})
    if(IS_DIRECTORY ${CMAKE_SOURCE_DIR}/src/${folder} AND NOT IS_SYMLINK ${dir}/${folder})
      file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${folder} ${dir}/${folder} SYMBOLIC)
    endif()
  endforeach()
  target_include_directories(${target} PRIVATE ${dir})
  if(KARVANE_MAP_LAYER_PATHS)
    target_compile_options(${target} PRIVATE -fprofile-prefix-map=${dir}=${CMAKE_SOURCE_DIR}/src)
  endif()
endfunction()
