// SPDX-License-Identifier: MIT
#pragma once

#include "GuideScene.h"

#include <QDir>
#include <QStringList>

/// The moving picture of the README: a user at the editor, frame by frame, each a PNG file of a folder. `frames.txt`
/// beside them has for each frame its options for `img2webp`.
class Film
{
public:
    explicit Film(const QDir& folder);

    /// False if a file can't be written.
    bool shoot();

private:
    void drag();
    void ease();
    void formula();
    void takeBack();
    void darken();

    /// The hand goes on a straight way to a place of the plane.
    void reach(double time, double value);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& caption);
    void frame(int milliseconds, const QString& caption = QString());
    QPixmap picture(const QString& caption);

    QDir folder_;
    GuideScene scene_;
    QPointF hand_; ///< on the canvas
    bool isHolding_ = false;
    QStringList options_;
    bool isWritten_ = true;
};
