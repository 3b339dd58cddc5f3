# Runs `nvwordmerge fields` for one list type in each variant and compares the output with the
# golden files data/<list>-<type>-<country>[-use-2].tsv: the field list ("fields") and the list
# box entries ("listbox"), for Canada (Ontario) and the United States, as of 15 March 2026,
# without a database. With -DUPDATE=ON the files are written instead (check the diff!).
#
#   cmake -DPROGRAM=nvwordmerge -DDATA=tests/catalogue/data -DLIST_TYPE=1 -DUSES=1,2
#         [-DUPDATE=ON] -P fields_golden.cmake
string(REPLACE "," ";" uses "${USES}")
set(failed "")
foreach(use IN LISTS uses)
  foreach(country 1 2)
    foreach(kind fields listbox)
      if(country EQUAL 1)
        set(name "${kind}-${LIST_TYPE}-canada")
      else()
        set(name "${kind}-${LIST_TYPE}-us")
      endif()
      if(NOT use EQUAL 1)
        string(APPEND name "-use-${use}")
      endif()
      set(args fields --list-type ${LIST_TYPE} --use ${use} --country ${country} --province 3
               --date 2026-03-15)
      if(kind STREQUAL "listbox")
        list(APPEND args --list-box)
      endif()
      execute_process(COMMAND "${PROGRAM}" ${args} OUTPUT_VARIABLE output
                      ERROR_VARIABLE errors RESULT_VARIABLE status)
      set(golden "${DATA}/${name}.tsv")
      if(NOT status EQUAL 0)
        string(APPEND failed "  ${name}: exit status ${status}: ${errors}\n")
      elseif(UPDATE)
        file(WRITE "${golden}" "${output}")
      elseif(NOT EXISTS "${golden}")
        string(APPEND failed "  ${name}: no golden file ${golden}\n")
      else()
        file(READ "${golden}" expected)
        if(NOT output STREQUAL expected)
          file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/${name}.actual.tsv" "${output}")
          string(APPEND failed "  ${name}: differs from ${golden}; the output is in "
                               "${CMAKE_CURRENT_BINARY_DIR}/${name}.actual.tsv\n")
        endif()
      endif()
    endforeach()
  endforeach()
endforeach()
if(failed)
  message(FATAL_ERROR "The field lists of list type ${LIST_TYPE} are not the golden ones:\n"
                      "${failed}")
endif()
