// SPDX-License-Identifier: MIT
// The examples in the comments of the installed headers, line by line.
#include <curveeditor/canvas/CurveEditorTheme.h>
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/shell/CurveEditor.h>

#include <QApplication>

#include <sstream>

static const char expressionFile[] = R"(
    255
    128
    0
    1
    sin(t)
)";

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);

    SplineBase lens;                      // the host owns its curves ...
    FunctionFloatBase* formula = nullptr; // ... and the variables of their expressions
    CurveEditor editor;
    QObject::connect(&editor, &CurveEditor::curveEdited,
                     [&](const CurveChange& change) { /* read lens or formula */ });
    editor.setTimeRange(0.0, 20.0);
    editor.addCurve("Camera", "Lens", Qt::yellow, 35.0F, &lens, &formula, 10.0F, 200.0F);
    editor.setDefaultSelected("Camera", "Lens");
    editor.show();

    CurveEditorTheme theme = CurveEditorTheme::dark();
    theme.grabDistance = 12; // for hands that need it
    editor.setTheme(theme);

    CurveFile file;
    std::istringstream in(expressionFile);
    return file.read(in) && file.color.green == 128 && file.expression == "sin(t)" ? 0 : 1;
}
