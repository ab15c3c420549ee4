#pragma once

#include <gtest/gtest.h>

/// First in a test that writes workbooks of the newer format.
#ifdef TRIAXLAB_HAS_XLSX
#define NEEDS_XLSX() static_cast<void>(0)
#else
#define NEEDS_XLSX() GTEST_SKIP() << "this build has no writer of .xlsx"
#endif
