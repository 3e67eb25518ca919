# The plug-in the test loads and unloads, built as a module of its own like a real one.
add_library(tst_pluginunload_plugin MODULE solution/UnloadTestPlugin.cpp)
target_link_libraries(tst_pluginunload_plugin PRIVATE GuiCore::GuiCore Qt6::Widgets)
set_target_properties(tst_pluginunload_plugin PROPERTIES
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/${name}_plugin)
add_dependencies(${name} tst_pluginunload_plugin)
target_compile_definitions(${name} PRIVATE
    UNLOAD_TEST_PLUGIN="$<TARGET_FILE:tst_pluginunload_plugin>")
