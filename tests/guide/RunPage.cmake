# Runs the program of a page of the guide in a folder of its own and compares what it prints with what the page says.
file(REMOVE_RECURSE ${workFolder})
file(MAKE_DIRECTORY ${workFolder})
execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8 ${environment} ${program} WORKING_DIRECTORY ${workFolder}
                OUTPUT_VARIABLE printed RESULT_VARIABLE result)
if(result)
    message(FATAL_ERROR "The code of ${page} ended with ${result}, after it printed\n${printed}")
endif()
file(READ ${expected} told)
if(NOT printed STREQUAL told)
    message(FATAL_ERROR "The code of ${page} prints\n${printed}\nand the page says\n${told}")
endif()
file(REMOVE_RECURSE ${workFolder})
