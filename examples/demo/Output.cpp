// SPDX-License-Identifier: MIT
#include "Output.h"

#include <curveeditor/shell/CurveEditor.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPixmap>
#include <QSaveFile>
#include <QTextStream>

namespace {

QString writeFile(const QString& fileName, const QByteArray& content)
{
    QSaveFile replacement(fileName);
    QFile device(fileName); // a pipe can't be replaced
    const bool replaces = !QFileInfo::exists(fileName) || QFileInfo(fileName).isFile();
    QFileDevice& file = replaces ? static_cast<QFileDevice&>(replacement) : device;
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() &&
        (!replaces || replacement.commit()))
        return QString();
    return QStringLiteral("%1: %2").arg(fileName, file.errorString());
}

} // namespace

QString Output::writeScreenshot(CurveEditor& editor, const QString& fileName)
{
    if (!editor.isVisible()) {
        editor.setAttribute(Qt::WA_DontShowOnScreen);
        editor.show();
        QCoreApplication::processEvents();
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    editor.grab().save(&buffer, "PNG");
    return writeFile(fileName, buffer.data());
}

QString Output::writeTable(CurveEditor& editor, const QString& fileName)
{
    QByteArray content;
    QTextStream stream(&content);
    editor.exportSensorData(stream);
    stream.flush();
    if (content.isEmpty())
        return QCoreApplication::translate("Output", "The range of time is too long for a table.");
    return writeFile(fileName, content);
}
