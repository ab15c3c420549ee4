#pragma once

#include <gtest/gtest.h>

/// First in a test that writes workbooks of the newer format.
#ifdef TRIAXLAB_HAS_XLSX
#define NEEDS_XLSX() static_cast<void>(0)
#else
#define NEEDS_XLSX() GTEST_SKIP() << "this build has no writer of .xlsx"
#endif

/// First in a test that reads Jet databases.
#ifdef TRIAXLAB_HAS_JET
#define NEEDS_JET() static_cast<void>(0)
#else
#define NEEDS_JET() GTEST_SKIP() << "this build has no reader of Jet databases"
#endif
