# Imports the sample class TITLE with QRV and compares it with the sheet file beside its CSV, and its page
# with the one beside, if there is one.
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

set(sample_page ${SAMPLES}/${TITLE}.html)
if(EXISTS ${sample_page})
    set(page ${SCRATCH}/${TITLE}.html)
    execute_process(
        COMMAND ${QRV} page ${SAMPLES}/${TITLE}.qrv --scale default --school "North High"
            --teacher "Ms. Rivera" --date 11/22/2026 -o ${page}
        COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${page} ${sample_page}
        RESULT_VARIABLE different)
    if(different)
        message(FATAL_ERROR "${sample_page} is not the page that qrv makes; ${page} is")
    endif()
endif()
