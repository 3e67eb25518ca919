# guicore_add_test(<source> [LIBRARIES <targets>...] [OPENGL])
#
# Builds one Qt Test executable from tst_<topic>.cpp and registers it with CTest. Tests run on
# the offscreen platform; OPENGL tests run in a real X server (xvfb-run) with Mesa's software
# renderer, because the offscreen platform has no OpenGL context to give them.

# Fuzzing build (./run fuzz, clang only): the library and everything it links are instrumented
# for libFuzzer's coverage feedback and for AddressSanitizer; only the fuzz targets themselves
# link libFuzzer's driver (-fsanitize=fuzzer), see tests/fuzz/.
option(GUICORE_FUZZ "Instrument for libFuzzer and AddressSanitizer and build the fuzz targets (clang)" OFF)
if(GUICORE_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        message(FATAL_ERROR "GUICORE_FUZZ needs clang (-DCMAKE_CXX_COMPILER=clang++)")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link,address -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address)
endif()

# Sanitizer settings of every test under the asan preset. Leaks are reported (LeakSanitizer)
# except those listed in tests/lsan.supp, which are all inside Qt, Mesa and fontconfig.
# xvfb-run passes its environment on to the test it starts, so OPENGL tests get these too.
#
# Mesa's GLX loader unloads its driver when the X connection closes, before the leak check at
# exit: whatever the driver still held in its globals then looks leaked, and its allocation
# stacks point into unmapped code that no suppression can name. OPENGL tests therefore preload
# the software driver, which keeps it loaded to the end (ASan then no longer comes first in the
# library list, which it would otherwise refuse).
set(GUICORE_TEST_SANITIZER_ENVIRONMENT)
set(GUICORE_TEST_SANITIZER_OPENGL_ENVIRONMENT)
if(GUICORE_SANITIZE OR GUICORE_FUZZ)
    set(asan_options "detect_leaks=1:abort_on_error=0:check_initialization_order=1")
    set(other_options
        "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0"
        "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1")
    set(GUICORE_TEST_SANITIZER_ENVIRONMENT "ASAN_OPTIONS=${asan_options}" ${other_options})
    set(GUICORE_TEST_SANITIZER_OPENGL_ENVIRONMENT ${GUICORE_TEST_SANITIZER_ENVIRONMENT})
    find_file(GUICORE_MESA_SOFTWARE_DRIVER swrast_dri.so
        PATHS /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/dri /usr/lib64/dri /usr/lib/dri
        NO_DEFAULT_PATH)
    if(GUICORE_MESA_SOFTWARE_DRIVER)
        set(GUICORE_TEST_SANITIZER_OPENGL_ENVIRONMENT
            "ASAN_OPTIONS=${asan_options}:verify_asan_link_order=0"
            "LD_PRELOAD=${GUICORE_MESA_SOFTWARE_DRIVER}" ${other_options})
    endif()
endif()

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
    if(arg_OPENGL AND GUICORE_TEST_SANITIZER_OPENGL_ENVIRONMENT)
        set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT
            ${GUICORE_TEST_SANITIZER_OPENGL_ENVIRONMENT})
    elseif(GUICORE_TEST_SANITIZER_ENVIRONMENT)
        set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT ${GUICORE_TEST_SANITIZER_ENVIRONMENT})
    endif()
endfunction()
