# Installs the build tree into a scratch prefix, then builds a small outside
# program with find_package(zorcc) and with pkg-config, and runs both and the
# installed tool with an empty environment (no LD_LIBRARY_PATH): the installed
# files must find each other by themselves.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "command failed (${rc}): ${ARGV}\n${out}\n${err}")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

function(run_clean)
  run(env -i ${ARGV})
  set(out "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
file(GLOB libdir LIST_DIRECTORIES true ${prefix}/lib*)
list(GET libdir 0 libdir)
# The program's run path names the library folder (CMake's build run path);
# libzorcore, which the program does not call, is found through libzorccpx.
run(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/build -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run_clean(${WORK_DIR}/build/consumer)

find_program(PKG_CONFIG pkg-config)
find_program(CC NAMES cc gcc)
if(PKG_CONFIG AND CC)
  set(ENV{PKG_CONFIG_PATH} ${libdir}/pkgconfig)
  execute_process(COMMAND ${PKG_CONFIG} --cflags --libs zorcc OUTPUT_VARIABLE flags RESULT_VARIABLE rc
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "pkg-config does not know zorcc")
  endif()
  separate_arguments(flags UNIX_COMMAND "${flags}")
  run(${CC} ${CONSUMER_DIR}/consumer.c -o ${WORK_DIR}/consumer_pc -Wl,--as-needed ${flags} -Wl,-rpath,${libdir})
  run_clean(${WORK_DIR}/consumer_pc)
endif()

if(WITH_TOOL)
  run_clean(${prefix}/bin/zorcc --version)
  if(NOT out MATCHES "version +5\\.1\\.1")
    message(FATAL_ERROR "the installed zorcc printed:\n${out}")
  endif()
endif()
message(STATUS "consumer programs and the tool ran from the installed tree")
