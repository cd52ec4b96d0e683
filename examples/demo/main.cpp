// SPDX-License-Identifier: MIT
#include "CommandLine.h"
#include "CurveStore.h"
#include "DemoWindow.h"
#include "EditorHost.h"
#include "Output.h"
#include "ReadTable.h"
#include "SampleCurves.h"
#include "TableCurves.h"

#include <curveeditor/canvas/DecimalQuestion.h>
#include <curveeditor/shell/Translations.h>

#include <QApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QTranslator>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

constexpr qsizetype mostCurvesOpenedUnasked = 32;
constexpr qint64 mostBytes = 512 << 20;

bool hasDisplay()
{
#ifdef Q_OS_LINUX
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
#else
    return true;
#endif
}

bool report(const QString& reason)
{
    if (!reason.isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(reason));
    return reason.isEmpty();
}

// The texts of the editor, and Qt's own where its translations are installed. Returns an empty text, or why not.
QString chooseLanguage(const QString& language, QTranslator& qtTexts)
{
    if (language.isEmpty())
        return QString();
    const QLocale locale(language);
    if (!installCurveEditorTranslation(locale))
        return QCoreApplication::translate("main", "There is no translation into \"%1\".").arg(language);
    QLocale::setDefault(locale);
    if (qtTexts.load(locale, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&qtTexts);
    return QString();
}

void askAndRead(ReadTable& read, const QString& fileName, const QByteArray& text)
{
    const auto decimal =
        askForDecimal(nullptr, fileName, std::string_view(text.constData(), std::size_t(text.size())));
    if (decimal)
        read = readTable(text, *decimal);
}

// The curves of the table, or the samples if there is no name. Returns an empty text, or why there is no
// table.
QString fillStore(CurveStore& store, const CommandLine& commandLine)
{
    const QString& fileName = commandLine.tableFile;
    if (fileName.isEmpty()) {
        addSampleCurves(store);
        return QString();
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("%1: %2").arg(fileName, file.errorString());
    const QByteArray text = file.read(mostBytes + 1);
    if (file.error() != QFileDevice::NoError)
        return QStringLiteral("%1: %2").arg(fileName, file.errorString());
    if (text.size() > mostBytes)
        return QCoreApplication::translate("main", "%1: is larger than %2 MiB")
            .arg(fileName)
            .arg(mostBytes >> 20);
    ReadTable read = readTable(text, commandLine.decimal);
    if (read.isAmbiguous && commandLine.isBatch())
        read.reason += QCoreApplication::translate("main", "; say --decimal comma or --decimal point");
    else if (read.isAmbiguous)
        askAndRead(read, fileName, text);
    if (!read.table)
        return QStringLiteral("%1:%2").arg(fileName, read.reason);
    addTableCurves(store, *read.table, commandLine.simplifyPercent);
    return QString();
}

QStringList namesToOpen(const CurveStore& store, const CommandLine& commandLine)
{
    if (!commandLine.names.isEmpty())
        return commandLine.names;
    if (commandLine.tableFile.isEmpty())
        return curvesOpenAtStart();
    QStringList names;
    for (const auto& curve : store.getCurves())
        names.append(curve->fullName());
    return names.mid(0, mostCurvesOpenedUnasked);
}

// Returns an empty text, or which name is not known.
QString openCurves(EditorHost& host, const CurveStore& store, const QStringList& names)
{
    for (const QString& name : names) {
        bool found = false;
        for (const auto& curve : store.getCurves()) {
            if (curve->fullName() == name || curve->group == name) {
                host.open(*curve);
                found = true;
            }
        }
        if (!found) {
            return QCoreApplication::translate("main", "There is no curve and no group named \"%1\".")
                .arg(name);
        }
    }
    return QString();
}

bool writeFiles(CurveEditor& editor, const CommandLine& commandLine)
{
    if (!commandLine.screenshotFile.isEmpty() &&
        !report(Output::writeScreenshot(editor, commandLine.screenshotFile)))
        return false;
    return commandLine.exportFile.isEmpty() || report(Output::writeTable(editor, commandLine.exportFile));
}

} // namespace

int main(int argc, char* argv[])
{
    const bool canShow = hasDisplay() || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") &&
        (!canShow || CommandLine::needsNoDisplay(argc, argv)))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("curve_editor_demo"));
    QApplication::setApplicationVersion(QStringLiteral(CURVE_EDITOR_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.example.CurveEditorDemo"));
    const CommandLine commandLine(application);

    if (!canShow && !commandLine.isBatch()) {
        report(QCoreApplication::translate("main", "There is no display. Try --screenshot FILE."));
        return EXIT_FAILURE;
    }

    QTranslator qtTexts;
    if (!report(chooseLanguage(commandLine.language, qtTexts)))
        return EXIT_FAILURE;
    CurveStore store;
    if (!report(fillStore(store, commandLine)))
        return EXIT_FAILURE;
    const QStringList names = namesToOpen(store, commandLine);

    if (commandLine.isBatch()) {
        EditorHost host(store);
        const bool good = report(openCurves(host, store, names)) && writeFiles(host.getEditor(), commandLine);
        return good ? EXIT_SUCCESS : EXIT_FAILURE;
    }

    DemoWindow window(store);
    if (!report(openCurves(window.getHost(), store, names)))
        return EXIT_FAILURE;
    window.showBoth();
    return application.exec();
}
