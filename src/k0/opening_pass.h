#pragma once

#include <span>

#include "k0/record.h"

namespace triaxlab {

// What the windows do with their tables when they open. The sampling depths stand in the records by then.

/// Fits the Ko line of every row with a project and a sample number.
void reduceAllK0Samples(std::span<K0SampleRecord> table);
/// Constructs the T90 of all their stages, then fits the line through what that gave.
void reduceAllTK0Samples(std::span<TK0SampleRecord> table);

}  // namespace triaxlab
