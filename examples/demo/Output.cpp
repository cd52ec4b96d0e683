// SPDX-License-Identifier: MIT
#include "Output.h"

#include <curveeditor/files/FileReplacement.h>
#include <curveeditor/shell/CurveEditor.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QPixmap>
#include <QTextStream>

#include <cstddef>
#include <string_view>
#include <system_error>

namespace {

QString reasonFor(const QString& fileName, const QString& fault)
{
    return QStringLiteral("%1: %2").arg(fileName, fault);
}

QString writeFile(const QString& fileName, const QByteArray& content)
{
    const QFileInfo present(fileName);
    if (present.exists() && !present.isFile()) { // a pipe can't be replaced
        QFile device(fileName);
        const bool isDone =
            device.open(QIODevice::WriteOnly) && device.write(content) == content.size() && device.flush();
        return isDone ? QString() : reasonFor(fileName, device.errorString());
    }
    const std::string_view bytes(content.constData(), std::size_t(content.size()));
    const std::error_code error = FileReplacement::write(present.filesystemFilePath(), bytes);
    return error ? reasonFor(fileName, QString::fromLocal8Bit(error.message().c_str())) : QString();
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
