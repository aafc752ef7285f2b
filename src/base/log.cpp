#include "base/log.h"

#include <cstdarg>
#include <cstdio>

namespace {

void writeLine(FILE* stream, const char* format, va_list arguments)
{
#ifdef GORVAN_QUIET_LOG
    (void)stream;
    (void)format;
    (void)arguments;
#else
    std::vfprintf(stream, format, arguments);
    std::fputc('\n', stream);
    std::fflush(stream);
#endif
}

}  // namespace

void logInfo(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    writeLine(stdout, format, arguments);
    va_end(arguments);
}

void logError(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    writeLine(stderr, format, arguments);
    va_end(arguments);
}
