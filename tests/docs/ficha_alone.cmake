# Builds a copy of the sample host outside the source tree, with nothing of the library but its
# header: cmake -DSOURCE=... -DHEADER=... -DFOLDER=... -DGENERATOR=... -DTOOLCHAIN=... -P
# What a run before has built is kept; the copies keep their times.
file(REMOVE_RECURSE ${FOLDER}/ficha ${FOLDER}/include)
file(REMOVE ${FOLDER}/build/ficha.exe)
file(COPY ${SOURCE}/ DESTINATION ${FOLDER}/ficha)
file(COPY ${HEADER} DESTINATION ${FOLDER}/include)

execute_process(
  COMMAND ${CMAKE_COMMAND} -S ${FOLDER}/ficha -B ${FOLDER}/build -G ${GENERATOR}
          -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DCMAKE_UNITY_BUILD=ON -DKOVREL_INCLUDE=${FOLDER}/include
          COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${FOLDER}/build COMMAND_ERROR_IS_FATAL ANY)
if(NOT EXISTS ${FOLDER}/build/ficha.exe)
  message(FATAL_ERROR "the copy was built without a program")
endif()
