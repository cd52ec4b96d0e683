// SPDX-License-Identifier: MIT
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/SplineBase.h>
#include <curveeditor/shell/CurveEditor.h>

#include <QApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);

    SplineBase zoom;                      // the host owns its curves, new ones hold a point (0, 0), ...
    FunctionFloatBase* formula = nullptr; // ... and one expression variable for each
    zoom.addPoint(5.0, 2.0);
    zoom.addPoint(10.0, -1.0);

    CurveEditor editor;
    QObject::connect(&editor, &CurveEditor::curveEdited, [&](const CurveChange& change) {
        QTextStream(stdout) << change.group << '.' << change.curve << " is now "
                            << (formula ? QString::fromStdString(formula->getString())
                                        : QString::number(zoom(5.0)) + " at 5")
                            << Qt::endl;
    });
    editor.setTheme(CurveEditorTheme::fromPalette(editor.palette()));
    editor.setFps(24.0);  // frames per time unit
    editor.setShowTime(); // the axis counts frames else
    editor.setTimeRange(-0.5, 10.5);
    editor.addCurve("Camera", "zoom", Qt::yellow, 0.0F, &zoom, &formula, -3.0F, 3.0F);
    editor.setDefaultSelected("Camera", "zoom");
    editor.show();

    const int status = application.exec();
    editor.removeCurve("Camera", "zoom");
    delete formula; // what the editor left in the variable is the host's
    return status;
}
