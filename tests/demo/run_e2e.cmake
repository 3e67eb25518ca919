# Runs the dental viewer's end-to-end scripts under a virtual X server and checks the state dumps
# and the screenshots: the main script, then restarts on the saved state, after a crash and after
# the end of a session in the middle of a script, on damaged state files and on files of a newer
# version, and a run at twice the scale.
#   -DXVFB_RUN= -DVIEWER= -DCHECKER= -DSCRIPT= -DWORK_DIR=
if(NOT XVFB_RUN)
    message(FATAL_ERROR "xvfb-run was not found when the build was configured: install the "
        "xvfb package (./run test does) and configure again; the viewer needs a display")
endif()
get_filename_component(script_dir ${SCRIPT} DIRECTORY)
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR}/shots ${WORK_DIR}/config ${WORK_DIR}/data)
# Keep the user's own preferences and data out of the run.
set(ENV{XDG_CONFIG_HOME} ${WORK_DIR}/config)
set(ENV{XDG_DATA_HOME} ${WORK_DIR}/data)

# run_viewer(SCRIPT [STATUS code] [STATE dir] [SCREEN WxH] [SCALE factor])
function(run_viewer script)
    cmake_parse_arguments(RUN "" "STATUS;STATE;SCREEN;SCALE" "" ${ARGN})
    if(NOT DEFINED RUN_STATUS)
        set(RUN_STATUS 0)
    endif()
    if(NOT RUN_STATE)
        set(RUN_STATE ${WORK_DIR}/state)
    endif()
    if(NOT RUN_SCREEN)
        set(RUN_SCREEN 1280x1024)
    endif()
    set(scale)
    if(RUN_SCALE)
        set(scale ${CMAKE_COMMAND} -E env QT_SCALE_FACTOR=${RUN_SCALE})
    endif()
    # -noreset: an X server that resets when its last client leaves signals xvfb-run again, and
    # that signal, arriving while xvfb-run cleans up, makes it fail (status 5) now and then.
    execute_process(
        COMMAND ${XVFB_RUN} -a -s "-screen 0 ${RUN_SCREEN}x24 -noreset" ${scale}
            ${VIEWER} --script ${script} --screenshots ${WORK_DIR}/shots
            --state-dir ${RUN_STATE} --palette dark
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE errors
        TIMEOUT 150)
    message(STATUS "${output}")
    if(NOT result STREQUAL RUN_STATUS)
        message(FATAL_ERROR "dentalviewer ended with ${result}, not ${RUN_STATUS}, on "
            "${script}:\n${errors}")
    endif()
endfunction()

function(check)
    execute_process(COMMAND ${CHECKER} ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    message(STATUS "${output}")
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "check failed: ${ARGN}\n${output}")
    endif()
endfunction()

set(shots ${WORK_DIR}/shots)
run_viewer(${SCRIPT})
check(dump ${shots}/length-tool.json --running measureLength --status-bar "Escape ends the tool")
check(dump ${shots}/preferences.json --label-size 18)
# Typing in a note: the caret keys, a new line and Return; the view does not move meanwhile.
check(dump ${shots}/note.json --notes 2 --note "Mandibular nerve canal\\ncheck depth"
    --panned-from ${shots}/before-note.json Panoramic 0 0)
check(dump ${shots}/emptied.json --notes 1 --note "Implant site")
check(dump ${shots}/no-stray-note.json --notes 2)
# Delete, undo and redo of a length made with two clicks.
check(dump ${shots}/two-lengths.json --lengths 2 --length-mm 20.0)
check(dump ${shots}/deleted.json --lengths 1 --length-mm 30.0)
check(dump ${shots}/undone.json --lengths 2 --length-mm 20.0)
check(dump ${shots}/redone.json --lengths 1)
# Refused: a point off the image, an outline that crosses itself.
check(dump ${shots}/letterbox.json --lengths 1 --running measureLength
    --status-bar "outside the image")
check(dump ${shots}/bow-tie.json --areas 1 --running measureArea --status-bar "cross itself")
check(dump ${shots}/menu-deleted.json --areas 0)
# Labels laid out again at the new size: the length's box holds its text.
check(image ${shots}/labels-18.png --label-fits ${shots}/labels-18.json Panoramic_length_label)
# The light palette at once; the tooth numbers keep their contrast on the radiograph.
check(dump ${shots}/light.json --window-color "#f5f5f5" --drawn Panoramic_scale --drawn cutLabel1)
check(image ${shots}/light.png --contrast ${shots}/light.json tooth 4.5)
# The tooth chart: tools disabled and saying why, buttons that stay put, numbers centred, the
# selection stronger than the hover, and the cross-section shown following the tooth.
check(dump ${shots}/chart-empty.json --disabled measureLength "tooth chart"
    --disabled resetView "tooth chart" --chart-layout)
check(dump ${shots}/chart.json --selected-tooth 3 --buttons-like ${shots}/chart-empty.json
    --chart-layout --reslice "Cross-section A" 0.225)
check(image ${shots}/tooth-chart.png --selection-stronger ${shots}/chart.json)
# A cross-section's measurement shows on its slice only; the list brings it back.
check(dump ${shots}/on-slice.json --lengths 2 --drawn "Cross-section A_length_label")
check(dump ${shots}/off-slice.json --lengths 2 --not-drawn "Cross-section A_length_label")
check(dump ${shots}/revealed.json --view "Cross-section A" --reslice "Cross-section A" 0.225
    --drawn "Cross-section A_length_label")
check(dump ${shots}/exported.json --status-bar "Snapshot saved")
check(dump ${shots}/export-failed.json --problem "snapshot was not saved")
check(dump ${shots}/shortcuts.json --shortcut Undo Ctrl+Z --shortcut Redo Ctrl+Shift+Z
    --shortcut Delete Del --shortcut Quit Ctrl+Q --shortcut "Keyboard shortcuts" F1)
check(dump ${shots}/state.json --lengths 1 --areas 1 --length-mm 30.0
    --note "Implant site" --notation UNIV --view Panoramic --reslice "Cross-section A" 0.5
    --reslice "Cross-section B" 0.8 --label-offset 52 16 --label-size 18 --selected-tooth 3
    --active-sub-view Cross-sections "Cross-section B" --zoomed-in Panoramic 1200 500)
# The wheel zooms; Reset view fits the whole panoramic image again.
check(dump ${shots}/zoomed.json --zoomed-in Panoramic 1200 500)
check(dump ${shots}/reset.json --fitted Panoramic 1200 500)
# The same zoom again, then a pan of 100 image pixels.
check(dump ${shots}/state.json --panned-from ${shots}/zoomed.json Panoramic 100 0)

# The snapshot export wrote a picture and a page that carries it inline, with its date and scale.
file(GLOB snapshot_png ${shots}/export/snapshot-*.png)
file(GLOB snapshot_html ${shots}/export/snapshot-*.html)
if(NOT snapshot_png OR NOT snapshot_html)
    message(FATAL_ERROR "the snapshot export wrote no PNG and HTML into ${shots}/export")
endif()
check(image ${snapshot_png} --measurement-pixels 150 --measurement-run 200)
file(READ ${snapshot_html} page)
if(NOT page MATCHES "<img[^>]*src=\"data:image/[A-Za-z]+;base64,[A-Za-z0-9+/]"
    OR NOT page MATCHES "Panoramic · [^<]*[0-9] · 0.1 mm per image pixel")
    message(FATAL_ERROR "the snapshot page lacks the picture as a data URL, or its date and scale")
endif()
check(image ${shots}/panoramic-length.png --measurement-pixels 150 --measurement-run 200)
check(image ${shots}/panoramic.png --measurement-pixels 150 --measurement-run 200)
check(image ${shots}/cross-sections.png)
check(image ${shots}/tooth-chart.png)

# The state saved by the run comes back at the next start, which Ctrl+Q ends.
set(document ${WORK_DIR}/state/document.json)
file(READ ${WORK_DIR}/state/ui-state.json good_state)
file(READ ${document} good_document)
run_viewer(${script_dir}/restore.script)
set(restored_checks --lengths 1 --areas 1 --length-mm 30.0 --note "Implant site" --notation UNIV
    --view "Tooth chart" --reslice "Cross-section A" 0.5 --reslice "Cross-section B" 0.8
    --label-offset 52 16 --active-sub-view Cross-sections "Cross-section B")
check(dump ${shots}/restored.json ${restored_checks} --selected-tooth 3 --window-size 1100 720)
check(dump ${shots}/restored-panoramic.json
    --panned-from ${shots}/state.json Panoramic 0 0)
if(EXISTS ${shots}/not-quit.json)
    message(FATAL_ERROR "Ctrl+Q did not quit the viewer")
endif()

# A kill over a second after a change (a crash) and the end of the session at once after one
# (SIGTERM) both lose nothing: the restart finds the length and the area they made.
run_viewer(${script_dir}/crash.script STATUS 137)
run_viewer(${script_dir}/term.script STATUS 143)
run_viewer(${script_dir}/restore.script)
check(dump ${shots}/restored.json --lengths 2 --areas 2)

# A document cut short is kept aside; the viewer reads what it can and says how much was lost.
file(READ ${document} whole)
string(LENGTH "${whole}" size)
math(EXPR half "${size} / 2")
string(SUBSTRING "${whole}" 0 ${half} truncated)
file(WRITE ${document} "${truncated}")
run_viewer(${script_dir}/restore.script)
check(dump ${shots}/restored.json --status "of 6 measurement(s) could be read"
    --status "lost" --status "document.json.damaged-")
file(GLOB kept ${WORK_DIR}/state/document.json.damaged-*)
list(LENGTH kept kept_count)
if(NOT kept_count EQUAL 1)
    message(FATAL_ERROR "the damaged document was not kept aside once: ${kept}")
endif()
file(READ ${kept} kept_text)
file(READ ${document} saved_again)
string(JSON saved_count ERROR_VARIABLE json_error GET "${saved_again}" count)
if(NOT kept_text STREQUAL truncated OR json_error OR saved_count GREATER_EQUAL 6)
    message(FATAL_ERROR "the damaged document is not kept as it was, or the document was not "
        "saved again with what could be read (${json_error})")
endif()
file(REMOVE ${kept})
file(WRITE ${document} "${good_document}")

# A damaged state file is ignored: the viewer still starts with the default view, and says so.
file(WRITE ${WORK_DIR}/state/ui-state.json "{ this is not a state tree")
run_viewer(${script_dir}/restore.script)
check(dump ${shots}/restored.json --lengths 1 --view Panoramic --notation FDI
    --reslice "Cross-section A" 0.3 --status "was ignored"
    --active-sub-view Cross-sections "Cross-section A")
check(dump ${shots}/restored-panoramic.json --fitted Panoramic 1200 500)

# A file of a newer format, and one with a node of a newer version, are ignored the same way.
string(REPLACE "\"formatVersion\": 1" "\"formatVersion\": 2" newer_format "${good_state}")
string(REPLACE "\"CrossSectionalResliceViewerNode\": \"1.0\""
    "\"CrossSectionalResliceViewerNode\": \"2.0\"" newer_node "${good_state}")
foreach(newer newer_format newer_node)
    if("${${newer}}" STREQUAL "${good_state}")
        message(FATAL_ERROR "${newer}: the saved state no longer has the text this test edits")
    endif()
    file(WRITE ${WORK_DIR}/state/ui-state.json "${${newer}}")
    run_viewer(${script_dir}/restore.script)
    check(dump ${shots}/restored.json --lengths 1 --view Panoramic --notation FDI
        --reslice "Cross-section A" 0.3 --status "was ignored")
endforeach()

# The good file still restores once written back: the edits above were what was refused.
file(WRITE ${WORK_DIR}/state/ui-state.json "${good_state}")
run_viewer(${script_dir}/restore.script)
check(dump ${shots}/restored.json ${restored_checks})

# At twice the scale on a smaller screen: the window fits it, and in a small window the texts
# kept on a viewer's screen stay inside it, clear of the cross.
run_viewer(${script_dir}/scale.script STATE ${WORK_DIR}/scaled-state SCREEN 1600x1000 SCALE 2)
check(dump ${shots}/scaled.json --fits-screen)
check(dump ${shots}/small.json --inside-viewport "Cross-section A_caption"
    --inside-viewport "Cross-section A_scale")
check(image ${shots}/small.png --no-dragger-in ${shots}/small.json "Cross-section A_caption")
