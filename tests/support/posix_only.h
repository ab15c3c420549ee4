#pragma once

#include <gtest/gtest.h>

/// First in a test of something that Windows lacks, or has in another shape.
#ifdef _WIN32
#define POSIX_ONLY(what) GTEST_SKIP() << "on POSIX systems alone: " << (what)
#else
#define POSIX_ONLY(what) static_cast<void>(what)
#endif
