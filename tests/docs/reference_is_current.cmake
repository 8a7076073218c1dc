# Fails when docs/referencia.md is not what the declarations and the notes give.
execute_process(COMMAND ${EMULATOR} ${WRITER} docs/notas ${FRESH} WORKING_DIRECTORY ${SOURCE}
                RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the reference cannot be written")
endif()
execute_process(COMMAND diff -u ${SOURCE}/docs/referencia.md ${FRESH} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "docs/referencia.md is stale: build the target \"reference\"")
endif()
