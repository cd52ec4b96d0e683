// SPDX-License-Identifier: MIT
#pragma once

#include "Files.h"

#include <QtTest>

/// A text of commands and what they do. "<" begins the lines of their input, ">" a command. Behind it stand its output,
/// or the file that it shows, with "|", what it tells besides with "!", and an exit code that is not 0 with "=". An @ is
/// the folder of the files. With CURVEEDITOR_RECORD_SESSIONS set the text is written anew.
struct Transcript
{
    struct Outcome
    {
        int code = 0;
        QByteArray output{}, errors{};
    };
    using Run = std::function<Outcome(const QByteArray& input, const QString& command)>;

    static void play(const QString& path, const QString& folder, const Run& run)
    {
        QFile file(path);
        const bool isRecording = qEnvironmentVariableIsSet("CURVEEDITOR_RECORD_SESSIONS");
        QVERIFY(file.open(isRecording ? QIODevice::ReadWrite : QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
        QStringList now;
        QByteArray input;
        for (const QString& line : lines) {
            if (line.startsWith(u'<') && !now.isEmpty() && !now.last().startsWith(u'<'))
                input.clear();
            if (line.startsWith(u'<'))
                input += line.mid(1).replace("\\t", "\t").toUtf8() + '\n';
            if (QString("#<>").contains(line[0]))
                now += line;
            if (line.startsWith(u'>'))
                now += told(input, line.mid(2).replace(u'@', folder), run).replaceInStrings(folder, "@");
        }
        if (isRecording)
            QVERIFY(file.resize(0) && file.seek(0) && file.write((now.join(u'\n') + u'\n').toUtf8()) > 0);
        for (qsizetype i = 0; i < now.size() && !isRecording; ++i)
            QVERIFY2(now[i] == lines.value(i),
                     qPrintable(QString("%1 instead of line %2").arg(now[i]).arg(i + 1)));
        QVERIFY(isRecording || now.size() == lines.size());
    }

private:
    /// Without the digits in which processors differ, behind a ~.
    static QString shortened(QString line)
    {
        static const QRegularExpression longNumber("\\d+\\.\\d{9,}");
        for (auto match = longNumber.match(line); match.hasMatch(); match = longNumber.match(line))
            line.replace(match.capturedStart(), match.capturedLength(),
                         u'~' + QString::number(match.captured().toDouble(), 'g', 8));
        return line;
    }
    static QStringList told(const QByteArray& input, const QString& command, const Run& run)
    {
        const QString file = command.section(u' ', 1);
        const bool isShown = command.startsWith("show "), isWritten = command.startsWith("write ");
        const Outcome outcome = isShown     ? Outcome{0, contentOf(file)}
                                : isWritten ? Outcome{0, written(file, input).left(0).toUtf8()}
                                            : run(input, command);
        QStringList lines;
        for (const auto& [mark, text] : {std::pair(u'|', outcome.output), {u'!', outcome.errors}}) {
            for (const QByteArray& line : text.split('\n'))
                lines += mark + shortened(QString(line).replace("\t", "\\t"));
            lines.removeLast(); // has no end
        }
        return lines + (outcome.code ? QStringList(QString("= %1").arg(outcome.code)) : QStringList());
    }
};
