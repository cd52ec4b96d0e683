// SPDX-License-Identifier: MIT
#include "Engine.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace {

constexpr double seconds = 10.0;
constexpr std::size_t valuesOfBlock = 512;

} // namespace

Engine::Engine() : thread_([this] { run(); }) {}

Engine::~Engine()
{
    isEnding_ = true;
    thread_.join();
}

void Engine::publish(std::shared_ptr<const CurveSnapshot> curve)
{
    const std::lock_guard lock(mutex_);
    curve_.swap(curve);
}

// The copy of the pointer is all that is done under the lock; evaluation takes none and allocates nothing.
void Engine::run()
{
    std::array<double, valuesOfBlock> times;
    std::array<double, valuesOfBlock> values;
    for (std::size_t i = 0; i < times.size(); ++i)
        times[i] = seconds * double(i) / double(times.size() - 1);
    while (!isEnding_) {
        std::shared_ptr<const CurveSnapshot> curve;
        {
            const std::lock_guard lock(mutex_);
            curve = curve_;
        }
        if (curve) {
            curve->evaluate(times.data(), values.data(), times.size());
            peak_ = gain_ * *std::max_element(values.begin(), values.end());
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}
