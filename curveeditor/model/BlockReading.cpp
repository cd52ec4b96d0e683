// SPDX-License-Identifier: MIT
#include <curveeditor/model/BlockReading.h>

namespace curveeditor {

namespace {

const BlockReading* inForce = nullptr;
std::uint64_t lastNumber = 0;

} // namespace

BlockReading::BlockReading(const double* times, double framesPerTimeUnit, std::size_t count)
    : times_(times), framesPerTimeUnit_(framesPerTimeUnit), count_(count), number_(++lastNumber)
{
    inForce = this;
}

BlockReading::~BlockReading()
{
    inForce = nullptr;
}

const BlockReading* BlockReading::present()
{
    return inForce;
}

} // namespace curveeditor
