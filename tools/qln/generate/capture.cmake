# Runs COMMAND and writes what it prints to OUTPUT, which is made only when the command ends well.
execute_process(COMMAND ${COMMAND} OUTPUT_VARIABLE text RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${COMMAND} ended with ${result}")
endif()
file(WRITE ${OUTPUT} "${text}")
