# Warnings are errors in the project's own sources; system headers (GTK+,
# GLib, ICU) come in as SYSTEM include directories and stay quiet.
function(vorlan_strict_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
endfunction()
