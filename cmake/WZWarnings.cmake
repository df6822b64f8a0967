# Warnings are errors with GCC and Clang alike.
function(wz_set_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror -Wno-unused-parameter)
endfunction()
