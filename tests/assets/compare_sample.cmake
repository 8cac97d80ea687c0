# Imports the sample class TITLE with QRV and compares it with the sheet file beside its CSV.
set(made ${SCRATCH}/${TITLE}.qrv)
file(MAKE_DIRECTORY ${SCRATCH})
file(REMOVE ${made})
execute_process(
    COMMAND ${QRV} import ${SAMPLES}/${TITLE}.csv -o ${made} --title ${TITLE}
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${made} ${SAMPLES}/${TITLE}.qrv
    RESULT_VARIABLE different)
if(different)
    message(FATAL_ERROR "${SAMPLES}/${TITLE}.qrv is not what ${TITLE}.csv gives")
endif()
