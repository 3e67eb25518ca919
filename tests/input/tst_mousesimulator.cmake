# The plain run uses the offscreen platform, which has no synthetic input. The same binary runs
# once more against a real X server, where the simulator goes through XTest and the tests read
# the pointer and the delivered events back from the server.
find_program(XVFB_RUN xvfb-run)
if(XVFB_RUN)
    add_test(NAME ${name}_xcb
        COMMAND ${XVFB_RUN} -a -s "-screen 0 1280x1024x24" $<TARGET_FILE:${name}>)
    set_tests_properties(${name}_xcb PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=xcb;QTEST_FUNCTION_TIMEOUT=120000"
        LABELS opengl)
    # It runs on an X server like the OpenGL tests, so it takes their sanitizer settings.
    set_property(TEST ${name}_xcb APPEND PROPERTY ENVIRONMENT
        ${GUICORE_TEST_SANITIZER_OPENGL_ENVIRONMENT})
endif()
