// SPDX-License-Identifier: MIT
#pragma once

// Marks what a host may link against. Everything else stays hidden inside the libraries.
#if defined(__GNUC__)
#define CURVEEDITOR_EXPORT __attribute__((visibility("default")))
#else
#define CURVEEDITOR_EXPORT
#endif
