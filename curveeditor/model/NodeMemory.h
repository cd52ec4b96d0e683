// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Memory for the nodes of parsed expressions, which are made and freed by the dozen. The few that were freed last
/// are kept and given again. As the nodes, it is for one thread at a time.
namespace NodeMemory {

/// Memory for one node of `size` bytes.
void* take(std::size_t size);

/// Takes back what `take` gave for that size.
void give(void* memory, std::size_t size);

} // namespace NodeMemory
