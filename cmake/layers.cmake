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

# One test per layer that the rule holds: a probe preprocessed with the include path of the
# layer's target finds a header of the layer itself and not one of the folder above it.
# Each target is paired with the folder just above it.
function(karvane_layer_tests)
  set(pairs karvane_ui:model karvane_model:engineering karvane_engineering:files karvane_files:simulate
    karvane_simulate:contaminant karvane_contaminant:display karvane_display:exchange karvane_exchange:edit
    karvane_edit:forms karvane_forms:commands karvane_commands:script karvane_minegen:files)
  if(TARGET karvane_qt)
    list(APPEND pairs karvane_script:qt karvane_qt:dialogs karvane_dialogs:shell)
  endif()
  foreach(pair ${pairs})
    string(REPLACE ":" ";" pair ${pair})
    list(GET pair 0 target)
    list(GET pair 1 above)
    string(REGEX REPLACE "^karvane_" "" own ${target})
    if(own STREQUAL "minegen")
      set(own generate)
    endif()
    file(GLOB own_headers RELATIVE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/src/${own}/*.h)
    file(GLOB above_headers RELATIVE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/src/${above}/*.h)
    list(SORT own_headers)
    list(SORT above_headers)
    list(GET own_headers 0 own_header)
    list(GET above_headers 0 above_header)
    set(probe ${CMAKE_BINARY_DIR}/layers/probes/${target}.cpp)
    file(CONFIGURE OUTPUT ${probe} CONTENT "#include \"${own_header}\"\n#include \"${above_header}\"\n")
    add_test(NAME layer_rule_${own}
      COMMAND ${CMAKE_CXX_COMPILER} -E -std=c++20
        "-I$<JOIN:$<TARGET_PROPERTY:${target},INCLUDE_DIRECTORIES>,;-I>" ${probe} -o ${probe}.i
      COMMAND_EXPAND_LISTS)
    # Only the header of the layer above may be missing.
    string(REPLACE "." "\\." above_pattern ${above_header})
    set_tests_properties(layer_rule_${own} PROPERTIES LABELS layers
      PASS_REGULAR_EXPRESSION "${above_pattern}'?:? (No such file or directory|file not found)")
  endforeach()
endfunction()
