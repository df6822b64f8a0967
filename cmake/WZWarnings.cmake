# Warnings are errors with GCC and Clang alike.
function(wz_set_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror -Wno-unused-parameter)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 at -O3 reports std::string concatenation as overlapping memcpy (GCC bug 105329):
    # a false positive of the optimiser's range analysis, not of our code.
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
endfunction()
