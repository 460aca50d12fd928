# cmake -D SOURCE=<project folder> -D HEADER=<file> -P WriteCommit.cmake
# Writes the commit that is built into a header, which stays untouched while the commit is the same.
# Sources without their history, as in a release's archive, have none.
cmake_minimum_required(VERSION 3.25)
set(PELORIN_COMMIT "")
find_program(GIT git)
if(GIT AND EXISTS ${SOURCE}/.git)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env GIT_OPTIONAL_LOCKS=0
                ${GIT} -c safe.directory=* describe --always --abbrev=12 --exclude=* --dirty
        WORKING_DIRECTORY ${SOURCE}
        OUTPUT_VARIABLE PELORIN_COMMIT
        OUTPUT_STRIP_TRAILING_WHITESPACE)
endif()
file(CONFIGURE OUTPUT ${HEADER}
     CONTENT "#pragma once\n\n#define PELORIN_COMMIT \"@PELORIN_COMMIT@\"\n" @ONLY)
