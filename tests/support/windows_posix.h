// The two POSIX calls the tests use that Windows' C library lacks, for the
// Windows build of the tests (given to every test source there).
#pragma once

#include <cstdlib>
#include <cstring>
#include <direct.h>
#include <io.h>

inline int setenv(const char* name, const char* value, int) { return _putenv_s(name, value); }

inline char* mkdtemp(char* pattern)
{
    if (_mktemp_s(pattern, std::strlen(pattern) + 1) != 0 || _mkdir(pattern) != 0) return nullptr;
    return pattern;
}
