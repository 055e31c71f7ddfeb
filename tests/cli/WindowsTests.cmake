# The command line as a Windows program: the host's tests of it run once more against the one of this build, whose COM
# ports lead to the simulated instrument's line. Each port runs its share of them, so that they can run side by side.
set(windows_ports 1 2 3 4)

set(left_out
  Measure.PrintsNothingIntoTheLine # standard streams have no numbers
  Setting.RefusesAYearThatTheDatePatternDoesNotTell # this Windows writes years with four digits
  Setting.TellsThatThePortIsBusy # Wine lets two programs have one port
)
list(JOIN left_out ":" left_out)
set(runner "${CMAKE_SOURCE_DIR}/scripts/in-wine")
list(LENGTH windows_ports port_count)

# Makes the Windows, without which there are no ports.
add_test(NAME windows_cli.start COMMAND "${runner}" "$<TARGET_FILE:quorvane-cli>" --version)
set_tests_properties(windows_cli.start PROPERTIES
  TIMEOUT 300
  FIXTURES_SETUP windows_ports
  ENVIRONMENT "QUORVANE_WINE=${CMAKE_SOURCE_DIR}/build/wine"
)
foreach(port IN LISTS windows_ports)
  math(EXPR index "${port} - 1")
  set(environment
    "QUORVANE_WINDOWS_CLI=$<TARGET_FILE:quorvane-cli>"
    "QUORVANE_WINDOWS_RUNNER=${runner}"
    "QUORVANE_WINDOWS_PORT=${port}"
    "QUORVANE_WINE=${CMAKE_SOURCE_DIR}/build/wine"
    "GTEST_TOTAL_SHARDS=${port_count}"
    "GTEST_SHARD_INDEX=${index}"
  )
  add_test(NAME windows_cli.COM${port}
    COMMAND "${QUORVANE_HOST_TESTS}/tests_cli" "--gtest_filter=Measure.*:MeasurePlug.*:Setting.*:OnTheLine/*-${left_out}")
  set_tests_properties(windows_cli.COM${port} PROPERTIES
    TIMEOUT 300
    FAIL_REGULAR_EXPRESSION "Running 0 tests"
    FIXTURES_REQUIRED windows_ports
    RESOURCE_LOCK windows_COM${port}
    ENVIRONMENT "${environment}"
  )
endforeach()
