# kovrel_host_test(name script [BOXES file] [PRINTED file] [HOST target] [NO_DISPLAY]): runs a script
# in the script host of this configuration's bitness, or in a program of ours, behind the folder's
# checks.vbs or checks.js, and registers it as <flavour>.host.<name>. See run_script.sh for what the
# script must print and what the files hold. Without a display Wine cannot create a window.
if(KOVREL_FLAVOUR STREQUAL x64)
  set(KOVREL_HOST_WINE /usr/lib/wine/wine64)
else()
  set(KOVREL_HOST_WINE wine)
endif()

function(kovrel_host_test name script)
  cmake_parse_arguments(PARSE_ARGV 2 host "NO_DISPLAY" "BOXES;PRINTED;HOST" "")
  get_filename_component(script ${script} ABSOLUTE)
  get_filename_component(language ${script} EXT)
  set(boxes -)
  if(host_BOXES)
    get_filename_component(boxes ${host_BOXES} ABSOLUTE)
  endif()
  set(test ${KOVREL_FLAVOUR}.host.${name})
  add_test(NAME ${test}
           COMMAND ${KOVREL_HOST_RUNNER} ${KOVREL_HOST_WINE} $<TARGET_FILE:box_answerer> ${boxes}
                   ${CMAKE_CURRENT_SOURCE_DIR}/checks${language} ${script})
  set_tests_properties(${test} PROPERTIES TIMEOUT 120)
  if(host_PRINTED)
    get_filename_component(printed ${host_PRINTED} ABSOLUTE)
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT KOVREL_HOST_PRINTED=${printed})
  endif()
  if(host_HOST)
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT
                                              KOVREL_HOST_PROGRAM=$<TARGET_FILE:${host_HOST}>)
  endif()
  if(host_NO_DISPLAY)
    set_property(TEST ${test} PROPERTY ENVIRONMENT_MODIFICATION DISPLAY=unset: XAUTHORITY=unset:)
  endif()
  if(host_BOXES)
    # Opening boxes takes the focus from other tests.
    set_tests_properties(${test} PROPERTIES RESOURCE_LOCK desktop)
  endif()
endfunction()

set(KOVREL_HOST_RUNNER ${CMAKE_CURRENT_LIST_DIR}/run_script.sh)
