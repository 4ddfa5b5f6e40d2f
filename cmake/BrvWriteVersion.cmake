# Writes the version of a build, and the day of its release, into a source file: cmake -DVERSION=1.0.0 -DSOURCE=<folder> -DTEMPLATE=... -DOUTPUT=... -P ...
#
# A release has the version alone: sources without a repository, or the commit with the tag v1.0.0 or 1.0.0. Others have the number of
# commits since that tag, or in all while there is none, and the commit: 1.0.0+20.g50600e1, with .dirty where files differ from it.

# What git prints about the sources; nothing where it fails, or is not there.
function(ask_git variable)
  execute_process(COMMAND git -C ${SOURCE} --no-optional-locks ${ARGN}
                  OUTPUT_VARIABLE answer RESULT_VARIABLE status ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT status EQUAL 0)
    set(answer "")
  endif()
  set(${variable} "${answer}" PARENT_SCOPE)
endfunction()

# What follows the plus; nothing for a release.
function(describe_build variable)
  # A repository further up is not that of the sources.
  if(NOT EXISTS ${SOURCE}/.git)
    set(${variable} "" PARENT_SCOPE)
    return()
  endif()
  ask_git(commit rev-parse --short=7 HEAD)
  if(commit STREQUAL "")
    set(${variable} unknown PARENT_SCOPE)
    return()
  endif()
  ask_git(tag describe --tags --abbrev=0 --match v${VERSION} --match ${VERSION})
  set(commits HEAD)
  if(NOT tag STREQUAL "")
    set(commits ${tag}..HEAD)
  endif()
  ask_git(count rev-list --count ${commits})
  ask_git(changes status --porcelain --untracked-files=no)
  set(build "${count}.g${commit}")
  if(NOT changes STREQUAL "")
    string(APPEND build ".dirty")
  elseif(count EQUAL 0)
    set(build "")
  endif()
  set(${variable} "${build}" PARENT_SCOPE)
endfunction()

# The day of the first entry of the changelog, whose end is as in " -- Name <address>  Sun, 22 Nov 2026 03:00:00 +0000".
function(find_date variable)
  set(changelog ${SOURCE}/debian/changelog)
  file(STRINGS ${changelog} entry REGEX "^ -- .*>  " LIMIT_COUNT 1)
  set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
  if(entry MATCHES ">  [A-Z][a-z]+, +([0-9]+) ([A-Z][a-z]+) ([0-9]+) ")
    set(day ${CMAKE_MATCH_1})
    set(year ${CMAKE_MATCH_3})
    list(FIND months ${CMAKE_MATCH_2} month)
  endif()
  if(NOT DEFINED month OR month EQUAL -1)
    message(FATAL_ERROR "${changelog}: the first entry has no date")
  endif()
  math(EXPR month "${month} + 1")
  string(REGEX REPLACE "^.$" "0\\0" month ${month})
  string(REGEX REPLACE "^.$" "0\\0" day ${day})
  set(${variable} ${year}-${month}-${day} PARENT_SCOPE)
endfunction()

find_date(date)
describe_build(build)
set(version ${VERSION})
if(NOT build STREQUAL "")
  string(APPEND version "+${build}")
endif()
configure_file(${TEMPLATE} ${OUTPUT} @ONLY)
