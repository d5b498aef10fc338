# Writes the commit of the sources in SOURCE into OUTPUT, a source file of its own: a new commit compiles that one file,
# and none when the same commit is built again. An archive of the sources carries the name in cmake/commit.txt. Without
# either, and in somebody else's repository, the name stays empty.
cmake_policy(VERSION 3.25)
file(STRINGS ${SOURCE}/cmake/commit.txt commit)
if(commit MATCHES "^[0-9a-f]+$")
  string(SUBSTRING ${commit} 0 12 commit)
else()
  set(commit "")
  find_program(GIT git)
  if(GIT)
    execute_process(COMMAND ${GIT} -C ${SOURCE} rev-parse --short=12 --show-prefix HEAD
                    OUTPUT_VARIABLE answer ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
    # The first line is the path below the top of the repository.
    if(answer MATCHES "^\n([0-9a-f]+)$")
      set(commit ${CMAKE_MATCH_1})
      execute_process(COMMAND ${GIT} -C ${SOURCE} status --porcelain --untracked-files=no
                      OUTPUT_VARIABLE changes ERROR_QUIET)
      if(changes)
        string(APPEND commit "-dirty")
      endif()
    endif()
  endif()
endif()

file(CONFIGURE OUTPUT ${OUTPUT} @ONLY CONTENT [[
#include "core/shell/ProgramCommit.h"

namespace tremlo {

const char kProgramCommit[] = "@commit@";

}  // namespace tremlo
]])
