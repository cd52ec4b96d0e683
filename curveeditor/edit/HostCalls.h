// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

namespace curveeditor {

/// Counts the calls that run code of the host, which may run a loop in it. Whoever made such a call goes on when it
/// returns, so until then nothing may be deleted.
class HostCalls : public QObject
{
    Q_OBJECT

public:
    /// Counts as one call while it lives.
    class Call
    {
    public:
        explicit Call(HostCalls& calls);
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;
        ~Call();

    private:
        QPointer<HostCalls> calls_;
    };

    bool isAny() const { return count_ > 0; }

Q_SIGNALS:
    /// From the last of them.
    void returned();

private:
    int count_ = 0;
};

} // namespace curveeditor
