# guicore_add_test(<source> [LIBRARIES <targets>...] [OPENGL])
#
# Builds one Qt Test executable from tst_<topic>.cpp and registers it with CTest. Tests run on
# the offscreen platform; OPENGL tests run in a real X server (xvfb-run) with Mesa's software
# renderer, because the offscreen platform has no OpenGL context to give them.
function(guicore_add_test source)
    cmake_parse_arguments(arg "OPENGL" "" "LIBRARIES" ${ARGN})
    get_filename_component(name ${source} NAME_WE)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE Qt6::Test ${arg_LIBRARIES})
    if(arg_OPENGL)
        find_program(XVFB_RUN xvfb-run REQUIRED)
        add_test(NAME ${name}
            COMMAND ${XVFB_RUN} -a -s "-screen 0 1280x1024x24" $<TARGET_FILE:${name}>)
        set_tests_properties(${name} PROPERTIES
            ENVIRONMENT "QT_QPA_PLATFORM=xcb;LIBGL_ALWAYS_SOFTWARE=1;QT_QUICK_BACKEND=;QTEST_FUNCTION_TIMEOUT=120000"
            LABELS opengl)
    else()
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QTEST_FUNCTION_TIMEOUT=120000")
    endif()
endfunction()
