# Runs the benchmark over a small database and looks at the results that it writes.
# Variables: BENCH (the program), WORK (a directory of its own).
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/tmp)
set(ENV{TMPDIR} ${WORK}/tmp)

execute_process(COMMAND ${BENCH} --sizes 200 --repeat 1 --output ${WORK}/results.json
  RESULT_VARIABLE status OUTPUT_VARIABLE table ERROR_VARIABLE messages)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "The benchmark ended with ${status}:\n${messages}")
endif()
if(NOT table MATCHES "load / plain reading +200 ")
  message(FATAL_ERROR "The table lacks the load goal:\n${table}")
endif()

file(READ ${WORK}/results.json json)
# string(JSON) ends the script with a message when a member is missing.
foreach(key cpus cpu memory_bytes compiler build_type sanitized)
  string(JSON value GET "${json}" machine ${key})
endforeach()
foreach(key plain_ms load_ms pack_ms close_ms)
  string(JSON value GET "${json}" sizes 0 ${key} least)
  if(NOT value GREATER 0)
    message(FATAL_ERROR "${key} is ${value}")
  endif()
endforeach()
foreach(key source_bytes packed_bytes load_ratio load_and_pack_ratio loaded_bytes peak_bytes
        peak_bytes_per_attribute load_allocations_per_record pack_allocations_per_record pack_opens)
  string(JSON value GET "${json}" sizes 0 ${key})
  if(NOT value GREATER 0)
    message(FATAL_ERROR "${key} is ${value}")
  endif()
endforeach()

string(JSON attributes GET "${json}" sizes 0 attributes)
string(JSON opens GET "${json}" sizes 0 load_opens_per_record)
if(NOT attributes EQUAL 4000 OR opens LESS 1)
  message(FATAL_ERROR "200 records gave ${attributes} attributes and ${opens} file opens a record")
endif()
string(JSON met GET "${json}" goals 0 met)

if(json MATCHES "${WORK}")
  message(FATAL_ERROR "The results name a path")
endif()
file(GLOB left ${WORK}/tmp/*)
if(left)
  message(FATAL_ERROR "The benchmark left ${left}")
endif()

execute_process(COMMAND ${BENCH} --sizes 1000,none RESULT_VARIABLE status OUTPUT_QUIET ERROR_QUIET)
if(NOT status EQUAL 2)
  message(FATAL_ERROR "A wrong size ended with ${status}")
endif()
