# Installs the build tree into a scratch prefix, then configures, builds and
# runs a small outside project that uses find_package(zorcc), and compiles a
# C file with the flags pkg-config gives.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "command failed (${rc}): ${ARGV}\n${out}\n${err}")
  endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
run(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/build -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/consumer)

find_program(PKG_CONFIG pkg-config)
find_program(CC NAMES cc gcc)
if(PKG_CONFIG AND CC)
  file(GLOB pcdir ${prefix}/lib*/pkgconfig)
  set(ENV{PKG_CONFIG_PATH} ${pcdir})
  execute_process(COMMAND ${PKG_CONFIG} --cflags --libs zorcc OUTPUT_VARIABLE flags RESULT_VARIABLE rc
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "pkg-config does not know zorcc")
  endif()
  separate_arguments(flags UNIX_COMMAND "${flags}")
  file(GLOB libdir ${prefix}/lib*)
  run(${CC} ${CONSUMER_DIR}/consumer.c -o ${WORK_DIR}/consumer_pc ${flags} -Wl,-rpath,${libdir})
  run(${WORK_DIR}/consumer_pc)
endif()
message(STATUS "consumer project built and ran against the installed tree")
