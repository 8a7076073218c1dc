# The guide's examples in compiled languages, one a language.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(KOVREL_GUIDE ${CMAKE_SOURCE_DIR}/docs/guia.md)
set(KOVREL_GUIDE_EXAMPLE ${CMAKE_CURRENT_LIST_DIR}/guide_example.py)

# kovrel_guide_source(language file): the example as a source file of this build folder.
function(kovrel_guide_source language file)
  add_custom_command(
    OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${file}
    COMMAND ${Python3_EXECUTABLE} ${KOVREL_GUIDE_EXAMPLE} extract ${language} ${KOVREL_GUIDE} ${file}
    DEPENDS ${KOVREL_GUIDE} ${KOVREL_GUIDE_EXAMPLE}
    VERBATIM)
endfunction()

# kovrel_guide_test(language program): it prints what the example states.
function(kovrel_guide_test language program)
  set(test ${KOVREL_FLAVOUR}.docs.guide_${language})
  add_test(NAME ${test} COMMAND ${Python3_EXECUTABLE} ${KOVREL_GUIDE_EXAMPLE} check ${language}
                                ${KOVREL_GUIDE} ${CMAKE_CROSSCOMPILING_EMULATOR} ${program})
  set_tests_properties(${test} PROPERTIES TIMEOUT 60)
endfunction()
