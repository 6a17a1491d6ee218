# lanzhou_add_test(NAME name SOURCES ... LIBS ...)
# One QtTest executable registered with CTest, run offscreen with a throwaway settings root.
function(lanzhou_add_test)
  cmake_parse_arguments(T "" "NAME" "SOURCES;LIBS" ${ARGN})
  qt_add_executable(${T_NAME} ${T_SOURCES})
  target_link_libraries(${T_NAME} PRIVATE lanzhou_testsupport ${T_LIBS} Qt6::Test)
  add_test(NAME ${T_NAME} COMMAND ${T_NAME})
  set_tests_properties(${T_NAME} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LANG=C.UTF-8"
    TIMEOUT 600)
endfunction()
