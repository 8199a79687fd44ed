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
# Paragraphs of sentences are filled, tables stand as they are, and the usage has a line of its own.
string(REPLACE ";" "\\;" help "${help}")
string(REGEX REPLACE "\n\n+" ";" paragraphs "${help}")
set(description "")
foreach(paragraph IN LISTS paragraphs)
  string(STRIP "${paragraph}" paragraph)
  if(paragraph MATCHES "\n  ")
    string(APPEND description ".PP\n.nf\n${paragraph}\n.fi\n")
  elseif(paragraph)
    string(REGEX REPLACE "(^|\n)((Usage: |quode)[^\n]*\\[[^\n]*)" "\n.br\n\\2\n.br\n" paragraph "${paragraph}")
    string(REGEX REPLACE "\n\n+" "\n" paragraph "${paragraph}")
    string(STRIP "${paragraph}" paragraph)
    string(APPEND description ".PP\n${paragraph}\n")
  endif()
endforeach()
file(WRITE ${OUTPUT} ".TH ${capitals} 1 \"\" \"Quode ${VERSION}\" \"User Commands\"
.SH NAME
${name} \\- ${SUMMARY}
.SH DESCRIPTION
${description}.SH SEE ALSO
.BR quode (1)
")
