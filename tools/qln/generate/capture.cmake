# Runs COMMAND and writes its output to OUTPUT, which is created only if the command succeeds.
execute_process(COMMAND ${COMMAND} OUTPUT_VARIABLE text RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${COMMAND} ended with ${result}")
endif()
file(WRITE ${OUTPUT} "${text}")
