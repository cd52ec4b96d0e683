// SPDX-License-Identifier: MIT
// Compiled with the headers that all tests share, which makes the compiler keep them.
