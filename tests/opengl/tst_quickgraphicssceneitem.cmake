# The scene is painted from the scene graph's render callback; the basic render loop keeps that on
# the GUI thread, so the test's own changes to the scene never race with a frame.
set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "QSG_RENDER_LOOP=basic")

# Once more at a device pixel ratio of 2: forwarded input must be scaled to device pixels.
add_test(NAME ${name}_scaled
    COMMAND ${XVFB_RUN} -a -s "-screen 0 1280x1024x24" $<TARGET_FILE:${name}>)
set_tests_properties(${name}_scaled PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=xcb;LIBGL_ALWAYS_SOFTWARE=1;QT_SCALE_FACTOR=2;QSG_RENDER_LOOP=basic;QTEST_FUNCTION_TIMEOUT=120000"
    LABELS opengl)
set_property(TEST ${name}_scaled APPEND PROPERTY ENVIRONMENT ${GUICORE_TEST_SANITIZER_OPENGL_ENVIRONMENT})
