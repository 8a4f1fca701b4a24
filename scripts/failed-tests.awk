# From the log that ctest keeps of all output: what the failed tests said, without the hundreds that passed. A program
# that crashed or hung is shown from the test that it did not finish.
/^Output:$/ { part = said = ""; isOutput = 1; next }
/^<end of output>$/ { isOutput = 0; unfinished = part; next }
/^Test Failed\.$/ { printf "%s%s", said, unfinished; next }
!isOutput { next }
# GTK measures check boxes before their window has a size, and says so each time.
/Gtk-CRITICAL .*: assertion '(extra_space|size) >= 0' failed/ || /^$/ { next }
/^\[ RUN      \]/ { part = "" }
/^\[       OK \]|^\[  SKIPPED \]/ { part = ""; next }
{ part = part $0 "\n" }
/^\[  FAILED  \]/ { said = said part; part = "" }
