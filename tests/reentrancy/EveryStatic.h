#ifndef TLXTEST_EVERYSTATIC_H
#define TLXTEST_EVERYSTATIC_H

/// Calls every static function of the library, in every overload; tests/checks/check_static_calls.py watches that none is
/// missing. Files are touched only below the installation that the program runs in and the temporary directory.
void callEveryStatic();

#endif // TLXTEST_EVERYSTATIC_H
