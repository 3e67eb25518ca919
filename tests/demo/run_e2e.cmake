# Runs the dental viewer's end-to-end script under a virtual X server, checks the state dump and
# the screenshots, then starts the viewer again to check that the saved state comes back and that
# a damaged state file, or one from a newer version, is reported and ignored, not fatal.
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

function(run_viewer script)
    execute_process(
        COMMAND ${XVFB_RUN} -a -s "-screen 0 1280x1024x24"
            ${VIEWER} --script ${script} --screenshots ${WORK_DIR}/shots
            --state-dir ${WORK_DIR}/state --palette dark
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE errors
        TIMEOUT 150)
    message(STATUS "${output}")
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "dentalviewer failed (${result}) on ${script}:\n${errors}")
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

run_viewer(${SCRIPT})
check(dump ${WORK_DIR}/shots/preferences.json --label-size 18)
check(dump ${WORK_DIR}/shots/state.json --lengths 1 --areas 1 --length-mm 30.0
    --text "Implant site" --notation UNIV --view Panoramic --reslice "Cross-section A" 0.5
    --reslice "Cross-section B" 0.8 --label-offset 52 16 --label-size 18 --selected-tooth 3
    --active-sub-view Cross-sections "Cross-section B" --zoomed-in Panoramic 1200 500)
# The wheel zooms; Reset view fits the whole panoramic image again.
check(dump ${WORK_DIR}/shots/zoomed.json --zoomed-in Panoramic 1200 500)
check(dump ${WORK_DIR}/shots/reset.json --fitted Panoramic 1200 500)
# The same zoom again, then a pan of 100 image pixels.
check(dump ${WORK_DIR}/shots/state.json --panned-from ${WORK_DIR}/shots/zoomed.json Panoramic 100 0)

# The snapshot export wrote a picture and a page that carries it inline.
file(GLOB snapshot_png ${WORK_DIR}/shots/export/snapshot-*.png)
file(GLOB snapshot_html ${WORK_DIR}/shots/export/snapshot-*.html)
if(NOT snapshot_png OR NOT snapshot_html)
    message(FATAL_ERROR "the snapshot export wrote no PNG and HTML into ${WORK_DIR}/shots/export")
endif()
check(image ${snapshot_png} --measurement-pixels 150 --measurement-run 200)
file(READ ${snapshot_html} page)
if(NOT page MATCHES "<img[^>]*src=\"data:image/[A-Za-z]+;base64,[A-Za-z0-9+/]")
    message(FATAL_ERROR "the snapshot page does not hold the picture as a data URL")
endif()
check(image ${WORK_DIR}/shots/panoramic-length.png --measurement-pixels 150 --measurement-run 200)
check(image ${WORK_DIR}/shots/panoramic.png --measurement-pixels 150 --measurement-run 200)
check(image ${WORK_DIR}/shots/cross-sections.png)
check(image ${WORK_DIR}/shots/tooth-chart.png)

# The state written at exit comes back at the next start.
file(READ ${WORK_DIR}/state/ui-state.json good_state)
run_viewer(${script_dir}/restore.script)
set(restored_checks --lengths 1 --areas 1 --length-mm 30.0 --text "Implant site" --notation UNIV
    --view "Tooth chart" --reslice "Cross-section A" 0.5 --reslice "Cross-section B" 0.8
    --label-offset 52 16 --active-sub-view Cross-sections "Cross-section B")
check(dump ${WORK_DIR}/shots/restored.json ${restored_checks})
check(dump ${WORK_DIR}/shots/restored-panoramic.json
    --zoom-like ${WORK_DIR}/shots/state.json Panoramic)

# A damaged state file is ignored: the viewer still starts with the default view, and says so.
file(WRITE ${WORK_DIR}/state/ui-state.json "{ this is not a state tree")
run_viewer(${script_dir}/restore.script)
check(dump ${WORK_DIR}/shots/restored.json --lengths 1 --view Panoramic --notation FDI
    --reslice "Cross-section A" 0.3 --status "was ignored"
    --active-sub-view Cross-sections "Cross-section A")
check(dump ${WORK_DIR}/shots/restored-panoramic.json --fitted Panoramic 1200 500)

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
    check(dump ${WORK_DIR}/shots/restored.json --lengths 1 --view Panoramic --notation FDI
        --reslice "Cross-section A" 0.3 --status "was ignored")
endforeach()

# The good file still restores once written back: the edits above were what was refused.
file(WRITE ${WORK_DIR}/state/ui-state.json "${good_state}")
run_viewer(${script_dir}/restore.script)
check(dump ${WORK_DIR}/shots/restored.json ${restored_checks})
