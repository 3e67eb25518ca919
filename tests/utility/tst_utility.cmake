# A real binary resource file beside the test executable, as the application ships it: one good
# font and one file that only pretends to be a font. The test runs from a folder of its own so
# that its resource file never takes the place of an application's in the shared bin folder.
set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/${name}_bin)
set(fonts_dir ${CMAKE_CURRENT_BINARY_DIR}/${name}_fonts)
file(WRITE ${fonts_dir}/Broken.ttf "this is not a font file\n")
file(WRITE ${fonts_dir}/fonts.qrc
"<RCC>
    <qresource prefix=\"/fonts\">
        <file alias=\"DejaVuSans.ttf\">/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf</file>
        <file alias=\"Broken.ttf\">${fonts_dir}/Broken.ttf</file>
    </qresource>
</RCC>
")
add_custom_command(TARGET ${name} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E make_directory $<TARGET_FILE_DIR:${name}>/rcc/fonts
    COMMAND Qt6::rcc -binary ${fonts_dir}/fonts.qrc
        -o $<TARGET_FILE_DIR:${name}>/rcc/fonts/ResourcesSharedFonts.rcc
    COMMENT "Building the shared fonts resource for ${name}"
    VERBATIM)
