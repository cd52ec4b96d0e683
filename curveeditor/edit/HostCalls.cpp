// SPDX-License-Identifier: MIT
#include <curveeditor/edit/HostCalls.h>

namespace curveeditor {

HostCalls::Call::Call(HostCalls& calls) : calls_(&calls)
{
    ++calls_->count_;
}

HostCalls::Call::~Call()
{
    if (calls_ && --calls_->count_ == 0)
        Q_EMIT calls_->returned();
}

} // namespace curveeditor

#include "moc_HostCalls.cpp"
