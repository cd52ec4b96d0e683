// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QSize>
#include <QString>

/// Pictures of all pages and dialogs, to be looked at, in languages, widths, font sizes, directions and colours of which
/// every two come together somewhere.
class Matrix
{
public:
    /// The pictures go into the folder.
    explicit Matrix(const QDir& folder) : folder_(folder) {}

    /// Leaves the application in the last combination. Returns false if a picture can't be written or a dialog does not
    /// open.
    bool draw();

private:
    bool drawPages();
    bool drawDialogs();
    bool save(const QPixmap& picture, const QString& subject) const;

    QDir folder_;
    QSize size_;          ///< of the editor
    QString combination_; ///< part of the names of files
};
