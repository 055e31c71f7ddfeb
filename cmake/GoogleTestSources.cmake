# GoogleTest for the system that is compiled for: distributions package it for their own only, but its sources as well.
set(QUORVANE_GOOGLETEST "/usr/src/googletest" CACHE PATH "Sources of GoogleTest, for cross-compiled tests")

add_library(googletest STATIC EXCLUDE_FROM_ALL
  "${QUORVANE_GOOGLETEST}/googletest/src/gtest-all.cc"
  "${QUORVANE_GOOGLETEST}/googletest/src/gtest_main.cc"
  "${QUORVANE_GOOGLETEST}/googlemock/src/gmock-all.cc"
)
set(parts googletest googlemock)
list(TRANSFORM parts PREPEND "${QUORVANE_GOOGLETEST}/")
target_include_directories(googletest PRIVATE ${parts})
list(TRANSFORM parts APPEND "/include")
target_include_directories(googletest SYSTEM PUBLIC ${parts})
add_library(GTest::gtest_main ALIAS googletest)
add_library(GTest::gmock ALIAS googletest)
