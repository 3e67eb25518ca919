# cmake -DLUPDATE=... -DSOURCE_DIR=... -DWORK_DIR=... -P translations_current.cmake
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
set(fresh ${WORK_DIR}/guicore_en.ts)
execute_process(
    COMMAND ${LUPDATE} -silent -locations none ${SOURCE_DIR}/src/guicore -ts ${fresh}
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "lupdate failed (${result})")
endif()
file(READ ${fresh} fresh_text)
file(READ ${SOURCE_DIR}/translations/guicore_en.ts committed_text)
if(NOT fresh_text STREQUAL committed_text)
    message(FATAL_ERROR "translations/guicore_en.ts is out of date: run ./run translations")
endif()
