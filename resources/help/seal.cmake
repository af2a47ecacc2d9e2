# Puts the SHA-256 of the resource, 64 hexadecimal letters, behind it: the toolkit reads a cut or damaged resource
# without looking, so the program looks at the sum before it hands one over.
file(SHA256 ${RESOURCE} sum)
file(WRITE ${RESOURCE}.sum ${sum})
execute_process(COMMAND ${CMAKE_COMMAND} -E cat ${RESOURCE} ${RESOURCE}.sum OUTPUT_FILE ${SEALED}
                COMMAND_ERROR_IS_FATAL ANY)
