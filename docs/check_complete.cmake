# Runs doxygen over the installed headers, the overviews and the guides, writing only its XML
# (references are resolved, and their warnings given, only while some output is written), and
# fails on any warning: an undocumented public class, function, signal, enum or typedef, a broken
# reference or a malformed command. Doxygen 1.9 does not warn about undocumented enumerators, so
# they are looked up in the XML.
# Arguments: -DDOXYGEN=... -DSOURCE_DIR=<repository> -DWORK_DIR=<scratch folder>
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
file(WRITE ${WORK_DIR}/Doxyfile "@INCLUDE = ${SOURCE_DIR}/docs/Doxyfile
OUTPUT_DIRECTORY = ${WORK_DIR}
GENERATE_HTML = NO
GENERATE_XML = YES
XML_PROGRAMLISTING = NO
HAVE_DOT = NO
STRIP_FROM_PATH = ${SOURCE_DIR}
WARN_LOGFILE = ${WORK_DIR}/warnings.txt
")
execute_process(COMMAND ${DOXYGEN} ${WORK_DIR}/Doxyfile
    WORKING_DIRECTORY ${SOURCE_DIR}
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "docs_complete: doxygen failed (${result}):\n${output}")
endif()
set(warnings)
if(EXISTS ${WORK_DIR}/warnings.txt)
    file(STRINGS ${WORK_DIR}/warnings.txt warnings)
endif()

# Every enum's values, with the enum's location; a value without brief or detailed text is
# reported like doxygen's own warnings. Enums at namespace level appear in the namespace's file
# and in the header's file, hence the duplicates removed below.
set(undocumented_value
    "<enumvalue [^>]*>[ \n]*<name>([^<]*)</name>[ \n]*(<initializer>([^<]|<ref [^>]*>|</ref>)*</initializer>[ \n]*)?<briefdescription>[ \n]*</briefdescription>[ \n]*<detaileddescription>[ \n]*</detaileddescription>")
file(GLOB compounds ${WORK_DIR}/xml/*.xml)
foreach(compound ${compounds})
    file(READ ${compound} xml)
    while(TRUE)
        string(FIND "${xml}" "<memberdef kind=\"enum\"" start)
        if(start EQUAL -1)
            break()
        endif()
        string(SUBSTRING "${xml}" ${start} -1 xml)
        string(FIND "${xml}" "</memberdef>" end)
        string(SUBSTRING "${xml}" 0 ${end} enum)
        string(SUBSTRING "${xml}" ${end} -1 xml)
        string(REGEX MATCH "<qualifiedname>([^<]*)</qualifiedname>" _ "${enum}")
        set(enum_name "${CMAKE_MATCH_1}")
        string(REGEX MATCH "<location file=\"([^\"]*)\" line=\"([0-9]+)\"" _ "${enum}")
        set(where "${SOURCE_DIR}/${CMAKE_MATCH_1}:${CMAKE_MATCH_2}")
        while(TRUE)
            string(REGEX MATCH "${undocumented_value}" value "${enum}")
            if(NOT value)
                break()
            endif()
            list(APPEND warnings
                "${where}: warning: Enumerator ${CMAKE_MATCH_1} of ${enum_name} is not documented.")
            string(FIND "${enum}" "${value}" at)
            string(LENGTH "${value}" length)
            math(EXPR after "${at} + ${length}")
            string(SUBSTRING "${enum}" ${after} -1 enum)
        endwhile()
    endwhile()
endforeach()
list(REMOVE_DUPLICATES warnings)

list(LENGTH warnings count)
if(count GREATER 0)
    list(JOIN warnings "\n" text)
    file(WRITE ${WORK_DIR}/problems.txt "${text}\n")
    list(SUBLIST warnings 0 60 shown)
    list(JOIN shown "\n" text)
    # Printed as they are: an error message would be re-wrapped.
    message(NOTICE "${text}")
    message(FATAL_ERROR "docs_complete: ${count} documentation warnings, the first ones above; "
        "all of them are in ${WORK_DIR}/problems.txt")
endif()
message(STATUS "docs_complete: every public name is documented")
