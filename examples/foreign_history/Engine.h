// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/CurveSnapshot.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>

/// The thread that evaluates the curve, block after block, while the user edits it.
class Engine
{
public:
    Engine();
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Evaluates that from the next block on. To be called on the thread of the editor.
    void publish(std::shared_ptr<const CurveSnapshot> curve);
    std::shared_ptr<const CurveSnapshot> published() const { return curve_; }
    /// What is multiplied to the values.
    void setGain(double gain) { gain_ = gain; }
    /// The greatest value in the last ten seconds that were evaluated.
    double peak() const { return peak_; }

private:
    void run();

    std::mutex mutex_;
    std::shared_ptr<const CurveSnapshot> curve_; ///< written under the mutex
    std::atomic<double> gain_ = 1.0;
    std::atomic<double> peak_ = 0.0;
    std::atomic<bool> isEnding_ = false;
    std::thread thread_; ///< behind all that it reads
};
