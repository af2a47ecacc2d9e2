# Appends the SHA-256 of the resource, 64 hexadecimal digits. The toolkit does not check a resource for damage, so the
# program compares the sum before it registers one.
file(SHA256 ${RESOURCE} sum)
file(WRITE ${RESOURCE}.sum ${sum})
execute_process(COMMAND ${CMAKE_COMMAND} -E cat ${RESOURCE} ${RESOURCE}.sum OUTPUT_FILE ${SEALED}
                COMMAND_ERROR_IS_FATAL ANY)
