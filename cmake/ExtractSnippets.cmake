# Makes a program out of the snippets of a page, so that a test can build and run them.
#
#   ```cpp               statements; they become a function, whose `world` and `parser` have loaded scene.wrl
#   ```cpp declarations  what stands outside of functions
#   ```text              what the snippet in front of it prints
#   ```vrml NAME         a file for the snippets to load
#
# Sets `outVariable` to the program's source. Errors in a snippet are told at its line of the page.

function(qelvrml_extract_snippets page folder outVariable)
  file(READ "${page}" rest)
  set(line 1)
  set(includes "")
  set(code "")
  set(table "")
  set(fence "\n```")
  string(LENGTH "${fence}" fenceLength)
  string(FIND "${rest}" "${fence}" place)
  while(place GREATER -1)
    # To the line behind the opening fence.
    string(SUBSTRING "${rest}" 0 ${place} before)
    string(REGEX REPLACE "[^\n]" "" newlines "${before}")
    string(LENGTH "${newlines}" lines)
    math(EXPR line "${line} + ${lines} + 2")
    math(EXPR place "${place} + ${fenceLength}")
    string(SUBSTRING "${rest}" ${place} -1 rest)
    string(FIND "${rest}" "\n" place)
    string(SUBSTRING "${rest}" 0 ${place} kind)
    string(FIND "${rest}" "${fence}" end)
    math(EXPR place "${place} + 1")
    math(EXPR length "${end} - ${place} + 1")
    string(SUBSTRING "${rest}" ${place} ${length} body)
    math(EXPR end "${end} + ${fenceLength}")
    string(SUBSTRING "${rest}" ${end} -1 rest)
    string(REGEX REPLACE "[^\n]" "" newlines "${body}")
    string(LENGTH "${newlines}" bodyLines)

    if(kind MATCHES "^vrml (.+)$")
      file(WRITE "${folder}/${CMAKE_MATCH_1}" "${body}")
    elseif(kind STREQUAL "text")
      string(APPEND table "R\"~(${body})~\"")
    elseif(kind MATCHES "^cpp")
      string(REGEX MATCHALL "#include [^\n]*\n" found "${body}")
      list(APPEND includes ${found})
      string(REGEX REPLACE "#include [^\n]*\n" "\n" body "${body}")
      set(body "#line ${line} \"${page}\"\n${body}")
      if(kind STREQUAL "cpp")
        set(arguments "[[maybe_unused]] CKelWorld& world, [[maybe_unused]] CVRMLParser& parser")
        set(body "void Snippet${line}(${arguments}) {{\n${body}}}\n")
        if(table)
          string(APPEND table "},\n")
        endif()
        string(APPEND table "{${line}, &Snippet${line}, \"\" ")
      endif()
      string(APPEND code "${body}")
    endif()
    math(EXPR line "${line} + ${bodyLines}")
    string(FIND "${rest}" "${fence}" place)
  endwhile()
  list(REMOVE_DUPLICATES includes)
  list(JOIN includes "" includes)
  set(${outVariable} "${includes}#include \"SnippetRunner.h\"\nnamespace {\n${code}}\n\
int main() {\n  return RunSnippets({\n${table}},\n});\n}\n" PARENT_SCOPE)
endfunction()
