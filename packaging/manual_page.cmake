# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
cmake_minimum_required(VERSION 3.25)
# Writes the manual page of a program without subcommands from its own --help, so that the two cannot disagree.
# -DPROGRAM=file -DSUMMARY=text -DVERSION=number -DOUTPUT=file
execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C QUODE_LANG=en ${PROGRAM} --help
  OUTPUT_VARIABLE help COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET PROGRAM FILENAME name)
string(TOUPPER ${name} capitals)
# As roff takes it: backslashes, hyphens that are typed, lines that begin like a request.
set(texts name capitals SUMMARY help)
foreach(text IN LISTS texts)
  string(REPLACE "\\" "\\e" ${text} "${${text}}")
  string(REPLACE "-" "\\-" ${text} "${${text}}")
  string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" ${text} "${${text}}")
endforeach()
# The help's sentences are filled, its tables stand as they are.
string(REGEX MATCH "^[^\n]*\n" sentences "${help}")
string(LENGTH "${sentences}" length)
string(SUBSTRING "${help}" ${length} -1 rest)
string(STRIP "${sentences}" sentences)
file(WRITE ${OUTPUT} ".TH ${capitals} 1 \"\" \"Quode ${VERSION}\" \"User Commands\"
.SH NAME
${name} \\- ${SUMMARY}
.SH DESCRIPTION
${sentences}
.PP
.nf
${rest}.fi
.SH SEE ALSO
.BR quode (1)
")
