// What a call prints, for tests of the one-line messages; byte strings spelled out.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

template <typename Call> std::string stderrOf(Call call)
{
    testing::internal::CaptureStderr();
    call();
    return testing::internal::GetCapturedStderr();
}

template <typename Call> std::string stdoutOf(Call call)
{
    testing::internal::CaptureStdout();
    call();
    return testing::internal::GetCapturedStdout();
}

inline std::string bytes(std::initializer_list<int> values) { return std::string(values.begin(), values.end()); }
