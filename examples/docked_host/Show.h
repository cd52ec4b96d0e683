// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/CurveSnapshot.h>
#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/model/SplineBase.h>

#include <QColor>
#include <QJsonObject>
#include <QString>

#include <memory>
#include <vector>

class FunctionFloatBase;

/// What this host is about: the channels of a lighting console, each a curve of percent over seconds, and the names of
/// its cues. It owns the curves that the editor edits.
class Show
{
public:
    static constexpr double duration = 60.0; ///< seconds
    static constexpr double fps = 24.0;

    struct Channel
    {
        Channel() = default;
        Channel(const Channel&) = delete;
        Channel& operator=(const Channel&) = delete;
        ~Channel();

        /// The value at each time, on whichever thread.
        std::shared_ptr<const CurveSnapshot> snapshot(const CurveVariables& variables) const;

        QString group;
        QString name;
        QColor color;
        bool isLocked = false; ///< lights that must not go out
        SplineBase spline;
        FunctionFloatBase* formula = nullptr; ///< what the editor leaves here is the host's

    private:
        mutable std::shared_ptr<const CurveSnapshot> last_;
    };
    struct Cue
    {
        double time;
        QString name;
    };

    /// Ten channels in each of four groups.
    Show();

    const std::vector<std::unique_ptr<Channel>>& channels() const { return channels_; }
    Channel* find(const QString& group, const QString& name) const;
    const std::vector<Cue>& cues() const { return cues_; }
    CurveVariables& variables() { return variables_; }
    std::vector<std::shared_ptr<const CurveSnapshot>> snapshots() const;

    /// All channels as the file of a show has them. Reading takes those that it knows, and leaves a channel that is no
    /// whole curve, or missing, as it is.
    QJsonObject write() const;
    void read(const QJsonObject& curves);

private:
    void addChannel(const QString& group, int number, const QColor& color);

    std::vector<std::unique_ptr<Channel>> channels_;
    CurveVariables variables_;
    std::vector<Cue> cues_;
};
