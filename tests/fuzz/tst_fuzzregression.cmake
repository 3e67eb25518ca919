# The replay test reads the committed corpora and crash inputs from the source tree.
target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_LIST_DIR})
target_compile_definitions(${name} PRIVATE GUICORE_FUZZ_DIR="${CMAKE_CURRENT_LIST_DIR}")

# libFuzzer targets, one per entry of FuzzEntries.h, in the clang build of ./run fuzz only.
if(GUICORE_FUZZ)
    add_custom_target(guicore_fuzz_targets)
    foreach(entry stylereader stylemanager datematcher toothnames nodejson)
        add_executable(fuzz_${entry} ${CMAKE_CURRENT_LIST_DIR}/FuzzTarget.cpp)
        target_include_directories(fuzz_${entry} PRIVATE ${CMAKE_CURRENT_LIST_DIR})
        target_compile_definitions(fuzz_${entry} PRIVATE GUICORE_FUZZ_ENTRY="${entry}")
        target_link_libraries(fuzz_${entry} PRIVATE GuiCore::GuiCore)
        target_link_options(fuzz_${entry} PRIVATE -fsanitize=fuzzer)
        add_dependencies(guicore_fuzz_targets fuzz_${entry})
    endforeach()
endif()
