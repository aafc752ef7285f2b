// The game's log, for the readers of files: information on the standard
// output, failures on the standard error stream, one line each with its line
// end added. Builds for fuzzing define GORVAN_QUIET_LOG and print nothing: a
// reader fed damaged bytes millions of times would spend its time writing.
#pragma once

void logInfo(const char* format, ...) __attribute__((format(printf, 1, 2)));
void logError(const char* format, ...) __attribute__((format(printf, 1, 2)));
