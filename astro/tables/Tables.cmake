# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
# Turns the number tables (*.csv in this folder) into constexpr arrays. The numbers are copied as they are printed.

# quode_table(NAME ROW_TYPE [GROUPED] [PREFIX p] [DROP n]): writes generated/astro/tables/NAME.inc with the rows of NAME.csv.
#   GROUPED: the first column is the name of the row's array; without it there is one array, NAME.
#   PREFIX p: prefix of each array's name.
#   DROP n:  ignores the first n columns.
# An empty field becomes 0.
function(quode_table name row_type)
  cmake_parse_arguments(ARG "GROUPED" "DROP;PREFIX" "" ${ARGN})
  set(csv ${CMAKE_CURRENT_SOURCE_DIR}/tables/${name}.csv)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${csv})
  file(STRINGS ${csv} lines)
  list(POP_FRONT lines header)
  set(groups)
  foreach(line IN LISTS lines)
    string(REPLACE ",," ",0," line "${line}")
    string(REPLACE ",," ",0," line "${line}")
    string(REGEX REPLACE ",$" ",0" line "${line}")
    string(REPLACE "," ";" fields "${line}")
    set(group ${ARG_PREFIX}${name})
    if(ARG_GROUPED)
      list(GET fields 0 group)
      string(PREPEND group "${ARG_PREFIX}")
    endif()
    if(ARG_DROP)
      list(SUBLIST fields ${ARG_DROP} -1 fields)
    endif()
    list(JOIN fields ", " row)
    if(NOT group IN_LIST groups)
      list(APPEND groups ${group})
      set(rows_${group} "")
    endif()
    string(APPEND rows_${group} "    {${row}},\n")
  endforeach()
  set(text "// ${header}\n")
  foreach(group IN LISTS groups)
    string(APPEND text "inline constexpr ${row_type} ${group}[] = {\n${rows_${group}}};\n")
  endforeach()
  file(CONFIGURE OUTPUT generated/astro/tables/${name}.inc CONTENT "${text}" @ONLY)
endfunction()
